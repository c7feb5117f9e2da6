#pragma once

#include <string>

#include "tests/dialog/editor.h"

/// One step of a session but for those that ask the session itself: tests/data/dialog/README.md
/// has the list. Throws for a control that there is not.
void DoStep(Editor& editor, const std::string& step);

/// What a screen reader calls the control that has the focus.
std::string FocusName();
