#include "platform/named_guard.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace {

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

}  // namespace

CNamedGuard::CNamedGuard(const CString& name) {
    // The user's number keeps two users apart who share /tmp.
    const std::string path =
        RuntimeFolder() + "/" + name + "-" + std::to_string(::getuid()) + ".lock";
    const int descriptor =
        ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (descriptor < 0) {
        return;
    }
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        ::close(descriptor);
        return;
    }
    descriptor_ = descriptor;
}

CNamedGuard::~CNamedGuard() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}
