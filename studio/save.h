#pragma once

#include <string>

#include "params/pattern_block.h"

/// Brings an edited pattern to its file, with the user's help where it takes some: asks for a name
/// when `file` is empty, says why a save failed and lets the user try again, choose another name,
/// or give the changes up. Returns the program's exit code.
int SaveEditedPattern(CQelCPB_3DPattern& pattern, std::string file);
