#include "platform/qt/hooks_qt.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QThread>

#include "platform/hooks.h"
#include "platform/qt/convert.h"
#include "platform/qt/key_state.h"
#include "platform/qt/text_cache.h"
#include "platform/qt/window_record.h"

namespace toolkit {

namespace {

QMessageBox::Icon BoxIcon(UINT style) {
    switch (style & MB_ICONMASK) {
        case MB_ICONERROR:
            return QMessageBox::Critical;
        case MB_ICONQUESTION:
            return QMessageBox::Question;
        case MB_ICONWARNING:
            return QMessageBox::Warning;
        default:
            return QMessageBox::NoIcon;
    }
}

struct BoxButton {
    UINT type;
    int answer;
    QMessageBox::ButtonRole role;
    const char* text;
};

constexpr BoxButton kBoxButtons[] = {
    {MB_OK, IDOK, QMessageBox::AcceptRole, "OK"},
    {MB_OKCANCEL, IDOK, QMessageBox::AcceptRole, "OK"},
    {MB_OKCANCEL, IDCANCEL, QMessageBox::RejectRole, "Cancel"},
    {MB_YESNO, IDYES, QMessageBox::YesRole, "Yes"},
    {MB_YESNO, IDNO, QMessageBox::NoRole, "No"},
};

// A box that asks is not one that waits.
class ArrowScope {
public:
    ArrowScope() : shown_(QGuiApplication::overrideCursor() != nullptr) {
        if (shown_) {
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
        }
    }
    ~ArrowScope() {
        if (shown_) {
            QGuiApplication::restoreOverrideCursor();
        }
    }
    ArrowScope(const ArrowScope&) = delete;
    ArrowScope& operator=(const ArrowScope&) = delete;

private:
    bool shown_;
};

// Just after a dialog has closed no window may be active yet; the box then belongs to the dialog
// that is asked for.
QWidget* WindowBelow() {
    QWidget* active = QApplication::activeWindow();
    return active != nullptr ? active : QApplication::activeModalWidget();
}

int ShowMessageBox(const CString& text, UINT style) {
    const ArrowScope arrow;
    QWidget* above = WindowBelow();
    QMessageBox box(BoxIcon(style), above == nullptr ? QString() : above->windowTitle(), ToQt(text),
                    QMessageBox::NoButton, above);
    box.setTextFormat(Qt::PlainText);
    int answer = IDOK;
    std::vector<std::pair<QAbstractButton*, int>> answers;
    for (const BoxButton& button : kBoxButtons) {
        if (button.type == (style & MB_TYPEMASK)) {
            QPushButton* made = box.addButton(QString::fromLatin1(button.text), button.role);
            answers.emplace_back(made, button.answer);
            answer = button.answer;
            if (answers.size() == ((style & MB_DEFBUTTON2) != 0 ? 2U : 1U)) {
                box.setDefaultButton(made);
            }
            // The last one is what closing the box means.
            box.setEscapeButton(made);
        }
    }
    box.exec();
    for (const auto& [button, id] : answers) {
        if (button == box.clickedButton()) {
            answer = id;
        }
    }
    return answer;
}

UINT ShowPopupMenu(HWND owner, const std::vector<MenuItem>& items) {
    QMenu menu(owner == nullptr ? nullptr : owner->widget);
    menu.setFont(InterfaceFont());
    for (const MenuItem& item : items) {
        menu.addAction(ToQt(item.text))->setData(item.command);
    }
    const QAction* chosen = menu.exec(QCursor::pos());
    return chosen == nullptr ? 0U : chosen->data().toUInt();
}

std::optional<CString> ClipboardText() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr || !data->hasText()) {
        return std::nullopt;
    }
    return FromQt(data->text());
}

// The user waits for the toolkit's thread alone, and only that may touch the cursor.
void ShowWaitCursor(bool on) {
    if (QThread::currentThread() != QCoreApplication::instance()->thread()) {
        return;
    }
    if (on) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

template <typename Hook, typename Value>
void FillIn(Hook& hook, Value value) {
    if (!hook) {
        hook = value;
    }
}

}  // namespace

void InstallHooks() {
    PlatformHooks& hooks = Hooks();
    FillIn(hooks.messageBox, &ShowMessageBox);
    FillIn(hooks.popupMenu, &ShowPopupMenu);
    FillIn(hooks.clipboardText, &ClipboardText);
    FillIn(hooks.keyState, &KeyStateOfLastEvent);
    FillIn(hooks.waitCursor, &ShowWaitCursor);
}

}  // namespace toolkit
