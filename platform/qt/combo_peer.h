#pragma once

#include <QComboBox>

#include "platform/qt/peer.h"

namespace toolkit {

/// A drop-down list. It notifies when the user's choice is another row than before.
class ComboPeer : public Peer<QComboBox> {
public:
    ComboPeer(NativeWindow& record, QWidget* parent);

    QString Text() const override { return currentText(); }
    void SetText(const QString& text) override;
    void Select(int row);

private:
    int known_ = -1;
};

}  // namespace toolkit
