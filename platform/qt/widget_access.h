#pragma once

#include "platform/types.h"

class QWidget;

/// The toolkit's widget of a window, for the desktop host and the tests; null without one. The
/// widget belongs to the window.
QWidget* WidgetOfWindow(HWND window);
