#include "platform/qt/tab_peer.h"

#include <QPainter>

#include "platform/native.h"
#include "platform/qt/static_peers.h"

namespace toolkit {

TabPeer::TabPeer(NativeWindow& record, QWidget* parent) : Peer(record, parent) {
    setFocusPolicy((record.flags & kTabStop) != 0 ? Qt::StrongFocus : Qt::NoFocus);
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(false);
    QObject::connect(this, &QTabBar::currentChanged, this, [this] {
        if (!quiet_) {
            noneSelected_ = false;
            Report();
        }
    });
    QObject::connect(this, &QTabBar::tabBarClicked, this, [this](int index) {
        if (noneSelected_ && index == currentIndex() && index >= 0) {
            noneSelected_ = false;
            Report();
        }
    });
}

int TabPeer::Insert(int index, const QString& title) {
    quiet_ = true;
    const int inserted = insertTab(index, title);
    quiet_ = false;
    return inserted;
}

void TabPeer::Select(int index) {
    quiet_ = true;
    noneSelected_ = index < 0 || index >= count();
    setCurrentIndex(index);
    quiet_ = false;
}

void TabPeer::Report() {
    if (Record() == nullptr) {
        return;
    }
    NMHDR notice;
    notice.hwndFrom = Record();
    notice.code = TCN_SELCHANGE;
    CallOut([&] { dispatch::Notify(notice); });
}

// The pages begin 22 pixels down, whatever the style would like.
QSize TabPeer::tabSizeHint(int index) const {
    constexpr int kTabHeight = 21;
    return {QTabBar::tabSizeHint(index).width(), kTabHeight};
}

void TabPeer::paintEvent(QPaintEvent* event) {
    if (count() > 0) {
        QPainter painter(this);
        const int line = tabRect(currentIndex()).bottom();
        DrawFrame(painter, QRect(0, line, width(), height() - line),
                  palette().color(QPalette::Mid));
    }
    QTabBar::paintEvent(event);
}

}  // namespace toolkit

namespace native {

int TabInsert(HWND tab, int index, const CString& title) {
    auto* peer = toolkit::PeerAs<toolkit::TabPeer>(tab);
    return peer == nullptr ? -1 : peer->Insert(index, toolkit::ToQt(title));
}

int TabCount(HWND tab) {
    const auto* peer = toolkit::PeerAs<toolkit::TabPeer>(tab);
    return peer == nullptr ? 0 : peer->count();
}

int TabGetSelection(HWND tab) {
    const auto* peer = toolkit::PeerAs<toolkit::TabPeer>(tab);
    return peer == nullptr || peer->count() == 0 ? -1 : peer->Selected();
}

void TabSetSelection(HWND tab, int index) {
    if (auto* peer = toolkit::PeerAs<toolkit::TabPeer>(tab)) {
        peer->Select(index);
    }
}

}  // namespace native
