#include "cli/device_messages.h"

#include "params/device_placement.h"

std::vector<std::string> DeviceMessagesOf(const C3DEventData& store) {
    std::vector<std::string> messages;
    for (int i = 0; i < store.CountEvents(-1); ++i) {
        const _tagEvent3D& event = store.EventAt(i);
        if (event.type != kEventPosition) {
            continue;
        }
        if (auto message =
                DeviceMessageOf({event.id, event.distance, event.azimuth, event.elevation})) {
            messages.push_back(std::move(*message));
        }
    }
    return messages;
}
