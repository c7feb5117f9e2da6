#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "sequence/api.h"

/// One placement of one source, as the device takes it.
struct DevicePlacement {
    std::uint8_t id = 0;         ///< 3D ID, 0 to 3.
    std::uint32_t distance = 0;  ///< Millimetres; 28 bits travel.
    int azimuth = 0;             ///< Degrees, -180 to 177 in steps of 3.
    int elevation = 0;           ///< Degrees, -90 to 90 in steps of 3.

    bool operator==(const DevicePlacement&) const = default;
};

/// The System Exclusive message that a position block writes for this placement
/// (params/device_message.h shows each byte); what is out of range is brought into it as the block
/// does. Nothing when the block refused. Any thread.
ORBIX_API std::optional<std::string> DeviceMessageOf(const DevicePlacement& placement);

/// The placement in these bytes, or nothing when they are no device message. Azimuth and elevation
/// come out as the bytes say, in range or not. Any thread.
ORBIX_API std::optional<DevicePlacement> ReadDeviceMessage(std::string_view bytes);
