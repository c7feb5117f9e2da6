#pragma once

#include "studio/options.h"

/// Draws the planes, or the whole editor, of `options.file` into the PNG file
/// `options.renderTo`. Questions and reports of the dialog go to stderr. Returns the program's
/// exit code.
int RenderToFile(const StudioOptions& options);
