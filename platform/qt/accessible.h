#pragma once

#include "platform/qt/window_record.h"

namespace toolkit {

/// Gives the control the words of its template for screen readers.
void SetAccessibleWords(const NativeWindow& window, const ControlTemplate& description);

/// Lets a screen reader hear a combo box's name beside its value; once a process.
void InstallComboNames();

/// Makes places able to tell of what is painted in them; once a process.
void InstallVirtualItems();

}  // namespace toolkit
