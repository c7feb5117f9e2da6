#include "views/repeat_press.h"

#include <algorithm>

namespace {

/// How much shorter each wait of an accelerating button is, milliseconds.
constexpr int kAcceleration = 20;

}  // namespace

std::optional<DWORD> RepeatPress::Press(bool accelerate, int delay) {
    if (running_) {
        pressedAgain_ = true;
        return std::nullopt;
    }
    running_ = true;
    accelerate_ = accelerate;
    delay_ = delay;
    remaining_ = delay;
    return NextWait();
}

void RepeatPress::Release() {
    if (pressedAgain_) {
        pressedAgain_ = false;
    } else {
        released_ = running_;
    }
}

std::optional<DWORD> RepeatPress::AfterStep(bool hasFocus) {
    if (!hasFocus) {
        Abort();
        return std::nullopt;
    }
    if (!released_) {
        return NextWait();
    }
    if (!pressedAgain_) {
        Abort();
        return std::nullopt;
    }
    released_ = false;
    pressedAgain_ = false;
    remaining_ = delay_;
    return NextWait();
}

void RepeatPress::Abort() {
    running_ = false;
    released_ = false;
    pressedAgain_ = false;
}

DWORD RepeatPress::NextWait() {
    if (accelerate_) {
        remaining_ = remaining_ > kAcceleration ? remaining_ - kAcceleration : 0;
    }
    return static_cast<DWORD>(std::max(remaining_, 0));
}
