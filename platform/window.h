#pragma once

#include <memory>

#include "platform/gdi.h"
#include "platform/message_map.h"
#include "platform/messages.h"
#include "platform/types.h"
#include "sequence/api.h"

class CDataExchange;

/// Name and ancestry of a window class, one static record a class.
struct CRuntimeClass {
    const char* m_lpszClassName;
    const CRuntimeClass* m_pBaseClass;
};

/// A window. The object and the window it stands for have lives of their own: m_hWnd is null
/// before the window is made and again after it is destroyed, and every operation on an object
/// without a window does nothing and gives 0, false or an empty value. Main thread only.
///
/// Every control of a dialog has an object from the start, a plain one of its kind's class, which
/// GetDlgItem gives; DDX_Control puts the owner's object in its place.
class ORBIX_API CWnd {
public:
    static const CRuntimeClass classCWnd;

    CWnd() = default;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    virtual const CRuntimeClass* GetRuntimeClass() const;  // 1
    virtual ~CWnd();                                       // 2
    virtual const MessageMap* GetMessageMap() const;       // 3
    virtual void DoDataExchange(CDataExchange* exchange);  // 4
    /// Sees keys and mouse messages first, from the window they are for up to its dialogs; TRUE
    /// means taken.
    virtual BOOL PreTranslateMessage(MSG* message);  // 5
    /// Takes every message: looks it up in the map, else runs the default procedure.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);  // 6

    /// Whether the class is `wanted` or derives from it.
    bool IsKindOf(const CRuntimeClass& wanted) const;

    /// Sends through WindowProc, at once, and gives the answer.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    /// The default procedure for the message that is being handled just now.
    LRESULT Default();

    CWnd* GetDlgItem(int id) const;
    /// The control as its class, null when there is none or it is of another class.
    template <typename Control>
    Control* GetDlgItemAs(int id) const {
        return dynamic_cast<Control*>(GetDlgItem(id));
    }
    int GetDlgCtrlID() const;
    CWnd* GetParent() const;

    void SetWindowText(const CString& text);
    CString GetWindowText() const;
    void EnableWindow(bool enable);
    bool IsWindowEnabled() const;
    void ShowWindow(int command);
    bool IsWindowVisible() const;
    /// Brings the window to the front and gives it the keyboard, as far as the desktop lets it.
    void SetForegroundWindow();
    void SetFocus();
    static CWnd* GetFocus();
    void SetCapture();
    static void ReleaseCapture();
    static CWnd* GetCapture();

    /// (0, 0, width, height).
    RECT GetClientRect() const;
    /// On the screen.
    RECT GetWindowRect() const;
    void ScreenToClient(RECT& rect) const;
    void MoveWindow(const RECT& rect);
    void Invalidate();
    /// Paints at once what is invalid.
    void UpdateWindow();

    /// A context on the window's client area, to be given back with ReleaseDC; null without a
    /// window.
    CDC* GetDC();
    void ReleaseDC(CDC* dc);

    /// Sends WM_TIMER, `id` in wParam, every so often until it is killed; set again it begins anew.
    void SetTimer(UINT id, DWORD milliseconds);
    void KillTimer(UINT id);

    /// Moves data between the controls and the members through DoDataExchange: TRUE from the
    /// controls, FALSE to them. FALSE comes back when an entry is bad; the user has been told and
    /// the focus is on it. While it runs, the controls' notifications are held back.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    HWND m_hWnd = nullptr;
};

/// A context for the WM_PAINT that is being handled, clipped to what is invalid.
class ORBIX_API CPaintDC {
public:
    explicit CPaintDC(CWnd* window);
    ~CPaintDC();
    CPaintDC(const CPaintDC&) = delete;
    CPaintDC& operator=(const CPaintDC&) = delete;

    operator CDC*() { return dc_; }  // NOLINT: it stands for the context it holds.
    CDC* operator->() { return dc_; }

private:
    CWnd* window_;
    CDC* dc_;
};

/// A context that is given back at the end of the scope.
class CClientDC {
public:
    explicit CClientDC(CWnd* window) : window_(window), dc_(window->GetDC()) {}
    ~CClientDC() { window_->ReleaseDC(dc_); }
    CClientDC(const CClientDC&) = delete;
    CClientDC& operator=(const CClientDC&) = delete;

    operator CDC*() { return dc_; }  // NOLINT: it stands for the context it holds.

private:
    CWnd* window_;
    CDC* dc_;
};

/// The desktop's colour for COLOR_BTNFACE; black for any other number.
COLORREF GetSysColor(int index);
