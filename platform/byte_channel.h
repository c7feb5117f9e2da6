#pragma once

#include <cstddef>

#include "platform/types.h"

/// The seam to files that bytes are played into; defined in platform/posix. No call blocks.
namespace os {

enum class ChannelState {
    done,    ///< It worked, wholly or (a write) in part.
    wait,    ///< Not now: a pipe without a reader, a device with full buffers.
    failed,  ///< errno says why, LastErrorText has the words.
};

/// A regular file, a named pipe or a device node, open for writing. One thread at a time.
class ByteChannel {
public:
    ByteChannel() = default;
    ~ByteChannel() { Close(); }
    ByteChannel(const ByteChannel&) = delete;
    ByteChannel& operator=(const ByteChannel&) = delete;

    /// Opens what `path` names. A regular file is written on at its end and made when there is
    /// none, but nothing is ever made in /dev: a node that is gone stays gone.
    ChannelState Open(const CString& path);

    /// Writes what goes in now of `length` bytes (at least 1) and counts it in `written`. A pipe
    /// whose reader has left fails with EPIPE; the process gets no signal.
    ChannelState Write(const void* data, std::size_t length, std::size_t& written);

    void Close();
    bool IsOpen() const { return descriptor_ >= 0; }

private:
    int descriptor_ = -1;
};

}  // namespace os
