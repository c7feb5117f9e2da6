#pragma once

#include <optional>

#include "platform/types.h"
#include "sequence/api.h"

/// One press of a repeating button as a sequence of waits and steps, without clock or window. The
/// owner waits as long as it is told, makes a step, and asks again:
///
///     Press -> wait -> step -> AfterStep -> wait -> step -> AfterStep -> end
///
/// A release is only noted; it is looked at before each wait, so a short click still makes one
/// step. Presses that come while one is running queue up behind it as they would in the queue of
/// a thread that is held by the press: one that is released again before its turn makes no step.
class ORBIX_API RepeatPress {
public:
    /// The button goes down. Gives the wait before the first step in milliseconds, nothing when a
    /// press is running. With `accelerate` each wait is 20 shorter, down to 0.
    std::optional<DWORD> Press(bool accelerate, int delay);
    /// The button goes up.
    void Release();
    /// After a step: the next wait, or nothing when the press has ended. A press that queued up
    /// and is still held begins with its full delay. Without the focus everything ends.
    std::optional<DWORD> AfterStep(bool hasFocus);
    /// Forgets everything.
    void Abort();

    bool IsRunning() const { return running_; }

private:
    DWORD NextWait();

    bool running_ = false;
    bool released_ = false;
    bool pressedAgain_ = false;
    bool accelerate_ = false;
    int delay_ = 0;
    int remaining_ = 0;
};
