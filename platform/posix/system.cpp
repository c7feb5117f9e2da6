#include "platform/system.h"

#include <sys/statvfs.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <string>
#include <thread>

namespace os {

DWORD TickCount() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<DWORD>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

void SleepMilliseconds(DWORD milliseconds) {
    if (milliseconds == 0) {
        std::this_thread::yield();
        return;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

double DiskFreeBytes(char /*letter*/) {
    struct statvfs status {};
    if (statvfs(".", &status) != 0) {
        return -1.0;
    }
    return static_cast<double>(status.f_bavail) * static_cast<double>(status.f_frsize);
}

// Not strerror, which speaks the user's language once a toolkit has set the locale; all other texts
// are English.
CString LastErrorText() {
    const char* words = ::strerrordesc_np(errno);
    return words == nullptr ? "error " + std::to_string(errno) : CString(words);
}

}  // namespace os
