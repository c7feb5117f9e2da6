#include "event/pattern_range.h"

#include <cstdint>

#include "params/pattern_form.h"
#include "params/pattern_requests.h"

namespace {

void AppendPositions(const CQelCPB_3DPattern& from, const EventRange& range, bool inside,
                     CQelCPB_3DPattern& to) {
    const std::uint32_t failures = SwallowedFailures();
    const auto count = static_cast<std::int32_t>(PatternValue(from, kPatternPositionCount));
    for (std::int32_t i = 0; i < count; ++i) {
        st_paramChild child{0, i, nullptr};
        if (range.Admits(PatternValue(from, kPatternPositionTick, i)) != inside ||
            !from.GetParam(kPatternPosition, &child, kSizeParamChild)) {
            continue;
        }
        auto copy = child.block->Clone();
        st_paramChild appended{0, -1, copy.get()};
        if (to.SetParam(kPatternPosition, &appended, kSizeParamChild)) {
            static_cast<void>(copy.release());
        }
    }
    RaiseFailuresSince(failures);
}

}  // namespace

std::unique_ptr<CQelCPB_3DPattern> PatternInside(const CQelCPB_3DPattern& pattern,
                                                 const EventRange& range) {
    auto kept = CopyPattern(pattern);
    kept->DoParam(kPatternClearPositions, nullptr, 0);
    AppendPositions(pattern, range, true, *kept);
    return kept;
}

void AppendOutside(const CQelCPB_3DPattern& from, const EventRange& range, CQelCPB_3DPattern& to) {
    AppendPositions(from, range, false, to);
}
