#include "event/event_store.h"

#include <algorithm>
#include <cassert>
#include <cstddef>

#include "event/exchange_sort.h"

namespace {

constexpr int kAllEvents = -1;

bool IsTimeSig(const _tagEvent3D& event) {
    return event.type == kEventTimeSig;
}

// What the order of the table depends on. The exchange sort compares every pair, so it runs over
// these and each event moves once, at the end.
struct SortKey {
    std::uint32_t tick;
    std::uint32_t type;
    std::uint32_t id;
    std::uint32_t index;
};

// Whether `left` must stand behind `right`. A strict weak ordering for the two types of the table.
// An object and no function, so that the sort's loops hold it in line.
constexpr auto MustFollow = [](const SortKey& left, const SortKey& right) {
    if (left.tick != right.tick) {
        return left.tick > right.tick;
    }
    if (left.type != right.type) {
        return right.type == kEventTimeSig;
    }
    return left.type == kEventPosition && left.id > right.id;
};

bool HasTableType(const _tagEvent3D& event) {
    return event.type == kEventPosition || event.type == kEventTimeSig;
}

std::vector<SortKey> KeysOf(const std::vector<_tagEvent3D>& events) {
    std::vector<SortKey> keys;
    keys.reserve(events.size());
    for (const _tagEvent3D& event : events) {
        keys.push_back({event.tick, event.type, event.id, static_cast<std::uint32_t>(keys.size())});
    }
    return keys;
}

}  // namespace

int C3DEventData::CountEvents(int id) const {
    if (id == kAllEvents) {
        return static_cast<int>(events_.size());
    }
    return countOfId_[static_cast<std::uint8_t>(id)];
}

int C3DEventData::FindEventByUid(const _tagEvent3D& event) const {
    const auto found =
        std::find_if(events_.begin(), events_.end(),
                     [&event](const _tagEvent3D& each) { return each.uid == event.uid; });
    return found == events_.end() ? -1 : static_cast<int>(found - events_.begin());
}

int C3DEventData::FindTimeSigEvent(const _tagEvent3D& event) const {
    if (!IsTimeSig(event)) {
        return -1;
    }
    for (std::size_t i = 0; i < events_.size() && events_[i].tick <= event.tick; ++i) {
        if (events_[i].tick == event.tick && IsTimeSig(events_[i])) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

int C3DEventData::AddEvent(_tagEvent3D* event, int sortFlag) {
    if (event != nullptr) {
        if (const int code = TakeEvent(*event, Recording::on); code != 0) {
            return code;
        }
    }
    if (sortFlag == 1) {
        SortEvents();
    }
    return 0;
}

int C3DEventData::TakeEvent(_tagEvent3D& event, Recording recording) {
    TimeSigState before;
    if (IsTimeSig(event)) {
        event.id = kTimeSigId;
        if (!range_.IsBound() && CountEvents(kTimeSigId) >= kMaxEventsPerId) {
            return kErrorCountLimit;
        }
        if (recording == Recording::on) {
            before = TimeSigsBefore(event);
        }
        if (const int code = map_.AddTimeSig(event); code != 0) {
            return code;
        }
    }
    if (CountEvents(event.id) >= kMaxEventsPerId) {
        return kErrorCountLimit;
    }
    if (!range_.Admits(event.tick)) {
        return kErrorTimeRange;
    }
    event.uid = nextUid_++;
    if (recording == Recording::on) {
        PushHistory(Operation::add, event, _tagEvent3D(), std::move(before));
    }
    AppendEvent(event);
    return 0;
}

void C3DEventData::AppendEvent(const _tagEvent3D& event) {
    events_.push_back(event);
    ++countOfId_[event.id];
}

void C3DEventData::OverwriteEvent(int index, const _tagEvent3D& event) {
    --countOfId_[EventAt(index).id];
    ++countOfId_[event.id];
    EventAt(index) = event;
}

void C3DEventData::EraseEvent(int index) {
    --countOfId_[EventAt(index).id];
    events_.erase(events_.begin() + index);
}

int C3DEventData::ReplaceEvent(int index, _tagEvent3D& event) {
    const _tagEvent3D old = EventAt(index);
    if (event.uid != old.uid && CountEvents(event.id) >= kMaxEventsPerId) {
        return kErrorCountLimit;
    }
    if (!range_.Admits(event.tick)) {
        return kErrorTimeRange;
    }
    const int occupant = FindTimeSigEvent(event);
    if (occupant >= 0 && occupant != index) {
        return kErrorTimeSigExists;
    }
    if (event.type != old.type) {
        return kErrorEventType;
    }
    event.uid = old.uid;
    PushHistory(Operation::replace, event, old, TimeSigsBefore(event));
    if (IsTimeSig(event) && !EventsEqual(event, old)) {
        map_.ChangeTimeSig(event, old);
    }
    OverwriteEvent(index, event);
    SortEvents();
    return 0;
}

void C3DEventData::RemoveEvent(int index) {
    const _tagEvent3D event = EventAt(index);
    PushHistory(Operation::remove, event, _tagEvent3D(), TimeSigsBefore(event));
    if (IsTimeSig(event)) {
        map_.RemoveTimeSig(event);
    }
    EraseEvent(index);
    SortEvents();
}

void C3DEventData::SortEvents() {
    std::vector<SortKey> keys = KeysOf(events_);
    if (std::all_of(events_.begin(), events_.end(), HasTableType)) {
        ExchangeSort(keys, MustFollow);
    } else {
        ExchangeSortLiterally(keys, MustFollow);
    }
    std::vector<_tagEvent3D> sorted;
    sorted.reserve(events_.size());
    for (const SortKey& key : keys) {
        sorted.push_back(events_[key.index]);
    }
    events_.swap(sorted);
    if (!range_.IsBound()) {
        RealignTimeSigs();
    }
    CheckInvariants();
}

// Records keep their measure while their ticks are reckoned anew; the events follow their records.
// Positions keep their ticks, so it is their measure that changes.
void C3DEventData::RealignTimeSigs() {
    const std::vector<t_tSigMapRec>& records = map_.Records();
    std::vector<_tagEvent3D> moved;
    std::size_t left = records.size();
    for (std::size_t i = events_.size(); i-- > 0 && left > 0;) {
        if (!IsTimeSig(events_[i])) {
            continue;
        }
        --left;
        if (events_[i].tick != records[left].totalTick) {
            events_[i].tick = records[left].totalTick;
            moved.push_back(events_[i]);
            events_.erase(events_.begin() + static_cast<std::ptrdiff_t>(i));
        }
    }
    for (const _tagEvent3D& event : moved) {
        const auto place =
            std::find_if(events_.begin(), events_.end(),
                         [&event](const _tagEvent3D& each) { return each.tick >= event.tick; });
        events_.insert(place, event);
    }
}

void C3DEventData::BuildViewList(const std::array<int, kSourceCount>& flags,
                                 std::vector<int>& view) const {
    view.clear();
    for (std::size_t i = 0; i < events_.size(); ++i) {
        const _tagEvent3D& event = events_[i];
        if (event.type != kEventPosition || (event.id < kSourceCount && flags[event.id] != 0)) {
            view.push_back(static_cast<int>(i));
        }
    }
}

void C3DEventData::ClearEvents() {
    events_.clear();
    countOfId_.fill(0);
    map_.Clear();
    ClearHistory();
}

C3DEventData C3DEventData::Emptied() const {
    C3DEventData store(range_.mode, range_.start, range_.end);
    store.nextUid_ = nextUid_;
    store.currentUid_ = currentUid_;
    store.map_.SetDivision(map_.Division());
    store.toolTimeSigs_ = toolTimeSigs_;
    return store;
}

void C3DEventData::CheckInvariants() const {
#ifndef NDEBUG
    assert(position_ >= 0 && position_ <= static_cast<int>(history_.size()));
    const std::vector<SortKey> keys = KeysOf(events_);
    assert(std::adjacent_find(keys.begin(), keys.end(), MustFollow) == keys.end());
    std::vector<std::int32_t> uids;
    std::array<int, 256> counts{};
    for (const _tagEvent3D& event : events_) {
        uids.push_back(event.uid);
        ++counts[event.id];
    }
    assert(counts == countOfId_);
    std::sort(uids.begin(), uids.end());
    assert(std::adjacent_find(uids.begin(), uids.end()) == uids.end());
    if (range_.IsBound()) {
        return;
    }
    std::vector<std::uint32_t> eventTicks;
    for (const _tagEvent3D& event : events_) {
        if (IsTimeSig(event)) {
            eventTicks.push_back(event.tick);
        }
    }
    std::vector<std::uint32_t> recordTicks;
    for (const t_tSigMapRec& record : map_.Records()) {
        recordTicks.push_back(record.totalTick);
    }
    assert(eventTicks == recordTicks);
#endif
}
