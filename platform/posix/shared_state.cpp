#include "platform/shared_state.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>

namespace {

constexpr std::uint8_t kLastPlace = 250;

bool IsUsableFolder(const std::string& folder) {
    struct stat status {};
    return !folder.empty() && ::stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           ::access(folder.c_str(), W_OK | X_OK) == 0;
}

std::string RuntimeFolder() {
    const char* configured = std::getenv("XDG_RUNTIME_DIR");
    if (configured != nullptr && IsUsableFolder(configured)) {
        return configured;
    }
    const std::string byUser = "/run/user/" + std::to_string(::getuid());
    return IsUsableFolder(byUser) ? byUser : "/tmp";
}

// The lock belongs to the open file, not to the process: closing another descriptor of the same
// file does not drop it, and two objects in one process exclude each other.
int ControlByte(int descriptor, int command, short type, off_t place, struct flock* answer) {
    struct flock request {};
    request.l_type = type;
    request.l_whence = SEEK_SET;
    request.l_start = place;
    request.l_len = 1;
    int result = -1;
    do {
        result = ::fcntl(descriptor, command, &request);
    } while (result != 0 && errno == EINTR);
    if (answer != nullptr) {
        *answer = request;
    }
    return result;
}

bool LockByte(int descriptor, off_t place) {
    return ControlByte(descriptor, F_OFD_SETLKW, F_WRLCK, place, nullptr) == 0;
}

bool TryLockByte(int descriptor, off_t place) {
    return ControlByte(descriptor, F_OFD_SETLK, F_WRLCK, place, nullptr) == 0;
}

void UnlockByte(int descriptor, off_t place) {
    ControlByte(descriptor, F_OFD_SETLK, F_UNLCK, place, nullptr);
}

bool IsByteLockedElsewhere(int descriptor, off_t place) {
    struct flock answer {};
    return ControlByte(descriptor, F_OFD_GETLK, F_WRLCK, place, &answer) == 0 &&
           answer.l_type != F_UNLCK;
}

std::uint8_t ReadRaiser(int descriptor) {
    std::uint8_t place = 0;
    return ::pread(descriptor, &place, 1, 0) == 1 ? place : std::uint8_t{0};
}

}  // namespace

namespace os {

int OpenRuntimeFile(const CString& name) {
    const std::string path = RuntimeFolder() + "/" + name + "-" + std::to_string(::getuid());
    const int descriptor =
        ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    struct stat status {};
    if (descriptor >= 0 && (::fstat(descriptor, &status) != 0 || status.st_uid != ::getuid() ||
                            !S_ISREG(status.st_mode))) {
        ::close(descriptor);
        return -1;
    }
    return descriptor;
}

SharedLock::SharedLock(const CString& name) : descriptor_(OpenRuntimeFile(name)) {}

SharedLock::~SharedLock() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

bool SharedLock::Acquire() {
    return LockByte(descriptor_, 0);
}

void SharedLock::Release() {
    UnlockByte(descriptor_, 0);
}

bool SharedLock::IsHeldElsewhere() const {
    return IsByteLockedElsewhere(descriptor_, 0);
}

SharedFlag::SharedFlag(const CString& name) : descriptor_(OpenRuntimeFile(name)) {
    if (descriptor_ < 0 || !LockByte(descriptor_, 0)) {
        return;
    }
    if (!ClaimPlace()) {
        place_ = 0;
    }
    UnlockByte(descriptor_, 0);
}

SharedFlag::~SharedFlag() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

bool SharedFlag::ClaimPlace() {
    for (place_ = 1; place_ <= kLastPlace; ++place_) {
        if (TryLockByte(descriptor_, place_)) {
            // What a dead process of this place had raised must not come alive again. The byte is
            // written in any case, so that a full disk shows here and not in the middle of use.
            const std::uint8_t raiser = ReadRaiser(descriptor_);
            return WriteRaiser(raiser == place_ ? std::uint8_t{0} : raiser);
        }
    }
    return false;
}

bool SharedFlag::WriteRaiser(std::uint8_t place) {
    return ::pwrite(descriptor_, &place, 1, 0) == 1;
}

bool SharedFlag::Change(bool raised) {
    if (place_ == 0 || !LockByte(descriptor_, 0)) {
        return false;
    }
    const bool written = WriteRaiser(raised ? place_ : std::uint8_t{0});
    UnlockByte(descriptor_, 0);
    return written;
}

bool SharedFlag::IsRaised() const {
    const std::uint8_t raiser = ReadRaiser(descriptor_);
    return raiser != 0 && (raiser == place_ || IsByteLockedElsewhere(descriptor_, raiser));
}

}  // namespace os
