#pragma once

#include <vector>

#include "platform/types.h"

/// Numbers of messages, notifications, keys and styles, with their widespread values.

inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_KILLFOCUS = 0x0008;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_CTLCOLOR = 0x0019;
inline constexpr UINT WM_NOTIFY = 0x004E;
inline constexpr UINT EM_LIMITTEXT = 0x00C5;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_CHAR = 0x0102;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_TIMER = 0x0113;
inline constexpr UINT WM_HSCROLL = 0x0114;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_MBUTTONDOWN = 0x0207;
inline constexpr UINT WM_MBUTTONUP = 0x0208;
inline constexpr UINT WM_CAPTURECHANGED = 0x0215;
/// wParam is the HDROP: a `const std::vector<CString>*`, which lives as long as the message.
inline constexpr UINT WM_DROPFILES = 0x0233;
inline constexpr UINT WM_CUT = 0x0300;
inline constexpr UINT WM_COPY = 0x0301;
inline constexpr UINT WM_PASTE = 0x0302;
inline constexpr UINT WM_UNDO = 0x0304;
inline constexpr UINT WM_USER = 0x0400;
/// To a file dialog's window: its folder as text into the buffer at lParam of wParam bytes, cut to
/// fit; gives the bytes of the whole folder with its end character.
inline constexpr UINT CDM_GETFOLDERPATH = WM_USER + 102;

/// Notification codes in WM_COMMAND. An accelerator's command carries code 0, as a click does.
inline constexpr UINT BN_CLICKED = 0;
inline constexpr UINT CBN_SELCHANGE = 1;
inline constexpr UINT EN_CHANGE = 0x0300;

/// Notification codes in WM_NOTIFY.
inline constexpr int NM_DBLCLK = -3;
inline constexpr int NM_RCLICK = -5;
inline constexpr int NM_CUSTOMDRAW = -12;
inline constexpr int LVN_ITEMCHANGED = -101;
inline constexpr int TCN_SELCHANGE = -551;
inline constexpr int CDN_FILEOK = -606;
inline constexpr int CDN_TYPECHANGE = -607;
inline constexpr int UDN_DELTAPOS = -722;

/// Custom draw: stages and answers.
inline constexpr DWORD CDDS_PREPAINT = 0x00001;
inline constexpr DWORD CDDS_ITEMPREPAINT = 0x10001;
inline constexpr DWORD CDDS_SUBITEM = 0x20000;
inline constexpr LRESULT CDRF_DODEFAULT = 0x00;
inline constexpr LRESULT CDRF_NEWFONT = 0x02;
inline constexpr LRESULT CDRF_NOTIFYITEMDRAW = 0x20;
inline constexpr LRESULT CDRF_NOTIFYSUBITEMDRAW = 0x20;

/// Keys and buttons. Letters and digits are their upper-case character codes.
inline constexpr int VK_LBUTTON = 0x01;
inline constexpr int VK_BACK = 0x08;
inline constexpr int VK_TAB = 0x09;
inline constexpr int VK_RETURN = 0x0D;
inline constexpr int VK_SHIFT = 0x10;
inline constexpr int VK_CONTROL = 0x11;
inline constexpr int VK_MENU = 0x12;
inline constexpr int VK_ESCAPE = 0x1B;
inline constexpr int VK_SPACE = 0x20;
inline constexpr int VK_PRIOR = 0x21;
inline constexpr int VK_NEXT = 0x22;
inline constexpr int VK_END = 0x23;
inline constexpr int VK_HOME = 0x24;
inline constexpr int VK_LEFT = 0x25;
inline constexpr int VK_UP = 0x26;
inline constexpr int VK_RIGHT = 0x27;
inline constexpr int VK_DOWN = 0x28;
inline constexpr int VK_DELETE = 0x2E;

/// List control: item states and search flags, styles.
inline constexpr UINT LVIS_FOCUSED = 0x01;
inline constexpr UINT LVIS_SELECTED = 0x02;
inline constexpr UINT LVNI_FOCUSED = 0x01;
inline constexpr UINT LVNI_SELECTED = 0x02;
inline constexpr DWORD LVS_EX_GRIDLINES = 0x01;
inline constexpr DWORD LVS_EX_HEADERDRAGDROP = 0x10;
inline constexpr DWORD LVS_EX_FULLROWSELECT = 0x20;

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOW = 5;

/// One message on its way to a window; `pt` is the cursor on the screen.
struct MSG {
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    POINT pt;
};

/// Head of a WM_NOTIFY record; lParam points at it, wParam is the control number.
struct NMHDR {
    HWND hwndFrom = nullptr;
    UINT idFrom = 0;
    int code = 0;
};

/// LVN_ITEMCHANGED, NM_RCLICK and NM_DBLCLK of a list: the row, -1 for none.
struct NMLISTVIEW {
    NMHDR hdr;
    int iItem = -1;
    UINT uOldState = 0;
    UINT uNewState = 0;
};

/// NM_CUSTOMDRAW of a list. The handler may change the two colours and answer CDRF_NEWFONT.
struct NMLVCUSTOMDRAW {
    NMHDR hdr;
    DWORD dwDrawStage = 0;
    int iItem = -1;
    int iSubItem = 0;
    COLORREF clrText = 0;
    COLORREF clrTextBk = 0;
};

/// UDN_DELTAPOS of a spin control, before it steps; the answer 1 stops the step.
struct NMUPDOWN {
    NMHDR hdr;
    int iPos = 0;
    int iDelta = 0;
};

/// CDN_FILEOK and CDN_TYPECHANGE of a file dialog, to the window inside it. The answer 1 to
/// CDN_FILEOK keeps the dialog open.
struct OFNOTIFY {
    NMHDR hdr;
    DWORD nFilterIndex = 0;  ///< The file type chosen, counted from 1.
};

/// The files that were dropped on a window, as paths; an address for what is no file here.
using HDROP = const std::vector<CString>*;

/// The mouse position as mouse messages carry it in lParam.
constexpr LPARAM PackPoint(POINT point) {
    return static_cast<LPARAM>(
        (static_cast<std::uintptr_t>(static_cast<std::uint16_t>(point.y)) << 16U) |
        static_cast<std::uint16_t>(point.x));
}
constexpr POINT UnpackPoint(LPARAM lParam) {
    const auto bits = static_cast<std::uintptr_t>(lParam);
    return {static_cast<std::int16_t>(bits & 0xFFFFU),
            static_cast<std::int16_t>((bits >> 16U) & 0xFFFFU)};
}
