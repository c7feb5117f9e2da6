#include "platform/byte_channel.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <utility>

namespace {

/// Keeps SIGPIPE from this thread while it lives and swallows the one that came meanwhile. The
/// process's own setting is the host's business.
class PipeSignalShield {
public:
    PipeSignalShield() {
        sigemptyset(&pipe_);
        sigaddset(&pipe_, SIGPIPE);
        sigset_t pending;
        sigpending(&pending);
        wasPending_ = sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
    }
    ~PipeSignalShield() {
        const int error = errno;
        const timespec now{};
        while (!wasPending_ && sigtimedwait(&pipe_, nullptr, &now) < 0 && errno == EINTR) {
        }
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
        errno = error;
    }
    PipeSignalShield(const PipeSignalShield&) = delete;
    PipeSignalShield& operator=(const PipeSignalShield&) = delete;

private:
    sigset_t pipe_{};
    sigset_t before_{};
    bool wasPending_ = false;
};

bool IsInDeviceFolder(const CString& path) {
    std::error_code error;
    const auto whole = std::filesystem::weakly_canonical(path, error);
    const auto root = whole.begin();
    return error ||
           (root != whole.end() && std::next(root) != whole.end() && *std::next(root) == "dev");
}

bool IsPipe(const CString& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISFIFO(status.st_mode);
}

}  // namespace

namespace os {

ChannelState ByteChannel::Open(const CString& path) {
    Close();
    constexpr int flags = O_WRONLY | O_APPEND | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    descriptor_ = ::open(path.c_str(), flags);
    if (descriptor_ < 0 && errno == ENOENT) {
        if (!IsInDeviceFolder(path)) {
            // O_EXCL: a link that leads nowhere could lead to /dev.
            descriptor_ = ::open(path.c_str(), flags | O_CREAT | O_EXCL, 0666);
        } else {
            errno = ENOENT;
        }
    }
    if (descriptor_ >= 0) {
        return ChannelState::done;
    }
    return errno == ENXIO && IsPipe(path) ? ChannelState::wait : ChannelState::failed;
}

ChannelState ByteChannel::Write(const void* data, std::size_t length, std::size_t& written) {
    const PipeSignalShield shield;
    ssize_t count = -1;
    do {
        count = ::write(descriptor_, data, length);
    } while (count < 0 && errno == EINTR);
    if (count > 0) {
        written += static_cast<std::size_t>(count);
        return ChannelState::done;
    }
    return count == 0 || errno == EAGAIN ? ChannelState::wait : ChannelState::failed;
}

void ByteChannel::Close() {
    const int descriptor = std::exchange(descriptor_, -1);
    if (descriptor >= 0) {
        ::close(descriptor);
    }
}

}  // namespace os
