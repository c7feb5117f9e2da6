#pragma once

#include <QBasicTimer>

#include "platform/qt/peer.h"

namespace toolkit {

/// Two arrow buttons that step the number in the edit before them.
class SpinPeer : public Peer<QWidget> {
public:
    SpinPeer(NativeWindow& record, QWidget* parent);

    void SetBuddy(NativeWindow& buddy) { buddy_ = &buddy; }
    NativeWindow* Buddy() const { return buddy_; }
    void SetRange(int low, int high);
    int Low() const { return low_; }
    int High() const { return high_; }
    void SetPosition(int position);
    /// As a user does: asks first, then steps from the number in the buddy.
    void Step(int delta);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    QRect HalfRect(bool up) const;
    void TakePositionFromBuddy();

    NativeWindow* buddy_ = nullptr;
    int low_ = 0;
    int high_ = 100;
    int position_ = 0;
    int pressed_ = 0;  ///< 1 up, -1 down, 0 none.
    QBasicTimer repeat_;
};

}  // namespace toolkit
