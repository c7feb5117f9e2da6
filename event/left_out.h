#pragma once

#include <cstddef>
#include <string>

#include "event/event_store.h"
#include "event/report.h"
#include "params/pattern_block.h"
#include "sequence/api.h"

/// What a load drops because an ID has its fill. The store says nothing of it, but whoever will
/// write the table back to a file has to. Any thread.

/// Adds the line for `count` dropped events; nothing when there are none.
ORBIX_API void AddLeftOut(C3DReport& report, std::ptrdiff_t count);

/// Compares a pattern with the free-mode store that has loaded it and adds a line for the events
/// that are missing there and have no line in `report` yet.
ORBIX_API void AddLeftOutOfPattern(const CQelCPB_3DPattern& pattern, const C3DEventData& store,
                                   C3DReport& report);

/// The name in a pattern, byte for byte.
ORBIX_API std::string PatternName(const CQelCPB_3DPattern& pattern);
