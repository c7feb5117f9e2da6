#pragma once

#include <string>
#include <vector>

#include "event/event_store.h"
#include "sequence/api.h"

/// The event table for a terminal: a heading, then a line for each event in table order, in
/// columns. Measure, beat and tick; the 3D ID or the time signature; distance in metres, azimuth
/// and elevation in degrees; total tick.
ORBIX_API std::vector<std::string> TableLines(const C3DEventData& events);
