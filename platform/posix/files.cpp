#include "platform/files.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "platform/system.h"

namespace {

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }
    bool Close() {
        const int number = std::exchange(number_, -1);
        return number < 0 || ::close(number) == 0;
    }

private:
    int number_;
};

bool Fail(CString* reason, const CString& words = os::LastErrorText()) {
    if (reason != nullptr) {
        *reason = words;
    }
    return false;
}

std::size_t WriteAll(int descriptor, std::string_view bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(descriptor, bytes.data() + written, bytes.size() - written);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            break;
        }
        written += static_cast<std::size_t>(count);
    }
    return written;
}

// The file that really changes: the end of a chain of links, also when it is not there yet.
std::string ResolveLinks(const CString& path) {
    constexpr int kMostLinks = 40;  // as the system itself
    std::filesystem::path resolved = path;
    std::error_code error;
    for (int link = 0; link < kMostLinks && std::filesystem::is_symlink(resolved, error); ++link) {
        resolved = resolved.parent_path() / std::filesystem::read_symlink(resolved, error);
    }
    return resolved.string();
}

std::optional<mode_t> ModeOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? std::optional(status.st_mode & 07777U)
                                              : std::nullopt;
}

// Makes a file beside `target`, under a name that `made` takes. The name is short whatever the
// target's is: a name of 255 bytes leaves no room to add to. It is made by open, which holds `mode`
// to the user's mask: asking for the mask means to change it, for all threads of the host.
int MakeFileBeside(const std::string& target, mode_t mode, std::string& made) {
    static std::atomic<std::uint32_t> number = os::TickCount();
    const std::filesystem::path folder = std::filesystem::path(target).parent_path();
    int descriptor = -1;
    do {
        char name[16];
        std::snprintf(name, sizeof name, ".orbix-%06x", number++ & 0xFFFFFFU);
        made = (folder / name).string();
        descriptor = ::open(made.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    } while (descriptor < 0 && errno == EEXIST);
    return descriptor;
}

// A rename is on the disk only when its folder is.
void SyncFolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    const Descriptor descriptor(
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.IsOpen()) {
        ::fsync(descriptor.Get());
    }
}

bool WriteAndClose(Descriptor& file, std::string_view bytes, std::optional<mode_t> mode) {
    return WriteAll(file.Get(), bytes) == bytes.size() &&
           (!mode || ::fchmod(file.Get(), *mode) == 0) && ::fsync(file.Get()) == 0 && file.Close();
}

bool ReadToEnd(int descriptor, std::string& bytes) {
    char block[1 << 16];
    for (;;) {
        const ssize_t count = ::read(descriptor, block, sizeof block);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return count == 0;
        }
        if (bytes.size() + static_cast<std::size_t>(count) > kLongestFile) {
            errno = EFBIG;
            return false;
        }
        bytes.append(block, static_cast<std::size_t>(count));
    }
}

}  // namespace

std::optional<std::string> ReadWholeFile(const CString& path, CString* reason) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::string bytes;
    if (!file.IsOpen() || !ReadToEnd(file.Get(), bytes)) {
        Fail(reason);
        return std::nullopt;
    }
    return bytes;
}

bool WriteFileCommitted(const CString& path, std::string_view bytes, CString* reason) {
    const std::string target = ResolveLinks(path);
    // The rename would put a plain file in its place.
    if (KindOfPath(path) == PathKind::other) {
        return Fail(reason, "not a plain file");
    }
    // Renaming over a file asks no leave of the file itself; a read-only file must stay as it is,
    // and so must a link that leads to itself.
    if (::access(target.c_str(), W_OK) != 0 && errno != ENOENT) {
        return Fail(reason);
    }
    const std::optional<mode_t> oldMode = ModeOf(target);
    // What may be secret is not shown to others for a moment.
    const mode_t firstMode = oldMode ? S_IRUSR | S_IWUSR : 0666;
    std::string temporary;
    Descriptor file(MakeFileBeside(target, firstMode, temporary));
    if (!file.IsOpen()) {
        return Fail(reason);
    }
    if (!WriteAndClose(file, bytes, oldMode) || ::rename(temporary.c_str(), target.c_str()) != 0) {
        Fail(reason);
        ::unlink(temporary.c_str());
        return false;
    }
    SyncFolderOf(target);
    return true;
}

WriteOutcome WriteFileInPlace(const CString& path, std::string_view bytes, std::size_t& written) {
    written = 0;
    if (KindOfPath(path) == PathKind::other) {
        return WriteOutcome::notOpened;
    }
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    if (!file.IsOpen()) {
        return WriteOutcome::notOpened;
    }
    written = WriteAll(file.Get(), bytes);
    if (!file.Close()) {
        written = std::min(written, bytes.size() - 1);
    }
    if (written == 0) {
        return WriteOutcome::notOpened;
    }
    return written == bytes.size() ? WriteOutcome::written : WriteOutcome::cutShort;
}

bool HasRoomForFile(const CString& path, std::size_t bytes) {
    rlimit limit{};
    if (::getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur < bytes) {
        return false;
    }
    const std::string folder = std::filesystem::path(path).parent_path().string();
    struct statvfs space {};
    if (::statvfs(path.c_str(), &space) != 0 &&
        ::statvfs(folder.empty() ? "." : folder.c_str(), &space) != 0) {
        return true;
    }
    // File systems without a size of their own, and some over a network, tell nothing but zeros.
    return space.f_blocks == 0 ||
           static_cast<std::uint64_t>(space.f_bavail) * space.f_frsize >= bytes;
}

PathKind KindOfPath(const CString& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status)) {
        return PathKind::none;
    }
    return std::filesystem::is_directory(status)      ? PathKind::folder
           : std::filesystem::is_regular_file(status) ? PathKind::file
                                                      : PathKind::other;
}

std::optional<CString> CurrentFolder() {
    std::error_code error;
    CString folder = std::filesystem::current_path(error).string();
    if (error || folder.size() >= kMaxPath) {
        return std::nullopt;
    }
    return folder;
}

bool SetCurrentFolder(const CString& path) {
    return ::chdir(path.c_str()) == 0;
}

bool DeleteFile(const CString& path) {
    return ::unlink(path.c_str()) == 0;
}

CString LowerExtension(const CString& path) {
    CString extension = std::filesystem::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return extension;
}
