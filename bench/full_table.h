#pragma once

#include "event/event_store.h"
#include "params/pattern_block.h"

/// The largest table there is: 256 positions of each of the four IDs and 256 time signatures, one
/// a measure, places and times scattered by a fixed rule.
C3DEventData FullTable();

/// The same as a pattern.
void StoreFullTable(CQelCPB_3DPattern& pattern);
