#pragma once

#include "event/event_record.h"
#include "event/report.h"
#include "event/time_sig_map.h"
#include "sequence/musical_types.h"

/// Puts one entry of a load right or turns it away. `index` is what the report lines begin with.
/// A time signature gets its tick from `mbt` and is taken into `map`; one that starts inside a
/// measure moves to the next, and one whose tick has no room in 32 bits is turned away. A position
/// event keeps its tick; its values are brought onto their grids and into their limits, an
/// elevation past the pole with the azimuth turned round. 0 when the event may be taken in, else a
/// code. `event` and `mbt` may be changed, and `report` may have new lines, in both cases.
int CheckEvent(int index, const EventRange& range, C3DTimeSigMap& map, _tagEvent3D& event,
               t_MBT& mbt, C3DReport& report);
