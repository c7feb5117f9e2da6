#pragma once

#include <span>

#include "platform/messages.h"

class CWnd;
class CDC;

/// A message map is a static table from messages to member functions of one class, chained to
/// its base class's table. It is plain data; the thunk in an entry is made by the compiler from
/// the member function's own type, so a handler of the wrong shape does not compile.
///
///     const MessageMap* CMyDialog::GetMessageMap() const {
///         static constexpr MessageEntry entries[] = {
///             OnCommand<&CMyDialog::OnBnClickedBtnAdd>(4031),
///             OnNotify<&CMyDialog::OnLvnItemChanged>(4020, LVN_ITEMCHANGED),
///             OnMessage<&CMyDialog::OnPaint>(WM_PAINT),
///         };
///         static const MessageMap map{CDialog::GetMessageMap(), entries};  // base first
///         return &map;
///     }

/// One message being handled. A thunk writes `result`.
struct MessageCall {
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    LRESULT result = 0;
};

using MessageThunk = void (*)(CWnd& target, MessageCall& call);

struct MessageEntry {
    UINT message;
    UINT code;  ///< Notification code of WM_COMMAND and WM_NOTIFY, else 0.
    UINT firstId;
    UINT lastId;
    bool reflected;  ///< A control's own notification, before its parent is asked.
    MessageThunk thunk;
};

struct MessageMap {
    const MessageMap* base = nullptr;
    std::span<const MessageEntry> entries;
};

/// The control whose colours WM_CTLCOLOR asks for; wParam points at it. `dc` takes the colours.
struct CtlColorQuery {
    CDC* dc = nullptr;
    CWnd* control = nullptr;
};

namespace message_map {

template <auto Handler>
struct Thunk;

// void Handler(): commands, WM_PAINT, WM_CLOSE.
template <typename T, void (T::*Handler)()>
struct Thunk<Handler> {
    static void Call(CWnd& target, MessageCall&) { (static_cast<T&>(target).*Handler)(); }
};

// void Handler(NMHDR*, LRESULT*): notifications.
template <typename T, void (T::*Handler)(NMHDR*, LRESULT*)>
struct Thunk<Handler> {
    static void Call(CWnd& target, MessageCall& call) {
        (static_cast<T&>(target).*Handler)(reinterpret_cast<NMHDR*>(call.lParam), &call.result);
    }
};

// LRESULT Handler(WPARAM, LPARAM): private messages, keys, timers, scrolling.
template <typename T, LRESULT (T::*Handler)(WPARAM, LPARAM)>
struct Thunk<Handler> {
    static void Call(CWnd& target, MessageCall& call) {
        call.result = (static_cast<T&>(target).*Handler)(call.wParam, call.lParam);
    }
};

// void Handler(POINT): mouse messages, client coordinates.
template <typename T, void (T::*Handler)(POINT)>
struct Thunk<Handler> {
    static void Call(CWnd& target, MessageCall& call) {
        (static_cast<T&>(target).*Handler)(UnpackPoint(call.lParam));
    }
};

// void Handler(CDC*, CWnd*): colours of a control.
template <typename T, void (T::*Handler)(CDC*, CWnd*)>
struct Thunk<Handler> {
    static void Call(CWnd& target, MessageCall& call) {
        const auto& query = *reinterpret_cast<const CtlColorQuery*>(call.wParam);
        (static_cast<T&>(target).*Handler)(query.dc, query.control);
    }
};

// void Handler(HDROP): files dropped.
template <typename T, void (T::*Handler)(HDROP)>
struct Thunk<Handler> {
    static void Call(CWnd& target, MessageCall& call) {
        (static_cast<T&>(target).*Handler)(reinterpret_cast<HDROP>(call.wParam));
    }
};

}  // namespace message_map

/// A notification of control `id`, or the command `id` of an accelerator or menu.
template <auto Handler>
constexpr MessageEntry OnCommand(UINT id, UINT code = BN_CLICKED) {
    return {WM_COMMAND, code, id, id, false, &message_map::Thunk<Handler>::Call};
}

template <auto Handler>
constexpr MessageEntry OnNotify(UINT id, int code) {
    return {WM_NOTIFY, static_cast<UINT>(code), id, id, false, &message_map::Thunk<Handler>::Call};
}

/// A control's own WM_NOTIFY, seen in the control's map before the parent's.
template <auto Handler>
constexpr MessageEntry OnReflectedNotify(int code) {
    return {WM_NOTIFY, static_cast<UINT>(code),           0, 0xFFFF,
            true,      &message_map::Thunk<Handler>::Call};
}

template <auto Handler>
constexpr MessageEntry OnMessage(UINT message) {
    return {message, 0, 0, 0xFFFF, false, &message_map::Thunk<Handler>::Call};
}
