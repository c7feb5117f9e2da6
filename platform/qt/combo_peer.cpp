#include "platform/qt/combo_peer.h"

#include "platform/native.h"

namespace toolkit {

ComboPeer::ComboPeer(NativeWindow& record, QWidget* parent) : Peer(record, parent) {
    setFocusPolicy((record.flags & kTabStop) != 0 ? Qt::StrongFocus : Qt::ClickFocus);
    QObject::connect(this, &QComboBox::activated, this, [this](int row) {
        if (row != known_) {
            known_ = row;
            NotifyCommand(CBN_SELCHANGE);
        }
    });
}

void ComboPeer::SetText(const QString& text) {
    const int row = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (row >= 0) {
        Select(row);
    }
}

void ComboPeer::Select(int row) {
    setCurrentIndex(row);
    known_ = currentIndex();
}

}  // namespace toolkit

namespace native {

int ComboAdd(HWND combo, const CString& text) {
    auto* peer = toolkit::PeerAs<toolkit::ComboPeer>(combo);
    if (peer == nullptr) {
        return -1;
    }
    // The toolkit would select the first row on its own.
    const int selected = peer->currentIndex();
    peer->addItem(toolkit::ToQt(text));
    peer->Select(selected);
    return peer->count() - 1;
}

int ComboCount(HWND combo) {
    const auto* peer = toolkit::PeerAs<toolkit::ComboPeer>(combo);
    return peer == nullptr ? 0 : peer->count();
}

int ComboGetSelection(HWND combo) {
    const auto* peer = toolkit::PeerAs<toolkit::ComboPeer>(combo);
    return peer == nullptr ? -1 : peer->currentIndex();
}

void ComboSetSelection(HWND combo, int row) {
    if (auto* peer = toolkit::PeerAs<toolkit::ComboPeer>(combo)) {
        peer->Select(row);
    }
}

CString ComboText(HWND combo, int row) {
    const auto* peer = toolkit::PeerAs<toolkit::ComboPeer>(combo);
    return peer == nullptr ? CString() : toolkit::FromQt(peer->itemText(row));
}

}  // namespace native
