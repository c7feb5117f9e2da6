#include <cstddef>
#include <memory>

#include "event/event_check.h"
#include "event/event_store.h"
#include "event/time_sig_list.h"
#include "params/device_message.h"
#include "params/pattern_requests.h"
#include "params/position_block.h"
#include "platform/hooks.h"

namespace {

// The first of the seven parameters of a position block: tick, id, two without meaning here,
// azimuth, elevation, distance.
constexpr std::uint32_t kPositionTick = 2800;
constexpr std::size_t kPositionParameters = 7;

// Wraps at 16 bits, as the field does.
std::int16_t FromWire(int wire) {
    return static_cast<std::int16_t>(DegreesFromWire(wire));
}

_tagEvent3D GetPositionEvent(const CQelCPB_3DPattern& pattern, int index) {
    std::uint32_t values[kPositionParameters];
    for (std::size_t i = 0; i < kPositionParameters; ++i) {
        values[i] =
            PatternValue(pattern, kPatternPositionTick + static_cast<std::uint32_t>(i), index);
    }
    _tagEvent3D event;
    event.tick = values[0];
    event.id = static_cast<std::uint8_t>(values[1]);
    event.azimuth = FromWire(static_cast<std::uint16_t>(values[4]));
    event.elevation = FromWire(static_cast<std::int8_t>(values[5]));
    event.distance = static_cast<std::uint16_t>(values[6]);
    return event;
}

std::unique_ptr<CQelCPB_3DPosition> MakePositionBlock(const _tagEvent3D& event) {
    const std::uint32_t values[kPositionParameters] = {event.tick,
                                                       event.id,
                                                       0,
                                                       0,
                                                       WireFromDegrees(event.azimuth),
                                                       WireFromDegrees(event.elevation),
                                                       event.distance};
    auto block = std::make_unique<CQelCPB_3DPosition>();
    for (std::size_t i = 0; i < kPositionParameters; ++i) {
        st_paramValue record{-1, values[i]};
        block->SetParam(kPositionTick + static_cast<std::uint32_t>(i), &record, kSizeParamValue);
    }
    return block;
}

}  // namespace

int C3DEventData::LoadFromPattern(CQelCPB_3DPattern* pattern, C3DReport& report) {
    if (pattern == nullptr) {
        return 0;
    }
    const CWaitCursor wait;
    report.Clear();
    C3DEventData loaded = Emptied();
    const bool hasTimeSigs = loaded.TakeTimeSigs(*pattern, report);
    // In range mode the user can't change time signatures, so remarks on them mark no change.
    const std::size_t baseline = range_.IsBound() ? report.Lines().size() : 0;
    const bool complete = hasTimeSigs && loaded.TakePositions(*pattern, report);
    *this = std::move(loaded);
    if (!complete) {
        return 0;
    }
    ShowReport(report);
    return report.Lines().size() > baseline ? 1 : 0;
}

bool C3DEventData::TakeTimeSigs(CQelCPB_3DPattern& pattern, C3DReport& report) {
    st_paramValue division{-1, 0};
    if (!pattern.GetParam(kPatternDivision, &division, kSizeParamValue)) {
        return false;
    }
    map_.SetDivision(division.value);
    toolTimeSigs_.clear();
    st_paramTimeSigRecords reference{&toolTimeSigs_};
    if (!pattern.GetParam(kPatternTimeSigs, &reference, kSizeReference)) {
        return false;
    }
    std::vector<TimeSigEntry> entries;
    for (const t_tSigRec& record : toolTimeSigs_) {
        entries.push_back({static_cast<int>(entries.size()),
                           TimeSigEventOf({1, 1, 0, 0, record.numerator, record.denominator}),
                           {record.measure, record.beat, record.tick}});
    }
    C3DTimeSigMap checked(division.value);
    for (_tagEvent3D& event : CheckTimeSigs(std::move(entries), range_, checked, report)) {
        TakeEvent(event, Recording::off);
    }
    SortEvents();
    return true;
}

bool C3DEventData::TakePositions(CQelCPB_3DPattern& pattern, C3DReport& report) {
    st_paramValue record{-1, 0};
    if (!pattern.GetParam(kPatternPositionCount, &record, kSizeParamValue)) {
        return false;
    }
    const int count = static_cast<std::int16_t>(record.value);
    const int firstIndex = static_cast<int>(toolTimeSigs_.size());
    for (int i = 0; i < count; ++i) {
        _tagEvent3D event = GetPositionEvent(pattern, i);
        t_MBT anyPlace;  // the time of a position is its tick
        if (CheckEvent(firstIndex + i, range_, map_, event, anyPlace, report) == 0) {
            TakeEvent(event, Recording::off);
        }
    }
    SortEvents();
    return true;
}

void C3DEventData::StoreToPattern(CQelCPB_3DPattern* pattern, std::string_view name) const {
    if (pattern == nullptr) {
        return;
    }
    const std::uint32_t failures = SwallowedFailures();
    st_paramName nameRecord(name);
    pattern->SetParam(kPatternName, &nameRecord, kSizeParamName);
    pattern->DoParam(kPatternClearPositions, nullptr, 0);
    if (!range_.IsBound()) {
        st_paramValue division{-1, map_.Division()};
        pattern->SetParam(kPatternDivision, &division, kSizeParamValue);
    }
    StorePositions(*pattern);
    std::vector<t_tSigRec> timeSigs = range_.IsBound() ? toolTimeSigs_ : PatternTimeSigs();
    st_paramTimeSigRecords reference{&timeSigs};
    pattern->SetParam(kPatternTimeSigs, &reference, kSizeReference);
    RaiseFailuresSince(failures);
}

void C3DEventData::StorePositions(CQelCPB_3DPattern& pattern) const {
    for (std::size_t i = 0; i < events_.size(); ++i) {
        if (events_[i].type != kEventPosition) {
            continue;
        }
        auto block = MakePositionBlock(events_[i]);
        // The index counts time signatures too; where no event has it, the block is appended.
        st_paramChild child{0, static_cast<std::int32_t>(i), block.get()};
        if (pattern.SetParam(kPatternPosition, &child, kSizeParamChild)) {
            static_cast<void>(block.release());
        }
    }
}

std::vector<t_tSigRec> C3DEventData::PatternTimeSigs() const {
    std::vector<t_tSigRec> records;
    for (const _tagEvent3D& event : events_) {
        if (event.type == kEventTimeSig) {
            const t_MBT mbt = map_.TickToMBT(event.tick);
            records.push_back(
                {0, mbt.measure, mbt.beat, mbt.tick, event.numerator, event.denominator});
        }
    }
    return records;
}
