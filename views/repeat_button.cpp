#include "views/repeat_button.h"

#include "views/position_messages.h"

CRepeatButton::~CRepeatButton() = default;

const MessageMap* CRepeatButton::GetMessageMap() const {
    static constexpr MessageEntry entries[] = {
        OnMessage<&CRepeatButton::OnLButtonDown>(WM_LBUTTONDOWN),
        OnMessage<&CRepeatButton::OnLButtonUp>(WM_LBUTTONUP),
        OnMessage<&CRepeatButton::OnTimer>(WM_TIMER),
        OnMessage<&CRepeatButton::OnKeyDown>(WM_KEYDOWN),
    };
    static const MessageMap map{CButton::GetMessageMap(), entries};
    return &map;
}

int CRepeatButton::SetRepeat(int accelerate, int delay) {
    m_nAccelerate = accelerate;
    m_nDelay = delay;
    m_Press.Abort();
    return 1;
}

void CRepeatButton::OnLButtonDown(POINT /*point*/) {
    if (!m_Press.IsRunning()) {
        Default();  // Shows pressed and takes the focus.
    }
    if (const auto wait = m_Press.Press(m_nAccelerate != 0, m_nDelay)) {
        SetTimer(kRepeatTimer, *wait);
    }
}

// While a press runs the button stays in; the release is noted and looked at before the next wait.
void CRepeatButton::OnLButtonUp(POINT /*point*/) {
    if (m_Press.IsRunning()) {
        m_Press.Release();
    } else {
        Default();
    }
}

LRESULT CRepeatButton::OnTimer(WPARAM wParam, LPARAM /*lParam*/) {
    if (wParam != kRepeatTimer || !m_Press.IsRunning()) {
        return Default();
    }
    KillTimer(kRepeatTimer);
    SendStep();
    if (const auto wait = m_Press.AfterStep(GetFocus() == this)) {
        SetTimer(kRepeatTimer, *wait);
    } else {
        SendMessage(WM_LBUTTONUP);  // Pops the button out.
    }
    return 0;
}

LRESULT CRepeatButton::OnKeyDown(WPARAM wParam, LPARAM /*lParam*/) {
    if (wParam == VK_SPACE) {
        SendStep();
    }
    return Default();
}

void CRepeatButton::SendStep() {
    if (CWnd* parent = GetParent()) {
        parent->SendMessage(WM_REPEATCLICK, static_cast<WPARAM>(GetDlgCtrlID()));
    }
}
