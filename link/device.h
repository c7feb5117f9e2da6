#pragma once

#include <cstdint>

#include "platform/types.h"
#include "sequence/api.h"

/// What talks to the hardware. The host owns it and keeps it alive as long as a manager names it.
/// Calls never overlap; they run on whichever thread sends (letting go: on the ownership's
/// watching thread), and must come back within a limit of their own.
class ORBIX_API Device {
public:
    Device() = default;
    virtual ~Device() = default;
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    /// Makes the device ready to take data, with `value` 1 ahead of a block; 0 lets it go for
    /// another holder. False: not ready.
    virtual bool PrepareOutput(std::uint32_t value) = 0;

    /// Gives `length` bytes to the device. The number of bytes taken, -1 on failure.
    virtual std::int32_t WriteBlock(const void* data, std::uint32_t length) = 0;

    /// Why the last of these calls failed, for the user; "" when it did not, or nobody knows.
    virtual CString FailureText() const { return {}; }
};
