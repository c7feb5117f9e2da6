#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/types.h"
#include "sequence/api.h"

/// One line of a pop-up menu.
struct MenuItem {
    UINT command = 0;
    CString text;
};

/// What the library asks of its surroundings, replaceable at run time: the toolkit fills in what
/// is empty when it starts, the command line and the tests put their own in place. A hook that is
/// asked while it is empty raises std::logic_error, because nothing may wait on a box that nobody
/// sees. Main thread only, but for tickCount, sleep and waitCursor, which are set before threads
/// start.
struct PlatformHooks {
    /// Shows a text with buttons and icon by `style` (MB_ values), gives the ID of the answer.
    std::function<int(const CString& text, UINT style)> messageBox;
    /// Shows a menu at the cursor, gives the chosen command or 0.
    std::function<UINT(HWND owner, const std::vector<MenuItem>& items)> popupMenu;
    /// The clipboard's text, or nothing when it holds none or can't be opened.
    std::function<std::optional<CString>()> clipboardText;
    /// State of a key or mouse button by VK_ number; the high bit (negative) means down.
    std::function<short(int key)> keyState;
    /// Called with true when a thread's first wait cursor begins and with false when its last one
    /// ends, on that thread. The toolkit's own does nothing on other threads than its own.
    std::function<void(bool)> waitCursor;
    /// Milliseconds since some moment, wrapping at 32 bits. Set from the start.
    std::function<DWORD()> tickCount;
    /// Lets the calling thread rest. Set from the start.
    std::function<void(DWORD milliseconds)> sleep;
    /// Free bytes of a drive by its letter, -1.0 on failure. Set from the start.
    std::function<double(char letter)> diskFreeBytes;
};

/// The one record of the process.
ORBIX_API PlatformHooks& Hooks();

/// Puts the hooks back, on leaving the scope, as they were when it was entered.
class HooksScope {
public:
    HooksScope() : saved_(Hooks()) {}
    ~HooksScope() { Hooks() = saved_; }
    HooksScope(const HooksScope&) = delete;
    HooksScope& operator=(const HooksScope&) = delete;

private:
    PlatformHooks saved_;
};

inline constexpr UINT MB_OK = 0x00;
inline constexpr UINT MB_OKCANCEL = 0x01;
inline constexpr UINT MB_YESNO = 0x04;
inline constexpr UINT MB_TYPEMASK = 0x0F;
inline constexpr UINT MB_ICONERROR = 0x10;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONWARNING = 0x30;
inline constexpr UINT MB_ICONMASK = 0xF0;
inline constexpr UINT MB_DEFBUTTON2 = 0x100;

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

/// Shows `text` through the messageBox hook and gives the ID of the answer.
ORBIX_API int AfxMessageBox(const CString& text, UINT style = MB_OK);

/// The wait cursor while an object of this class lives; nests. Any thread.
class ORBIX_API CWaitCursor {
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
};

/// Shows a menu at the cursor and gives the chosen command, 0 for none.
UINT TrackPopupMenu(HWND owner, const std::vector<MenuItem>& items);
// Each of these asks the hook of that meaning.
std::optional<CString> GetClipboardText();
short GetKeyState(int key);
ORBIX_API DWORD GetTickCount();
ORBIX_API void Sleep(DWORD milliseconds);
