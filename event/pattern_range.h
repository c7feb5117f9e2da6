#pragma once

#include <memory>

#include "event/event_record.h"
#include "params/pattern_block.h"
#include "sequence/api.h"

/// A pattern parted by a range of ticks. An editor in range mode leaves out what lies outside, so a
/// host that keeps the whole gives it the inside and puts the outside back into the result. Any
/// thread. Both raise std::bad_alloc without memory, rather than lose an event.

/// A copy of the pattern with only those position events that the range admits.
ORBIX_API std::unique_ptr<CQelCPB_3DPattern> PatternInside(const CQelCPB_3DPattern& pattern,
                                                           const EventRange& range);

/// Appends copies of the position events of `from` that the range does not admit to `to`.
ORBIX_API void AppendOutside(const CQelCPB_3DPattern& from, const EventRange& range,
                             CQelCPB_3DPattern& to);
