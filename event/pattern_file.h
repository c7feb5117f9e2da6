#pragma once

#include <memory>

#include "params/pattern_block.h"
#include "platform/types.h"
#include "sequence/api.h"

/// Pattern files (.3dp): the serialized block tree and nothing else. Any thread.

/// What kept a file from being loaded.
enum class PatternFileFault { unreadable, noPattern };

/// Reads a pattern file and checks its whole structure. Null when it can't be read or is no
/// pattern; `reason` then names the file, and for a bad structure the place, what was expected
/// there and what was found, and `kind` says which of the two it was.
ORBIX_API std::unique_ptr<CQelCPB_3DPattern> LoadPatternFile(const CString& path, CString& reason,
                                                             PatternFileFault* kind = nullptr);

/// Writes a pattern file, which is there whole afterwards or as it was before. False on failure;
/// `reason` then names the file and the system's words.
ORBIX_API bool SavePatternFile(const CString& path, const CQelCPB_3DPattern& pattern,
                               CString& reason);
