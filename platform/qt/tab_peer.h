#pragma once

#include <QTabBar>

#include "platform/qt/peer.h"

namespace toolkit {

/// The tabs and the frame below them. The pages are windows of their own above it.
class TabPeer : public Peer<QTabBar> {
public:
    TabPeer(NativeWindow& record, QWidget* parent);

    int Insert(int index, const QString& title);
    int Selected() const { return noneSelected_ ? -1 : currentIndex(); }
    void Select(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    QSize tabSizeHint(int index) const override;

private:
    void Report();

    // The toolkit's bar always has a current tab; ours may have none.
    bool noneSelected_ = false;
    bool quiet_ = false;
};

}  // namespace toolkit
