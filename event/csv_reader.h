#pragma once

#include <string_view>
#include <vector>

#include "event/event_record.h"
#include "event/report.h"
#include "event/time_sig_map.h"

/// What a CSV text holds, checked and put right, before a store takes it.
struct CsvContent {
    C3DTimeSigMap map;
    /// Time signatures in rising order of tick, an added 4/4 behind them, then position events as
    /// the text has them.
    std::vector<_tagEvent3D> events;
};

/// Reads a CSV text. Asks whether the division is 480 when the text doesn't name it. 0,
/// kErrorFormat, kErrorDivision or kErrorNoData; `report` takes the remarks on single lines.
int ReadCsv(std::string_view text, const EventRange& range, CsvContent& content, C3DReport& report);
