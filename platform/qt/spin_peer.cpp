#include "platform/qt/spin_peer.h"

#include <QMouseEvent>
#include <QStyleOption>
#include <QStylePainter>
#include <QWheelEvent>
#include <algorithm>

#include "platform/native.h"

namespace toolkit {

namespace {

constexpr int kFirstRepeat = 500;
constexpr int kNextRepeat = 60;

}  // namespace

SpinPeer::SpinPeer(NativeWindow& record, QWidget* parent) : Peer(record, parent) {
    setFocusPolicy(Qt::NoFocus);
}

void SpinPeer::SetRange(int low, int high) {
    low_ = std::min(low, high);
    high_ = std::max(low, high);
}

void SpinPeer::SetPosition(int position) {
    position_ = std::clamp(position, low_, high_);
    native::SetText(buddy_, std::to_string(position_));
}

void SpinPeer::TakePositionFromBuddy() {
    bool number = false;
    const int shown = ToQt(native::GetText(buddy_)).toInt(&number);
    if (number) {
        position_ = std::clamp(shown, low_, high_);
    }
}

void SpinPeer::Step(int delta) {
    if (Record() == nullptr || !isEnabled()) {
        return;
    }
    TakePositionFromBuddy();
    NMUPDOWN notice;
    notice.hdr.hwndFrom = Record();
    notice.hdr.code = UDN_DELTAPOS;
    notice.iPos = position_;
    notice.iDelta = delta;
    if (dispatch::Notify(notice.hdr) != 0 || Record() == nullptr) {
        return;
    }
    const CString before = native::GetText(buddy_);
    const int stepped = std::clamp(position_ + notice.iDelta, low_, high_);
    if (buddy_ == nullptr || before != std::to_string(stepped)) {
        SetPosition(stepped);
    }
}

QRect SpinPeer::HalfRect(bool up) const {
    const int middle = height() / 2;
    return up ? QRect(0, 0, width(), middle) : QRect(0, middle, width(), height() - middle);
}

void SpinPeer::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    for (const bool up : {true, false}) {
        QStyleOptionButton button;
        button.initFrom(this);
        button.rect = HalfRect(up);
        button.state.setFlag(QStyle::State_Raised);
        button.state.setFlag(QStyle::State_Sunken, pressed_ == (up ? 1 : -1));
        painter.drawPrimitive(QStyle::PE_PanelButtonBevel, button);
        QStyleOption arrow;
        arrow.initFrom(this);
        const int size = std::min(8, button.rect.height() - 2);
        arrow.rect = QRect(0, 0, size, size);
        arrow.rect.moveCenter(button.rect.center());
        painter.drawPrimitive(up ? QStyle::PE_IndicatorArrowUp : QStyle::PE_IndicatorArrowDown,
                              arrow);
    }
}

void SpinPeer::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    pressed_ = HalfRect(true).contains(event->position().toPoint()) ? 1 : -1;
    repeat_.start(kFirstRepeat, this);
    update();
    // Clicking the arrows takes the focus to the number, as its own clicks do.
    native::SetFocus(buddy_);
    Step(pressed_);
}

void SpinPeer::mouseReleaseEvent(QMouseEvent*) {
    pressed_ = 0;
    repeat_.stop();
    update();
}

void SpinPeer::wheelEvent(QWheelEvent* event) {
    if (event->angleDelta().y() != 0) {
        Step(event->angleDelta().y() > 0 ? 1 : -1);
    }
}

void SpinPeer::timerEvent(QTimerEvent* event) {
    if (event->timerId() != repeat_.timerId()) {
        return;
    }
    if (pressed_ == 0 || !isEnabled()) {
        repeat_.stop();
        return;
    }
    repeat_.start(kNextRepeat, this);
    Step(pressed_);
}

}  // namespace toolkit

namespace native {

void SpinSetRange(HWND spin, int low, int high) {
    if (auto* peer = toolkit::PeerAs<toolkit::SpinPeer>(spin)) {
        peer->SetRange(low, high);
    }
}

void SpinGetRange(HWND spin, int& low, int& high) {
    const auto* peer = toolkit::PeerAs<toolkit::SpinPeer>(spin);
    low = peer == nullptr ? 0 : peer->Low();
    high = peer == nullptr ? 0 : peer->High();
}

void SpinSetPosition(HWND spin, int position) {
    if (auto* peer = toolkit::PeerAs<toolkit::SpinPeer>(spin)) {
        peer->SetPosition(position);
    }
}

HWND SpinBuddy(HWND spin) {
    const auto* peer = toolkit::PeerAs<toolkit::SpinPeer>(spin);
    return peer == nullptr ? nullptr : peer->Buddy();
}

}  // namespace native
