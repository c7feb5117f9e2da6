#pragma once

#include "platform/window.h"

/// Internals of the neutral half that several of its files share.
namespace dispatch {

/// Holds back the notifications that controls send to `dialog`, as long as an object lives;
/// nests, and each level puts back what it found.
class LockoutScope {
public:
    explicit LockoutScope(HWND dialog);
    ~LockoutScope();
    LockoutScope(const LockoutScope&) = delete;
    LockoutScope& operator=(const LockoutScope&) = delete;

private:
    HWND previous_;
};

/// The message that is being handled, innermost first; null when none is.
struct CurrentMessage {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};
const CurrentMessage* Current();

/// The entry of the object's map, or of its base classes' maps, for the message; null for none.
const MessageEntry* FindEntry(const CWnd& target, UINT message, UINT code, UINT id, bool reflected);

}  // namespace dispatch
