#include "event/csv_writer.h"

#include <initializer_list>
#include <string>

namespace {

constexpr const char* kCsvHeader = "3D ID,Meas,Beat,Tick,Distance,Azimuth,Elevation,TimeSig.\r\n";

void AppendNumbers(CString& text, std::initializer_list<std::int64_t> numbers) {
    const char* separator = "";
    for (const std::int64_t number : numbers) {
        text += separator;
        text += std::to_string(number);
        separator = ",";
    }
}

void AppendTimeSig(CString& text, const t_MBT& mbt, const _tagEvent3D& event) {
    text += ',';
    AppendNumbers(text, {mbt.measure, mbt.beat, mbt.tick});
    text += ",,,,";
    AppendNumbers(text, {event.numerator});
    text += '_';
    AppendNumbers(text, {event.denominator});
    text += "\r\n";
}

void AppendEvent(CString& text, const t_MBT& mbt, const _tagEvent3D& event) {
    if (event.type == kEventTimeSig) {
        AppendTimeSig(text, mbt, event);
    } else if (event.type == kEventPosition) {
        AppendNumbers(text, {event.id, mbt.measure, mbt.beat, mbt.tick, event.distance,
                             event.azimuth, event.elevation});
        text += "\r\n";
    }
}

template <typename IsOutside>
void AppendRecords(CString& text, const C3DTimeSigMap& map, const IsOutside& isOutside) {
    for (const t_tSigMapRec& record : map.Records()) {
        if (isOutside(record.totalTick)) {
            AppendTimeSig(text, record.Position(), TimeSigEventOf(record));
        }
    }
}

}  // namespace

CString WriteCsv(const std::vector<_tagEvent3D>& events, const C3DTimeSigMap& map,
                 const EventRange& range) {
    CString text = "Division,";
    AppendNumbers(text, {map.Division()});
    text += "\r\n";
    text += kCsvHeader;
    AppendRecords(text, map,
                  [&range](std::uint32_t tick) { return range.IsBound() && tick < range.start; });
    for (const _tagEvent3D& event : events) {
        AppendEvent(text, map.TickToMBT(event.tick), event);
    }
    AppendRecords(text, map,
                  [&range](std::uint32_t tick) { return range.IsBound() && tick > range.end; });
    return text;
}
