#include "platform/hooks.h"

#include <stdexcept>

#include "platform/system.h"

namespace {

// Each thread counts its own: a transfer may wait on a worker, which must not put out the cursor
// of the user interface.
thread_local int waitCursorDepth = 0;

template <typename Hook>
const Hook& Installed(const Hook& hook, const char* name) {
    if (!hook) {
        throw std::logic_error(std::string("no hook is installed for: ") + name);
    }
    return hook;
}

PlatformHooks DefaultHooks() {
    PlatformHooks hooks;
    hooks.tickCount = os::TickCount;
    hooks.sleep = os::SleepMilliseconds;
    hooks.diskFreeBytes = os::DiskFreeBytes;
    return hooks;
}

}  // namespace

PlatformHooks& Hooks() {
    static PlatformHooks hooks = DefaultHooks();
    return hooks;
}

int AfxMessageBox(const CString& text, UINT style) {
    return Installed(Hooks().messageBox, "messageBox")(text, style);
}

// A missing wait cursor hides nothing from the user, so it is the one hook that may stay empty.
CWaitCursor::CWaitCursor() {
    if (++waitCursorDepth == 1 && Hooks().waitCursor) {
        Hooks().waitCursor(true);
    }
}

CWaitCursor::~CWaitCursor() {
    if (--waitCursorDepth == 0 && Hooks().waitCursor) {
        Hooks().waitCursor(false);
    }
}

UINT TrackPopupMenu(HWND owner, const std::vector<MenuItem>& items) {
    return Installed(Hooks().popupMenu, "popupMenu")(owner, items);
}

std::optional<CString> GetClipboardText() {
    return Installed(Hooks().clipboardText, "clipboardText")();
}

short GetKeyState(int key) {
    return Installed(Hooks().keyState, "keyState")(key);
}

DWORD GetTickCount() {
    return Installed(Hooks().tickCount, "tickCount")();
}

void Sleep(DWORD milliseconds) {
    Installed(Hooks().sleep, "sleep")(milliseconds);
}
