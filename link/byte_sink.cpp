#include "link/byte_sink.h"

#include <limits>
#include <utility>

#include "platform/hooks.h"
#include "platform/system.h"

namespace {

// At wire speed (31,250 baud) 16 bytes leave a device's buffer meanwhile.
constexpr DWORD kRetryMilliseconds = 5;

}  // namespace

ByteSink::ByteSink(CString path, DWORD limit) : path_(std::move(path)), limit_(limit) {}

// Repeats `attempt` while it has to wait; `wait` as the result means that the limit was reached.
template <typename Attempt>
os::ChannelState ByteSink::TryUntilLimit(Attempt attempt, const char* waitingFor) {
    const DWORD start = GetTickCount();
    os::ChannelState state = attempt();
    while (state == os::ChannelState::wait && GetTickCount() - start < limit_) {
        Sleep(kRetryMilliseconds);
        state = attempt();
    }
    if (state == os::ChannelState::done) {
        failure_.clear();
        return state;
    }
    failure_ = state == os::ChannelState::failed ? os::LastErrorText() : waitingFor;
    channel_.Close();
    return state;
}

bool ByteSink::PrepareOutput(std::uint32_t value) {
    if (value == 0) {
        channel_.Close();
        return true;
    }
    return channel_.IsOpen() || TryUntilLimit([this] { return channel_.Open(path_); },
                                              "nobody reads the pipe") == os::ChannelState::done;
}

std::int32_t ByteSink::WriteBlock(const void* data, std::uint32_t length) {
    if (length > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max()) ||
        !PrepareOutput(1)) {
        return -1;
    }
    const char* const bytes = static_cast<const char*>(data);
    std::size_t written = 0;
    os::ChannelState state = WriteRest(bytes, length, written);
    // The node may have been pulled and be back, or the pipe's reader been replaced, since the
    // last block; then this one can still go out whole.
    if (state == os::ChannelState::failed && written == 0 && PrepareOutput(1)) {
        state = WriteRest(bytes, length, written);
    }
    return state == os::ChannelState::done ? static_cast<std::int32_t>(length) : -1;
}

os::ChannelState ByteSink::WriteRest(const char* data, std::size_t length, std::size_t& written) {
    os::ChannelState state = os::ChannelState::done;
    while (state == os::ChannelState::done && written < length) {
        state =
            TryUntilLimit([&] { return channel_.Write(data + written, length - written, written); },
                          "the receiver takes no more bytes");
    }
    return state;
}
