#include "ports/playback.h"

#include <algorithm>
#include <cstdint>

#include "platform/hooks.h"

namespace {

constexpr std::int64_t kMicroseconds = 1000;

// A rest that came out longer than asked for is made up for, up to as much as the buffer of any
// device holds (10 ms are 31 bytes); then the wire would stand still for nothing.
constexpr std::int64_t kMostLag = 10 * kMicroseconds;

// Says when the wire is free again, in microseconds from the start on a clock of milliseconds.
class Wire {
public:
    void Take(std::size_t bytes, DWORD gap) {
        free_ = std::max(free_, Now() - kMostLag);
        free_ += static_cast<std::int64_t>(bytes) * kWireMicroseconds + gap * kMicroseconds;
    }

    void WaitUntilFree() const {
        while (Now() < free_) {
            Sleep(static_cast<DWORD>((free_ - Now() + kMicroseconds - 1) / kMicroseconds));
        }
    }

private:
    std::int64_t Now() const { return (GetTickCount() - start_) * kMicroseconds; }

    DWORD start_ = GetTickCount();
    std::int64_t free_ = 0;
};

}  // namespace

std::size_t PlayOut(const std::vector<std::string>& messages, DWORD gap,
                    const PlaybackHooks& hooks) {
    Wire wire;
    std::size_t sent = 0;
    for (const std::string& message : messages) {
        wire.WaitUntilFree();
        if (!hooks.send(message)) {
            break;
        }
        ++sent;
        wire.Take(message.size(), sent < messages.size() ? gap : 0);
        if (hooks.progress) {
            hooks.progress(sent);
        }
    }
    wire.WaitUntilFree();
    return sent;
}
