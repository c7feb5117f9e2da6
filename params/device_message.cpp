#include "params/device_message.h"

#include <algorithm>

DeviceMessageBytes EncodeDeviceMessage(const DeviceMessage& message) {
    DeviceMessageBytes bytes = {0xF0, 0x43, 0x79, 0x08, 0x7F, 0x29, message.id};
    for (std::size_t i = 0; i < 4; ++i) {
        bytes[7 + i] = static_cast<std::uint8_t>(message.distance >> (21 - 7 * i) & 0x7FU);
    }
    bytes[11] = message.azimuth;
    bytes[12] = message.elevation;
    bytes[17] = 0xF7;
    return bytes;
}

std::optional<DeviceMessage> DecodeDeviceMessage(std::span<const std::uint8_t> bytes) {
    if (bytes.size() != kDeviceMessageSize) {
        return std::nullopt;
    }
    const auto data = bytes.subspan(1, kDeviceMessageSize - 2);
    DeviceMessage message{bytes[6], 0, bytes[11], bytes[12]};
    for (std::size_t i = 7; i <= 10; ++i) {
        message.distance = message.distance << 7U | bytes[i];
    }
    const bool whole = std::ranges::equal(EncodeDeviceMessage(message), bytes) &&
                       std::ranges::all_of(data, [](std::uint8_t byte) { return byte < 0x80; });
    return whole ? std::optional(message) : std::nullopt;
}
