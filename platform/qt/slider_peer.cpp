#include "platform/qt/slider_peer.h"

#include <algorithm>
#include <utility>

#include "platform/native.h"

namespace toolkit {

SliderPeer::SliderPeer(NativeWindow& record, QWidget* parent) : Peer(record, parent) {
    setOrientation(Qt::Horizontal);
    setFocusPolicy((record.flags & kTabStop) != 0 ? Qt::StrongFocus : Qt::ClickFocus);
    QObject::connect(this, &QSlider::actionTriggered, this, [this] { touched_ = true; });
    // Assistive programs set the value without an action and outside any event.
    QObject::connect(this, &QSlider::valueChanged, this, [this] {
        touched_ = touched_ || !quiet_;
        if (!inEvent_) {
            ReportIfTouched();
        }
    });
}

void SliderPeer::SetPosition(int position) {
    quiet_ = true;
    setValue(position);
    quiet_ = false;
}

void SliderPeer::SetRange(int low, int high) {
    constexpr int kPages = 5;
    quiet_ = true;
    setRange(low, high);
    quiet_ = false;
    setPageStep(std::max(1, (high - low) / kPages));
}

// The action is signalled before the position takes its new value, so the report waits until the
// widget is done with the event.
bool SliderPeer::RunDefault(QEvent& event) {
    const bool outer = std::exchange(inEvent_, true);
    const bool result = Peer::RunDefault(event);
    inEvent_ = outer;
    ReportIfTouched();
    return result;
}

void SliderPeer::ReportIfTouched() {
    if (!touched_ || Record() == nullptr) {
        return;
    }
    touched_ = false;
    CallOut([this] {
        dispatch::Send(&DialogOf(*Record()), WM_HSCROLL, static_cast<WPARAM>(value()),
                       reinterpret_cast<LPARAM>(Record()));
    });
}

}  // namespace toolkit

namespace native {

void SliderSetRange(HWND slider, int low, int high) {
    if (auto* peer = toolkit::PeerAs<toolkit::SliderPeer>(slider)) {
        peer->SetRange(low, high);
    }
}

int SliderGetPosition(HWND slider) {
    const auto* peer = toolkit::PeerAs<toolkit::SliderPeer>(slider);
    return peer == nullptr ? 0 : peer->value();
}

void SliderSetPosition(HWND slider, int position) {
    if (auto* peer = toolkit::PeerAs<toolkit::SliderPeer>(slider)) {
        peer->SetPosition(position);
    }
}

}  // namespace native
