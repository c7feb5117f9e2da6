#pragma once

#include <vector>

#include "event/event_record.h"
#include "event/report.h"
#include "event/time_sig_map.h"
#include "sequence/musical_types.h"

/// A time signature of a load: the index that its remarks begin with, and where it stands.
struct TimeSigEntry {
    int index;
    _tagEvent3D event;
    t_MBT place;
};

/// Checks the time signatures of a load and takes them into `map` in order of their measures,
/// whatever order they come in: taken in as they come, one before others would move those, and the
/// tick that such an event got would tie it to a wrong record. Of two at one measure the first
/// that came is taken. Gives the events that were taken, in rising order of tick; the remarks come
/// in the order of the entries.
std::vector<_tagEvent3D> CheckTimeSigs(std::vector<TimeSigEntry> entries, const EventRange& range,
                                       C3DTimeSigMap& map, C3DReport& report);
