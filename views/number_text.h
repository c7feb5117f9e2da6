#pragma once

#include "platform/types.h"

/// Bounds of a box for a whole number without a sign.
struct NumberBounds {
    int characters = 0;  ///< most characters of a text
    int lower = 0;
    int upper = 0;
};

/// Brings a text within the bounds: one longer than the limit, digits or not, becomes the upper
/// bound. 1 when the text was made valid; 0, and the text as it was, when it is empty or holds
/// anything but digits. Any thread.
int NormalizeNumber(CString& text, const NumberBounds& bounds);
