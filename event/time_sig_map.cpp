#include "event/time_sig_map.h"

#include <algorithm>
#include <utility>

#include "event/exchange_sort.h"
#include "event/report.h"
#include "sequence/musical_time.h"

namespace {

bool StandsBehind(const t_tSigMapRec& left, const t_tSigMapRec& right) {
    return left.totalTick > right.totalTick;
}

bool HoldsTick(const t_tSigMapRec& left, const t_tSigMapRec& right) {
    return left.totalTick == right.totalTick;
}

}  // namespace

t_MBT C3DTimeSigMap::TickToMBT(std::uint32_t tick) const {
    t_MBT mbt;
    TickToMeasure(tick, division_, records_, mbt);
    return mbt;
}

std::uint32_t C3DTimeSigMap::MBTToTick(const t_MBT& mbt) const {
    return MeasureToTick(mbt, division_, records_);
}

t_tSigMapRec C3DTimeSigMap::TimeSigAt(std::uint32_t tick) const {
    const auto record =
        std::find_if(records_.rbegin(), records_.rend(),
                     [tick](const t_tSigMapRec& each) { return each.totalTick <= tick; });
    return record == records_.rend() ? t_tSigMapRec() : *record;
}

int C3DTimeSigMap::FindTimeSigRec(const _tagEvent3D& event) const {
    // Settled records rise, and a load may ask for a hundred thousand of them.
    const auto record =
        settled_ ? std::ranges::lower_bound(records_, event.tick, {}, &t_tSigMapRec::totalTick)
                 : std::ranges::find(records_, event.tick, &t_tSigMapRec::totalTick);
    const bool found = record != records_.end() && record->totalTick == event.tick;
    return found ? static_cast<int>(record - records_.begin()) : -1;
}

int C3DTimeSigMap::AddTimeSig(const _tagEvent3D& event) {
    if (AppendSettled(event)) {
        return 0;
    }
    if (FindTimeSigRec(event) >= 0) {
        return kErrorTimeSigExists;
    }
    records_.push_back(RecordFor(event));
    NormalizeTimeSigs();
    return 0;
}

void C3DTimeSigMap::ChangeTimeSig(const _tagEvent3D& event, const _tagEvent3D& old) {
    const int index = FindTimeSigRec(old);
    if (index < 0) {
        return;
    }
    const t_tSigMapRec changed = RecordFor(event);
    records_[static_cast<std::size_t>(index)] = changed;
    NormalizeTimeSigs();
}

void C3DTimeSigMap::RemoveTimeSig(const _tagEvent3D& event) {
    const int index = FindTimeSigRec(event);
    if (index < 0) {
        return;
    }
    records_.erase(records_.begin() + index);
    NormalizeTimeSigs();
}

// Reckoning puts the records out of order only when a tick wraps at 32 bits; they are left in
// order then too, because the table takes its order from them.
void C3DTimeSigMap::NormalizeTimeSigs() {
    ExchangeSort(records_, StandsBehind);
    std::vector<t_tSigMapRec> earlier;
    earlier.reserve(records_.size());
    for (t_tSigMapRec& record : records_) {
        record.totalTick = MeasureToTick(record.Position(), division_, earlier);
        earlier.push_back(record);
    }
    ExchangeSort(records_, StandsBehind);
    settled_ = records_ == earlier &&
               std::adjacent_find(records_.begin(), records_.end(), HoldsTick) == records_.end();
}

// Behind settled records a new one changes none of them, which saves loads of many records from
// reckoning all of them for each.
bool C3DTimeSigMap::AppendSettled(const _tagEvent3D& event) {
    const auto isLast = [this](std::uint32_t tick) {
        return records_.empty() || records_.back().totalTick < tick;
    };
    if (!settled_ || !isLast(event.tick)) {
        return false;
    }
    t_tSigMapRec record = RecordFor(event);
    record.totalTick = MBTToTick(record.Position());
    if (!isLast(record.totalTick)) {
        return false;
    }
    records_.push_back(record);
    return true;
}

t_tSigMapRec C3DTimeSigMap::RecordFor(const _tagEvent3D& event) const {
    const t_MBT mbt = TickToMBT(event.tick);
    return {mbt.measure, mbt.beat, mbt.tick, event.tick, event.numerator, event.denominator};
}
