#pragma once

#include "platform/qt/peer.h"

namespace toolkit {

/// The window of a dialog. A plain widget with the looks of a dialog, so that no key and no
/// button does anything on its own.
class DialogPeer : public Peer<QWidget> {
public:
    DialogPeer(NativeWindow& record, QWidget* parent, bool child);

    QString Text() const override { return windowTitle(); }
    void SetText(const QString& text) override { setWindowTitle(text); }
    bool RunDefault(QEvent& event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
};

}  // namespace toolkit
