#pragma once

class QKeyEvent;
class QMouseEvent;

namespace toolkit {

/// The VK_ number of a key of the toolkit, 0 for one that has none.
int VirtualKey(int key);

/// The code point that the key types (8 for the backspace), 0 for none.
unsigned TypedCharacter(const QKeyEvent& event);

/// Take the state of the keys and buttons from an event that is being dispatched.
void NoteKey(const QKeyEvent& event);
void NoteMouse(const QMouseEvent& event);

/// High bit set when the key or button was down at the last event dispatched.
short KeyStateOfLastEvent(int key);

}  // namespace toolkit
