#pragma once

#include <QRect>

struct NativeWindow;
class QPainter;

/// The picture behind a window that paints: the dialogs and the statics that their owners paint.
/// GetDC draws on it at any time; a paint event of the toolkit only sends WM_PAINT for what is
/// really invalid and then shows the picture, so that one change is drawn once.
namespace toolkit {

/// Makes the surface fit the window's size and pixel ratio; a new one is wholly invalid.
void FitSurface(NativeWindow& window);
/// Everything is to be drawn anew.
void InvalidateAll(NativeWindow& window);
/// Sends WM_PAINT when something is invalid; what no handler draws is filled with the background.
void PaintInvalid(NativeWindow& window);
/// For the widget's paint event.
void ShowSurface(NativeWindow& window, QPainter& painter);

}  // namespace toolkit
