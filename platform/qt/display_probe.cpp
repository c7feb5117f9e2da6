#include "platform/qt/display_probe.h"

#include <dlfcn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDir>
#include <QLibraryInfo>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
#include <string_view>

namespace toolkit {

namespace {

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

// The connection library is asked itself, so that refused access counts as well; it is there when
// the toolkit's own plug-in is.
bool XServerReachable() {
    if (Environment("DISPLAY").empty()) {
        return false;
    }
    void* library = dlopen("libxcb.so.1", RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr) {
        return false;
    }
    using Connect = void* (*)(const char*, int*);
    using HasError = int (*)(void*);
    using Disconnect = void (*)(void*);
    const auto connect = reinterpret_cast<Connect>(dlsym(library, "xcb_connect"));
    const auto hasError = reinterpret_cast<HasError>(dlsym(library, "xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<Disconnect>(dlsym(library, "xcb_disconnect"));
    bool reachable = false;
    if (connect != nullptr && hasError != nullptr && disconnect != nullptr) {
        void* connection = connect(nullptr, nullptr);
        reachable = hasError(connection) == 0;
        disconnect(connection);
    }
    dlclose(library);
    return reachable;
}

bool SocketAnswers(const std::string& path) {
    sockaddr_un address{};
    if (path.size() >= sizeof(address.sun_path)) {
        return false;
    }
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    const int handle = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (handle < 0) {
        return false;
    }
    const bool answers =
        ::connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    close(handle);
    return answers;
}

bool WaylandReachable() {
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) +
                       QStringLiteral("/platforms"));
    if (plugins.entryList({QStringLiteral("libqwayland*")}).isEmpty()) {
        return false;
    }
    std::string name = Environment("WAYLAND_DISPLAY");
    if (name.empty()) {
        name = "wayland-0";
    }
    return SocketAnswers(name.front() == '/' ? name : Environment("XDG_RUNTIME_DIR") + '/' + name);
}

// A platform's name, with arguments behind a colon.
bool IsReachable(std::string_view platform) {
    const std::string_view name = platform.substr(0, platform.find(':'));
    if (name == "xcb") {
        return XServerReachable();
    }
    if (name.starts_with("wayland")) {
        return WaylandReachable();
    }
    // What else can be asked for (offscreen, a frame buffer) needs no server.
    return !name.empty();
}

}  // namespace

// The toolkit takes the first of several platforms that works.
bool DisplayReachable() {
    const std::string wanted = Environment("QT_QPA_PLATFORM");
    if (wanted.empty()) {
        // Else it tries X alone, though a Wayland session of the same user may run on the machine.
        const bool isWayland =
            !Environment("WAYLAND_DISPLAY").empty() || Environment("XDG_SESSION_TYPE") == "wayland";
        return XServerReachable() || (isWayland && WaylandReachable());
    }
    std::istringstream platforms(wanted);
    for (std::string platform; std::getline(platforms, platform, ';');) {
        if (IsReachable(platform)) {
            return true;
        }
    }
    return false;
}

}  // namespace toolkit
