#pragma once

#include <QSlider>

#include "platform/qt/peer.h"

namespace toolkit {

/// A horizontal slider. Whatever the user does with it sends WM_HSCROLL to its dialog, also at
/// the end of the range, where nothing moves.
class SliderPeer : public Peer<QSlider> {
public:
    SliderPeer(NativeWindow& record, QWidget* parent);

    void SetPosition(int position);
    void SetRange(int low, int high);
    bool RunDefault(QEvent& event) override;

private:
    void ReportIfTouched();

    bool touched_ = false;
    bool quiet_ = false;  ///< Set by program.
    bool inEvent_ = false;
};

}  // namespace toolkit
