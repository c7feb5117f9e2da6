#pragma once

#include <string>
#include <vector>

#include "event/event_store.h"
#include "sequence/api.h"

/// The event table for a terminal: a heading, then a line for each event in table order, in
/// columns. Measure, beat and tick; the 3D ID or the time signature; distance in metres, azimuth
/// and elevation in degrees; total tick.
ORBIX_API std::vector<std::string> TableLines(const C3DEventData& events);

/// "49 (ID 0: 12, ..., time signatures: 3)".
ORBIX_API std::string CountsText(const C3DEventData& events);

/// "46080 ticks, last event at 25:1:0"; 0 ticks for an empty table.
ORBIX_API std::string LengthText(const C3DEventData& events);
