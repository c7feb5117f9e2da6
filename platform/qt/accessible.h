#pragma once

#include "platform/qt/window_record.h"

namespace toolkit {

/// Gives the control the words of its template for screen readers.
void SetAccessibleWords(const NativeWindow& window, const ControlTemplate& description);

}  // namespace toolkit
