#include "views/empty_fill_spin.h"

CEmptyFillSpin::~CEmptyFillSpin() = default;

const MessageMap* CEmptyFillSpin::GetMessageMap() const {
    static constexpr MessageEntry entries[] = {
        OnReflectedNotify<&CEmptyFillSpin::OnDeltaPos>(UDN_DELTAPOS),
    };
    static const MessageMap map{CSpinButtonCtrl::GetMessageMap(), entries};
    return &map;
}

void CEmptyFillSpin::OnDeltaPos(NMHDR* /*header*/, LRESULT* result) {
    CWnd* buddy = GetBuddy();
    if (buddy == nullptr || !buddy->GetWindowText().empty()) {
        *result = 0;
        return;
    }
    int low = 0;
    int high = 0;
    GetRange(low, high);
    buddy->SetWindowText(std::to_string(low));
    *result = 1;
}
