#include "platform/qt/edit_peer.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWheelEvent>

#include "platform/hooks.h"
#include "platform/native.h"
#include "platform/qt/key_state.h"
#include "platform/qt/spin_peer.h"

namespace toolkit {

namespace {

struct KeyMessage {
    QKeySequence::StandardKey key;
    UINT message;
};

constexpr KeyMessage kKeyMessages[] = {
    {QKeySequence::Paste, WM_PASTE},
    {QKeySequence::Copy, WM_COPY},
    {QKeySequence::Cut, WM_CUT},
    {QKeySequence::Undo, WM_UNDO},
};

}  // namespace

EditPeer::EditPeer(NativeWindow& record, QWidget* parent) : Peer(record, parent) {
    setReadOnly((record.flags & kReadOnly) != 0);
    setFocusPolicy((record.flags & kTabStop) != 0 ? Qt::StrongFocus : Qt::ClickFocus);
    setAcceptDrops(false);
    setDragEnabled(false);
    setContextMenuPolicy(Qt::NoContextMenu);
    ShowReadOnly();
    QObject::connect(this, &QLineEdit::textChanged, this, [this] {
        if (!quiet_) {
            NotifyCommand(EN_CHANGE);
        }
    });
}

// A text that can't be changed stands on the dialog's own colour.
void EditPeer::ShowReadOnly() {
    if (isReadOnly()) {
        QPalette dim;
        dim.setColor(QPalette::Base, QApplication::palette().color(QPalette::Window));
        setPalette(dim);
    }
}

// Raises the notice also when the text stays what it was. What its handler raises is the caller's.
void EditPeer::SetText(const QString& text) {
    quiet_ = true;
    setText(text);
    quiet_ = false;
    if (Record() != nullptr) {
        const DispatchScope scope;
        dispatch::Command(Record(), EN_CHANGE);
    }
}

bool EditPeer::RunDefault(QEvent& event) {
    switch (event.type()) {
        case QEvent::KeyPress:
            return RunKey(static_cast<QKeyEvent&>(event));
        case QEvent::ApplicationPaletteChange:
            ShowReadOnly();
            return Peer::RunDefault(event);
        case QEvent::Wheel:
            return RunWheel(static_cast<QWheelEvent&>(event));
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
            // The middle button would insert the selection of another window past WM_PASTE.
            return static_cast<QMouseEvent&>(event).button() == Qt::MiddleButton ||
                   Peer::RunDefault(event);
        default:
            return Peer::RunDefault(event);
    }
}

bool EditPeer::RunKey(QKeyEvent& event) {
    for (const KeyMessage& entry : kKeyMessages) {
        if (event.matches(entry.key) && Record() != nullptr) {
            dispatch::Send(Record(), entry.message, 0, 0);
            return true;
        }
    }
    if (spin_ != nullptr && (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down)) {
        spin_->Step(event.key() == Qt::Key_Up ? 1 : -1);
        return true;
    }
    const unsigned character = TypedCharacter(event);
    const bool inserts = character != 0 && character != VK_BACK;
    return (inserts && Fitting(event.text()) != event.text()) || Peer::RunDefault(event);
}

bool EditPeer::RunWheel(QWheelEvent& event) {
    const int turn = event.angleDelta().y();
    if (spin_ == nullptr || turn == 0 || !isEnabled()) {
        return Peer::RunDefault(event);
    }
    event.accept();
    spin_->Step(turn > 0 ? 1 : -1);
    return true;
}

LRESULT EditPeer::DefaultMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_PASTE:
            Paste();
            break;
        case WM_COPY:
            copy();
            break;
        case WM_CUT:
            // The toolkit would cut what may only be read, too.
            isReadOnly() ? copy() : cut();
            break;
        case WM_UNDO:
            if (!isReadOnly()) {
                undo();
            }
            break;
        case EM_LIMITTEXT:
            SetLimit(static_cast<int>(wParam));
            break;
        default:
            break;
    }
    return 0;
}

QString EditPeer::Fitting(const QString& typed) const {
    if (limit_ <= 0) {
        return typed;
    }
    auto room = limit_ - text().toUtf8().size() + selectedText().toUtf8().size();
    QString fitting;
    for (const char32_t character : typed.toUcs4()) {
        const QString piece = QString::fromUcs4(&character, 1);
        room -= piece.toUtf8().size();
        if (room < 0) {
            break;
        }
        fitting += piece;
    }
    return fitting;
}

// One line holds the clipboard's first.
void EditPeer::Paste() {
    const auto clipboard = GetClipboardText();
    if (!clipboard || isReadOnly()) {
        return;
    }
    const CString line = clipboard->substr(0, clipboard->find_first_of("\r\n"));
    insert(Fitting(ToQt(line)));
}

}  // namespace toolkit

namespace native {

void EditGetSelection(HWND edit, int& start, int& end) {
    start = 0;
    end = 0;
    if (const auto* peer = toolkit::PeerAs<toolkit::EditPeer>(edit)) {
        start = peer->hasSelectedText() ? peer->selectionStart() : peer->cursorPosition();
        end = peer->hasSelectedText() ? peer->selectionEnd() : peer->cursorPosition();
    }
}

void EditSetSelection(HWND edit, int start, int end) {
    auto* peer = toolkit::PeerAs<toolkit::EditPeer>(edit);
    if (peer == nullptr) {
        return;
    }
    const int length = static_cast<int>(peer->text().size());
    const int last = end < 0 ? length : std::min(end, length);
    peer->setSelection(std::min(start, length), last - std::min(start, length));
}

}  // namespace native
