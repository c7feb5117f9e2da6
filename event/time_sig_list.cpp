#include "event/time_sig_list.h"

#include <algorithm>
#include <utility>

#include "event/event_check.h"

namespace {

// One inside a measure is going to move to the next.
std::uint32_t StartMeasure(const t_MBT& place) {
    return place.measure + (place.beat == 1 && place.tick == 0 ? 0 : 1);
}

}  // namespace

std::vector<_tagEvent3D> CheckTimeSigs(std::vector<TimeSigEntry> entries, const EventRange& range,
                                       C3DTimeSigMap& map, C3DReport& report) {
    std::stable_sort(entries.begin(), entries.end(), [](const auto& left, const auto& right) {
        return StartMeasure(left.place) < StartMeasure(right.place);
    });
    std::vector<_tagEvent3D> events;
    std::vector<std::pair<int, C3DReport>> remarks;
    for (TimeSigEntry& entry : entries) {
        C3DReport own;
        if (CheckEvent(entry.index, range, map, entry.event, entry.place, own) == 0) {
            events.push_back(entry.event);
        }
        if (!own.IsEmpty()) {
            remarks.emplace_back(entry.index, std::move(own));
        }
    }
    std::stable_sort(remarks.begin(), remarks.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    for (const auto& [index, own] : remarks) {
        for (const CString& line : own.Lines()) {
            report.AddLine(line);
        }
    }
    return events;
}
