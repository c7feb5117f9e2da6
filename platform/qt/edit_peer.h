#pragma once

#include <QLineEdit>

#include "platform/qt/peer.h"

namespace toolkit {

class SpinPeer;

/// One line of text. Whatever changes the clipboard or the text by key goes through a message
/// first, so that a handler can take its place.
class EditPeer : public Peer<QLineEdit> {
public:
    EditPeer(NativeWindow& record, QWidget* parent);

    QString Text() const override { return text(); }
    void SetText(const QString& text) override;
    bool RunDefault(QEvent& event) override;
    LRESULT DefaultMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    void SetLimit(int bytes) { limit_ = bytes; }
    /// The spin that shows its number here.
    void SetSpin(SpinPeer* spin) { spin_ = spin; }

private:
    void ShowReadOnly();
    bool RunKey(QKeyEvent& event);
    bool RunWheel(QWheelEvent& event);
    /// As much of `typed` as the limit lets replace the selection.
    QString Fitting(const QString& typed) const;
    void Paste();

    int limit_ = 0;
    SpinPeer* spin_ = nullptr;
    bool quiet_ = false;
};

}  // namespace toolkit
