#include <algorithm>
#include <utility>

#include "event/event_store.h"

int C3DEventData::UndoEvent(std::int32_t& uid) {
    if (!CanUndo()) {
        return 0;
    }
    HistoryEntry& entry = history_[static_cast<std::size_t>(--position_)];
    uid = entry.selection;
    switch (entry.operation) {
        case Operation::add:
            TakeOut(entry);
            break;
        case Operation::replace:
            Overwrite(entry, entry.old);
            break;
        case Operation::remove:
            PutBack(entry);
            uid = entry.event.uid;
            break;
    }
    SortEvents();
    return 1;
}

int C3DEventData::RedoEvent(std::int32_t& uid) {
    if (!CanRedo()) {
        return 0;
    }
    HistoryEntry& entry = history_[static_cast<std::size_t>(position_++)];
    uid = entry.selection;
    switch (entry.operation) {
        case Operation::add:
            PutBack(entry);
            uid = entry.event.uid;
            break;
        case Operation::replace:
            Overwrite(entry, entry.event);
            break;
        case Operation::remove:
            TakeOut(entry);
            break;
    }
    SortEvents();
    return 1;
}

void C3DEventData::ClearHistory() {
    history_.clear();
    position_ = 0;
}

bool C3DEventData::EventsEqual(const _tagEvent3D& left, const _tagEvent3D& right) {
    if (left.tick != right.tick || left.type != right.type) {
        return false;
    }
    switch (left.type) {
        case kEventPosition:
            return left.distance == right.distance && left.azimuth == right.azimuth &&
                   left.elevation == right.elevation;
        case kEventTimeSig:
            return left.numerator == right.numerator && left.denominator == right.denominator;
        default:
            return false;
    }
}

// Taking a time signature back by the reverse call on the map would not always restore it: the
// record may have come to stand at another tick than was asked for, and a tick from before the
// change is another measure after it. So the entry of a time signature keeps the records and the
// ticks of all time-signature events, at most 256 of each, as they were.
C3DEventData::TimeSigState C3DEventData::TimeSigsBefore(const _tagEvent3D& event) const {
    TimeSigState state;
    if (event.type == kEventTimeSig) {
        state.records = map_.Records();
        for (const _tagEvent3D& each : events_) {
            if (each.type == kEventTimeSig) {
                state.ticks.emplace_back(each.uid, each.tick);
            }
        }
    }
    return state;
}

void C3DEventData::RestoreTimeSigs(const TimeSigState& state) {
    map_.SetRecords(state.records);
    for (_tagEvent3D& event : events_) {
        if (event.type != kEventTimeSig) {
            continue;
        }
        const auto tick =
            std::find_if(state.ticks.begin(), state.ticks.end(),
                         [&event](const auto& each) { return each.first == event.uid; });
        if (tick != state.ticks.end()) {
            event.tick = tick->second;
        }
    }
}

void C3DEventData::PushHistory(Operation operation, const _tagEvent3D& event,
                               const _tagEvent3D& old, TimeSigState before) {
    if (operation == Operation::replace && EventsEqual(event, old)) {
        return;
    }
    history_.erase(history_.begin() + position_, history_.end());
    const std::int32_t selection = operation == Operation::replace ? event.uid : currentUid_;
    history_.push_back({operation, event, old, selection, std::move(before)});
    history_.back().event.visible = 1;
    history_.back().old.visible = 1;
    ++position_;
}

// Runs one step over the table and, for a time signature, exchanges the state that the entry keeps
// for the one that the step leaves behind.
template <typename Change>
void C3DEventData::StepHistory(HistoryEntry& entry, const Change& change) {
    TimeSigState leaving = TimeSigsBefore(entry.event);
    change();
    if (entry.event.type == kEventTimeSig) {
        RestoreTimeSigs(entry.timeSigs);
        entry.timeSigs = std::move(leaving);
    }
}

void C3DEventData::TakeOut(HistoryEntry& entry) {
    if (const int index = FindEventByUid(entry.event); index >= 0) {
        StepHistory(entry, [this, index] { EraseEvent(index); });
    }
}

void C3DEventData::PutBack(HistoryEntry& entry) {
    StepHistory(entry, [this, &entry] { AppendEvent(entry.event); });
}

void C3DEventData::Overwrite(HistoryEntry& entry, const _tagEvent3D& event) {
    if (const int index = FindEventByUid(entry.event); index >= 0) {
        StepHistory(entry, [this, index, &event] { OverwriteEvent(index, event); });
    }
}
