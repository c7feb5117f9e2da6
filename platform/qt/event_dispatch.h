#pragma once

#include "platform/qt/window_record.h"

namespace toolkit {

/// Handles an event that the toolkit brought to `widget` of the window: turns it into messages
/// where it is one, else lets the sink have it. What a handler raises ends the modal dialog.
bool Dispatch(NativeWindow& window, QEvent& event, QWidget& widget, EventSink& sink);

/// Sends a message behind which `event` stands, so that its default procedure is the sink's.
LRESULT SendWithEvent(NativeWindow& window, UINT message, WPARAM wParam, LPARAM lParam,
                      QEvent& event, EventSink& sink);

/// Moves the focus on from a window that can't keep it; false when there is nowhere to go.
bool GiveFocusAway(NativeWindow* window, bool forward);

}  // namespace toolkit
