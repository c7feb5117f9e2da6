#pragma once

#include "platform/controls.h"
#include "views/repeat_press.h"

/// A push button that sends WM_REPEATCLICK to its parent again and again while it is held: first
/// after one delay, then after each further one, until it is released or loses the focus. The
/// space bar sends one for each key message. The press runs on a timer of the button, so the
/// window stays alive and may even be closed meanwhile. Main thread only.
class ORBIX_API CRepeatButton : public CButton {
public:
    /// The timer of the press; its WM_TIMER makes the step.
    static constexpr UINT kRepeatTimer = 1;

    ~CRepeatButton() override;
    const MessageMap* GetMessageMap() const override;

    /// `accelerate` 1 makes each wait 20 milliseconds shorter; `delay` is in milliseconds. Always
    /// 1. Forgets a press that was running, whose window may be gone.
    int SetRepeat(int accelerate, int delay);

private:
    void OnLButtonDown(POINT point);
    void OnLButtonUp(POINT point);
    LRESULT OnTimer(WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyDown(WPARAM wParam, LPARAM lParam);
    void SendStep();

    int m_nAccelerate = 1;
    int m_nDelay = 200;
    RepeatPress m_Press;
};
