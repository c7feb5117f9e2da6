#pragma once

#include <cstddef>
#include <cstdint>

#include "link/device.h"
#include "platform/byte_channel.h"
#include "platform/types.h"
#include "sequence/api.h"

/// A device that is a path: a file (bytes are added at its end), a named pipe or a raw MIDI node.
/// It is opened when it is first needed and again after a failure, so a node that was unplugged
/// works again when it is back, and so does a pipe with a new reader.
class ORBIX_API ByteSink : public Device {
public:
    static constexpr DWORD kLimitMilliseconds = 2000;

    /// `limit`: how long a pipe may stay without a reader, or anything not take one byte more.
    explicit ByteSink(CString path, DWORD limit = kLimitMilliseconds);

    /// 0 closes the path; any other value opens it if it isn't. False when it can't be opened.
    bool PrepareOutput(std::uint32_t value) override;

    /// `length` when all bytes went out, else -1; part of them may have gone out then.
    std::int32_t WriteBlock(const void* data, std::uint32_t length) override;

    CString FailureText() const override { return failure_; }

private:
    template <typename Attempt>
    os::ChannelState TryUntilLimit(Attempt attempt, const char* waitingFor);
    os::ChannelState WriteRest(const char* data, std::size_t length, std::size_t& written);

    CString path_;
    DWORD limit_;
    os::ByteChannel channel_;
    CString failure_;
};
