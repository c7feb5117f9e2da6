#include "params/device_placement.h"

#include "params/device_message.h"
#include "params/position_block.h"
#include "sequence/strstream.h"

namespace {

constexpr std::uint32_t kRequestDeviceMessage = 5;

}  // namespace

std::optional<std::string> DeviceMessageOf(const DevicePlacement& placement) {
    CQelCPB_3DPosition block;
    const struct {
        std::uint32_t parameter;
        std::uint32_t value;
    } settings[] = {
        {2801, placement.id},
        {2806, placement.distance},
        {2804, WireFromDegrees(placement.azimuth) & 0xFFFFU},
        {2805, WireFromDegrees(placement.elevation) & 0xFFU},
        {2800, 0},  // the tick does not travel
    };
    for (const auto& setting : settings) {
        st_paramValue value{-1, setting.value, nullptr};
        block.SetParam(setting.parameter, &value, kSizeParamValue);
    }
    std::strstream stream;
    st_paramStream record{0, 0, 0, &stream};
    if (!block.GetParam(kRequestDeviceMessage, &record, kSizeParamStream)) {
        return std::nullopt;
    }
    const std::string message(stream.str(), static_cast<std::size_t>(stream.pcount()));
    stream.freeze(false);
    return message;
}

std::optional<DevicePlacement> ReadDeviceMessage(std::string_view bytes) {
    const auto message =
        DecodeDeviceMessage({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    if (!message) {
        return std::nullopt;
    }
    return DevicePlacement{message->id, message->distance, DegreesFromWire(message->azimuth),
                           DegreesFromWire(message->elevation)};
}
