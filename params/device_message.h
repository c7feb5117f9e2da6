#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

/// Azimuth and elevation as they travel, in steps of three degrees from -192.
constexpr std::uint32_t WireFromDegrees(int degrees) {
    return static_cast<std::uint32_t>(degrees / 3 + 64);
}
constexpr int DegreesFromWire(int wire) {
    return (wire - 64) * 3;
}

/// What one device message says: where a source is. The tick does not travel.
struct DeviceMessage {
    std::uint8_t id = 0;         ///< 3D ID of the source
    std::uint32_t distance = 0;  ///< millimetres; bits 28 to 31 do not travel
    std::uint8_t azimuth = 0;    ///< wire form: degrees / 3 + 64
    std::uint8_t elevation = 0;  ///< wire form likewise

    bool operator==(const DeviceMessage&) const = default;
};

/// The message as the device takes it, System Exclusive from F0 to F7:
///
/// | bytes | content |
/// |---|---|
/// | 0-5 | F0 43 79 08 7F 29 |
/// | 6 | 3D ID |
/// | 7-10 | distance in four groups of seven bits, most significant first |
/// | 11, 12 | azimuth, elevation |
/// | 13-17 | 00 00 00 00 F7 |
inline constexpr std::size_t kDeviceMessageSize = 18;
using DeviceMessageBytes = std::array<std::uint8_t, kDeviceMessageSize>;

DeviceMessageBytes EncodeDeviceMessage(const DeviceMessage& message);

/// What the bytes say; nothing when they are no device message from the first to the last byte, or
/// hold a data byte with bit 7 set, which no message can.
std::optional<DeviceMessage> DecodeDeviceMessage(std::span<const std::uint8_t> bytes);
