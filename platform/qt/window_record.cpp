#include "platform/qt/window_record.h"

#include <QWidget>
#include <algorithm>

#include "platform/native.h"
#include "platform/qt/modal.h"
#include "platform/qt/peer.h"

NativeWindow::NativeWindow() = default;
NativeWindow::~NativeWindow() = default;

namespace toolkit {

namespace {

using Records = std::vector<std::unique_ptr<NativeWindow>>;

struct Registry {
    Records roots;
    Records destroyed;
    NativeWindow* captured = nullptr;
    int depth = 0;
};

// Never destroyed: dialogs with static lifetime may go after this file's other statics.
Registry& TheRegistry() {
    static auto* registry = new Registry;
    return *registry;
}

void FreeDestroyed() {
    Records destroyed;
    destroyed.swap(TheRegistry().destroyed);
}

void Detach(NativeWindow& window) {
    for (auto& child : window.children) {
        Detach(*child);
    }
    if (TheRegistry().captured == &window) {
        TheRegistry().captured = nullptr;
    }
    if (window.owner != nullptr) {
        window.owner->m_hWnd = nullptr;
    }
    if (window.plain) {
        window.plain->m_hWnd = nullptr;
    }
    window.owner = nullptr;
    if (window.peer != nullptr) {
        window.peer->Detach();
    }
    window.peer = nullptr;
    window.widget = nullptr;
    window.timers.clear();
    if (window.modal != nullptr) {
        window.modal->WindowGone();
    }
}

std::unique_ptr<NativeWindow> TakeOut(NativeWindow& window) {
    Records& siblings = window.parent == nullptr ? TheRegistry().roots : window.parent->children;
    const auto found = std::find_if(siblings.begin(), siblings.end(),
                                    [&](const auto& record) { return record.get() == &window; });
    if (found == siblings.end()) {
        return nullptr;
    }
    std::unique_ptr<NativeWindow> record = std::move(*found);
    siblings.erase(found);
    return record;
}

}  // namespace

DispatchScope::DispatchScope() {
    ++TheRegistry().depth;
}

DispatchScope::~DispatchScope() {
    if (--TheRegistry().depth == 0 && !TheRegistry().destroyed.empty()) {
        FreeDestroyed();
    }
}

bool IsDialog(const NativeWindow& window) {
    return window.role != WindowRole::control;
}

NativeWindow& DialogOf(NativeWindow& window) {
    NativeWindow* dialog = &window;
    while (!IsDialog(*dialog) && dialog->parent != nullptr) {
        dialog = dialog->parent;
    }
    return *dialog;
}

NativeWindow& RootOf(NativeWindow& window) {
    NativeWindow* root = &window;
    while (root->parent != nullptr) {
        root = root->parent;
    }
    return *root;
}

NativeWindow* WindowOf(const QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        if (const auto* peer = dynamic_cast<const PeerBase*>(widget)) {
            return peer->Record();
        }
    }
    return nullptr;
}

NativeWindow& AddWindow(NativeWindow* parent) {
    Records& siblings = parent == nullptr ? TheRegistry().roots : parent->children;
    siblings.push_back(std::make_unique<NativeWindow>());
    siblings.back()->parent = parent;
    return *siblings.back();
}

NativeWindow* CapturedWindow() {
    return TheRegistry().captured;
}

void SetCapturedWindow(NativeWindow* window) {
    TheRegistry().captured = window;
}

void ReportException() {
    if (ModalRun* run = ModalRun::Innermost()) {
        run->Fail(std::current_exception());
        return;
    }
    throw;
}

}  // namespace toolkit

namespace native {

void DestroyWindow(HWND window) {
    if (window == nullptr || window->widget == nullptr) {
        return;
    }
    QWidget* widget = window->widget;
    toolkit::Detach(*window);
    toolkit::TheRegistry().destroyed.push_back(toolkit::TakeOut(*window));
    if (toolkit::TheRegistry().depth > 0) {
        widget->hide();
        widget->deleteLater();
    } else {
        delete widget;
        toolkit::FreeDestroyed();
    }
}

}  // namespace native
