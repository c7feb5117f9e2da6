#pragma once

#include "platform/controls.h"

/// A spin control that fills an empty buddy with its lower bound instead of stepping.
class ORBIX_API CEmptyFillSpin : public CSpinButtonCtrl {
public:
    ~CEmptyFillSpin() override;
    const MessageMap* GetMessageMap() const override;

private:
    void OnDeltaPos(NMHDR* header, LRESULT* result);
};
