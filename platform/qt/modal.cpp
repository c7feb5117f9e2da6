#include "platform/qt/modal.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <utility>
#include <vector>

#include "platform/hooks.h"
#include "platform/native.h"
#include "platform/qt/toolkit.h"
#include "platform/qt/window_record.h"

namespace toolkit {

namespace {

std::vector<ModalRun*>& Runs() {
    static std::vector<ModalRun*> runs;
    return runs;
}

}  // namespace

// A loop that the host ends with its application counts as cancelled.
ModalRun::ModalRun(NativeWindow& dialog) : dialog_(&dialog), result_(IDCANCEL) {
    dialog.modal = this;
    Runs().push_back(this);
}

ModalRun::~ModalRun() {
    Runs().pop_back();
    if (dialog_ != nullptr) {
        dialog_->modal = nullptr;
    }
}

ModalRun* ModalRun::Innermost() {
    return Runs().empty() ? nullptr : Runs().back();
}

void ModalRun::ShowDialog() {
    QWidget& widget = *dialog_->widget;
    QWindow* above = QGuiApplication::focusWindow();
    widget.setWindowModality(Qt::ApplicationModal);
    widget.winId();
    if (above != nullptr && widget.parentWidget() == nullptr) {
        widget.windowHandle()->setTransientParent(above);
    }
    widget.show();
    widget.activateWindow();
}

int ModalRun::Run() {
    const QPointer<QWidget> previous = QApplication::activeWindow();
    ShowDialog();
    if (!ended_) {
        loop_.exec(QEventLoop::DialogExec);
    }
    NoteFirstRun();
    if (dialog_ != nullptr) {
        dialog_->widget->hide();
    }
    if (previous != nullptr) {
        previous->activateWindow();
    }
    if (exception_ != nullptr) {
        std::rethrow_exception(std::exchange(exception_, nullptr));
    }
    return result_;
}

// The first end counts: what comes after it is only the way out.
void ModalRun::End(int result) {
    if (ended_) {
        return;
    }
    result_ = result;
    ended_ = true;
    loop_.quit();
}

void ModalRun::Fail(std::exception_ptr exception) {
    if (exception_ == nullptr) {
        exception_ = std::move(exception);
    }
    ended_ = true;
    loop_.quit();
}

void ModalRun::WindowGone() {
    dialog_ = nullptr;
    ended_ = true;
    loop_.quit();
}

}  // namespace toolkit

namespace native {

int RunModal(HWND dialog) {
    if (dialog == nullptr || dialog->widget == nullptr) {
        return -1;
    }
    if (dialog->earlyResult) {
        return *dialog->earlyResult;
    }
    toolkit::ModalRun run(*dialog);
    return run.Run();
}

void EndModal(HWND dialog, int result) {
    if (dialog == nullptr || dialog->widget == nullptr) {
        return;
    }
    if (dialog->modal != nullptr) {
        dialog->modal->End(result);
    } else {
        dialog->earlyResult = result;
    }
}

}  // namespace native
