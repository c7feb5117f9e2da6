#pragma once

#include "platform/qt/window_record.h"

namespace toolkit {

/// Makes all controls of the template in the dialog and ties together what belongs together:
/// radio groups, spins and their buddies, texts and the controls that their access keys lead to.
void MakeControls(NativeWindow& dialog, const DialogTemplate& description);

}  // namespace toolkit
