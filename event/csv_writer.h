#pragma once

#include <vector>

#include "event/event_record.h"
#include "event/time_sig_map.h"
#include "platform/types.h"

/// The CSV text of a table: division line, header line, in range mode the map's records before the
/// range, the events in the order given, in range mode the records behind the range. Markers give
/// no line. Line ends are CR LF.
CString WriteCsv(const std::vector<_tagEvent3D>& events, const C3DTimeSigMap& map,
                 const EventRange& range);
