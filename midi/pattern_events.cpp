#include "midi/pattern_events.h"

#include "sequence/byte_stream.h"

EventBytes MetaEvent(std::uint8_t type, std::string_view payload) {
    EventBytes bytes(6);
    bytes[0] = 0xFF;
    bytes[1] = type;
    bytes.resize(2 + EncodeVarLen(static_cast<std::uint32_t>(payload.size()), &bytes[2]));
    bytes.insert(bytes.end(), payload.begin(), payload.end());
    return bytes;
}

EventBytes TempoEvent(std::uint32_t tempo) {
    return {0xFF,
            kMetaTempo,
            3,
            static_cast<std::uint8_t>(tempo >> 16U),
            static_cast<std::uint8_t>(tempo >> 8U),
            static_cast<std::uint8_t>(tempo)};
}

EventBytes IdTrackName(int id) {
    return MetaEvent(kMetaTrackName, "3D ID " + std::to_string(id));
}

EventBytes MessageEvent(const DeviceMessage& message) {
    const DeviceMessageBytes sent = EncodeDeviceMessage(message);
    EventBytes bytes(sent.begin(), sent.end());
    bytes.insert(bytes.begin() + 1, static_cast<std::uint8_t>(sent.size() - 1));
    return bytes;
}
