#include "event/left_out.h"

#include <algorithm>
#include <vector>

#include "params/pattern_requests.h"
#include "params/value_forms.h"

namespace {

std::size_t TimeSigCount(const CQelCPB_3DPattern& pattern) {
    std::vector<t_tSigRec> records;
    st_paramTimeSigRecords reference{&records};
    pattern.GetParam(kPatternTimeSigs, &reference, kSizeReference);
    return records.size();
}

}  // namespace

void AddLeftOut(C3DReport& report, std::ptrdiff_t count) {
    if (count > 0) {
        report.AddLine(std::to_string(count) + " events over the limit of " +
                       std::to_string(kMaxEventsPerId) + " an ID (Entries ignored)");
    }
}

void AddLeftOutOfPattern(const CQelCPB_3DPattern& pattern, const C3DEventData& store,
                         C3DReport& report) {
    const std::vector<CString>& lines = report.Lines();
    const auto told = std::count_if(lines.begin(), lines.end(), [](const CString& line) {
        return line.ends_with("(Entry ignored)");
    });
    const std::uint32_t positions = PatternValue(pattern, kPatternPositionCount);
    const auto given = static_cast<std::ptrdiff_t>(positions + TimeSigCount(pattern));
    AddLeftOut(report, given - store.CountEvents(-1) - told);
}

std::string PatternName(const CQelCPB_3DPattern& pattern) {
    st_paramName record;
    pattern.GetParam(kPatternName, &record, kSizeParamName);
    return record.name;
}
