#include <QApplication>
#include <QWidget>

#include "platform/native.h"
#include "platform/qt/peer.h"
#include "platform/qt/window_record.h"

// The operations that all kinds of window share.

namespace {

bool Lives(HWND window) {
    return window != nullptr && window->widget != nullptr;
}

NativeWindow* FindControl(NativeWindow& dialog, int id) {
    for (const auto& child : dialog.children) {
        if (!toolkit::IsDialog(*child) && child->id == id) {
            return child.get();
        }
    }
    return nullptr;
}

}  // namespace

namespace native {

bool IsChildDialog(HWND window) {
    return window != nullptr && window->role == toolkit::WindowRole::childDialog;
}

HWND GetDlgItem(HWND dialog, int id) {
    return Lives(dialog) ? FindControl(*dialog, id) : nullptr;
}

int GetControlId(HWND window) {
    return window == nullptr ? 0 : window->id;
}

HWND GetParent(HWND window) {
    return Lives(window) ? window->parent : nullptr;
}

CWnd* GetOwner(HWND window) {
    return window == nullptr ? nullptr : window->owner;
}

void SetOwner(HWND window, CWnd* owner) {
    if (!Lives(window)) {
        return;
    }
    if (window->owner != nullptr) {
        window->owner->m_hWnd = nullptr;
    }
    window->owner = owner != nullptr ? owner : window->plain.get();
    if (window->owner != nullptr) {
        window->owner->m_hWnd = window;
    }
}

CString GetText(HWND window) {
    return Lives(window) ? toolkit::FromQt(window->peer->Text()) : CString();
}

void SetText(HWND window, const CString& text) {
    if (Lives(window)) {
        window->peer->SetText(toolkit::ToQt(text));
    }
}

void Enable(HWND window, bool enable) {
    if (Lives(window)) {
        window->widget->setEnabled(enable);
    }
}

bool IsEnabled(HWND window) {
    return Lives(window) && window->widget->isEnabled();
}

void Show(HWND window, bool show) {
    if (Lives(window)) {
        window->widget->setVisible(show);
    }
}

bool IsVisible(HWND window) {
    return Lives(window) && window->widget->isVisible();
}

void SetForeground(HWND window) {
    if (Lives(window)) {
        window->widget->window()->raise();
        window->widget->window()->activateWindow();
    }
}

void SetCapture(HWND window) {
    toolkit::SetCapturedWindow(Lives(window) ? window : nullptr);
}

HWND GetCapture() {
    return toolkit::CapturedWindow();
}

RECT GetClientRect(HWND window) {
    return Lives(window) ? RECT{0, 0, window->widget->width(), window->widget->height()} : RECT{};
}

RECT GetWindowRect(HWND window) {
    if (!Lives(window)) {
        return {};
    }
    return toolkit::FromQt(
        QRect(window->widget->mapToGlobal(QPoint(0, 0)), window->widget->size()));
}

// The widget of a page lies beside that of its tab control, so places are mapped.
void Move(HWND window, const RECT& rect) {
    if (!Lives(window)) {
        return;
    }
    QRect place = toolkit::ToQt(rect);
    if (window->parent != nullptr) {
        const QWidget* base = window->widget->parentWidget();
        place.moveTopLeft(window->parent->widget->mapTo(base, place.topLeft()));
    }
    window->widget->setFixedSize(place.size());
    window->widget->move(place.topLeft());
}

COLORREF SysColor(int index) {
    return index == COLOR_BTNFACE && qApp != nullptr
               ? toolkit::FromColour(QApplication::palette().color(QPalette::Window))
               : 0;
}

void SetTimer(HWND window, UINT id, DWORD milliseconds) {
    if (!Lives(window)) {
        return;
    }
    KillTimer(window, id);
    const int timer = window->widget->startTimer(static_cast<int>(milliseconds), Qt::PreciseTimer);
    window->timers[timer] = id;
}

void KillTimer(HWND window, UINT id) {
    if (!Lives(window)) {
        return;
    }
    std::erase_if(window->timers, [&](const auto& timer) {
        if (timer.second != id) {
            return false;
        }
        window->widget->killTimer(timer.first);
        return true;
    });
}

void SetToolTip(HWND window, const CString& text) {
    if (Lives(window)) {
        window->widget->setToolTip(toolkit::ToQt(text));
    }
}

}  // namespace native
