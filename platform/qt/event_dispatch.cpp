#include "platform/qt/event_dispatch.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimerEvent>
#include <QWidget>
#include <QtMath>

#include "platform/native.h"
#include "platform/qt/convert.h"
#include "platform/qt/key_state.h"
#include "platform/qt/peer.h"
#include "platform/qt/surface.h"

namespace toolkit {

namespace {

bool SendTranslated(NativeWindow& window, UINT message, WPARAM wParam, LPARAM lParam, QEvent& event,
                    EventSink& sink, QPoint screen) {
    MSG translated{&window, message, wParam, lParam, {screen.x(), screen.y()}};
    if (dispatch::PreTranslate(translated)) {
        return false;
    }
    if (window.widget != nullptr) {
        SendWithEvent(window, message, wParam, lParam, event, sink);
    }
    return window.widget != nullptr;
}

bool DispatchKey(NativeWindow& window, QKeyEvent& event, EventSink& sink) {
    NoteKey(event);
    const auto key = static_cast<WPARAM>(VirtualKey(event.key()));
    const LPARAM repeat = event.isAutoRepeat() ? 0x40000001 : 1;
    if (event.type() == QEvent::KeyRelease) {
        if (event.isAutoRepeat()) {
            sink.RunDefault(event);
        } else {
            SendTranslated(window, WM_KEYUP, key, repeat, event, sink, QCursor::pos());
        }
    } else if (SendTranslated(window, WM_KEYDOWN, key, repeat, event, sink, QCursor::pos())) {
        if (const unsigned character = TypedCharacter(event)) {
            SendTranslated(window, WM_CHAR, character, repeat, event, sink, QCursor::pos());
        }
    }
    event.accept();
    return true;
}

// An input method delivers finished text without keys; it is typed character by character, so
// that a control that looks at WM_CHAR sees it.
bool DispatchInputMethod(NativeWindow& window, QInputMethodEvent& event, EventSink& sink) {
    const QString text = event.commitString();
    if (text.isEmpty() || event.replacementLength() != 0) {
        return sink.RunDefault(event);
    }
    QInputMethodEvent clearPreedit;
    sink.RunDefault(clearPreedit);
    for (const char32_t character : text.toUcs4()) {
        QKeyEvent typed(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&character, 1));
        if (window.widget == nullptr ||
            !SendTranslated(window, WM_CHAR, character, 1, typed, sink, QCursor::pos())) {
            break;
        }
    }
    event.accept();
    return true;
}

UINT MouseMessage(const QMouseEvent& event) {
    if (event.type() == QEvent::MouseMove) {
        return WM_MOUSEMOVE;
    }
    const bool down = event.type() != QEvent::MouseButtonRelease;
    switch (event.button()) {
        case Qt::LeftButton:
            return down ? WM_LBUTTONDOWN : WM_LBUTTONUP;
        case Qt::RightButton:
            return down ? WM_RBUTTONDOWN : WM_RBUTTONUP;
        case Qt::MiddleButton:
            return down ? WM_MBUTTONDOWN : WM_MBUTTONUP;
        default:
            return 0;
    }
}

bool DispatchMouse(NativeWindow& window, QMouseEvent& event, QWidget& widget, EventSink& sink) {
    NoteMouse(event);
    const UINT message = MouseMessage(event);
    if (message == 0) {
        return sink.RunDefault(event);
    }
    // What a disabled control leaves alone the toolkit offers to the dialog under it.
    if (!widget.isEnabled()) {
        event.ignore();
        return false;
    }
    NativeWindow* captured = CapturedWindow();
    NativeWindow& target = captured != nullptr ? *captured : window;
    const QPointF place = target.widget->mapFromGlobal(event.globalPosition());
    const LPARAM packed = PackPoint({qFloor(place.x()), qFloor(place.y())});
    const QPoint screen = event.globalPosition().toPoint();
    if (&target == &window) {
        SendTranslated(target, message, 0, packed, event, sink, screen);
    } else {
        MSG translated{&target, message, 0, packed, {screen.x(), screen.y()}};
        if (!dispatch::PreTranslate(translated)) {
            dispatch::Send(&target, message, 0, packed);
        }
    }
    event.accept();
    return true;
}

bool DispatchFocus(NativeWindow& window, QFocusEvent& event, EventSink& sink) {
    // A menu or a drop-down list borrows the keys, the focus stays where it was.
    if (event.reason() == Qt::PopupFocusReason) {
        return sink.RunDefault(event);
    }
    SendWithEvent(window, event.gotFocus() ? WM_SETFOCUS : WM_KILLFOCUS, 0, 0, event, sink);
    return true;
}

bool DispatchTimer(NativeWindow& window, QTimerEvent& event, EventSink& sink) {
    const auto timer = window.timers.find(event.timerId());
    if (timer == window.timers.end()) {
        return sink.RunDefault(event);
    }
    dispatch::Send(&window, WM_TIMER, timer->second, 0);
    return true;
}

void LoseCapture(const NativeWindow& window) {
    NativeWindow* captured = CapturedWindow();
    if (captured != nullptr && (captured == &window || &RootOf(*captured) == &window)) {
        SetCapturedWindow(nullptr);
        dispatch::Send(captured, WM_CAPTURECHANGED, 0, 0);
    }
}

bool Translate(NativeWindow& window, QEvent& event, QWidget& widget, EventSink& sink) {
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return DispatchKey(window, static_cast<QKeyEvent&>(event), sink);
        case QEvent::InputMethod:
            return DispatchInputMethod(window, static_cast<QInputMethodEvent&>(event), sink);
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseMove:
            return DispatchMouse(window, static_cast<QMouseEvent&>(event), widget, sink);
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            return DispatchFocus(window, static_cast<QFocusEvent&>(event), sink);
        case QEvent::Timer:
            return DispatchTimer(window, static_cast<QTimerEvent&>(event), sink);
        case QEvent::Close:
            dispatch::Send(&window, WM_CLOSE, 0, 0);
            event.ignore();
            return true;
        case QEvent::WindowDeactivate:
        case QEvent::Hide:
            LoseCapture(window);
            return sink.RunDefault(event);
        case QEvent::PaletteChange:
            InvalidateAll(window);
            return sink.RunDefault(event);
        default:
            return sink.RunDefault(event);
    }
}

}  // namespace

bool Dispatch(NativeWindow& window, QEvent& event, QWidget& widget, EventSink& sink) {
    const DispatchScope scope;
    try {
        return Translate(window, event, widget, sink);
    } catch (...) {
        ReportException();
        event.accept();
        return true;
    }
}

LRESULT SendWithEvent(NativeWindow& window, UINT message, WPARAM wParam, LPARAM lParam,
                      QEvent& event, EventSink& sink) {
    struct Entry {
        NativeWindow& window;
        ~Entry() { window.events.pop_back(); }
    };
    window.events.push_back({message, &event, &sink, false});
    const Entry entry{window};
    return dispatch::Send(&window, message, wParam, lParam);
}

bool GiveFocusAway(NativeWindow* window, bool forward) {
    if (window == nullptr) {
        return false;
    }
    native::FocusNext(&RootOf(*window), !forward);
    return true;
}

}  // namespace toolkit

namespace native {

LRESULT DefaultProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window == nullptr || window->peer == nullptr) {
        return 0;
    }
    if (!window->events.empty() && window->events.back().message == message) {
        toolkit::CurrentEvent& current = window->events.back();
        // The key that types is the widget's when its character comes.
        const bool later = message == WM_KEYDOWN &&
                           toolkit::TypedCharacter(static_cast<QKeyEvent&>(*current.event)) != 0;
        if (!current.done && !later) {
            current.done = true;
            const toolkit::CurrentEvent event = current;
            event.sink->RunDefault(*event.event);
        }
        return 0;
    }
    return window->peer->DefaultMessage(message, wParam, lParam);
}

}  // namespace native
