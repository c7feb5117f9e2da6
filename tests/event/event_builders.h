#pragma once

#include <tuple>
#include <vector>

#include "event/event_store.h"

inline _tagEvent3D Position(std::uint8_t id, std::uint32_t tick, std::uint16_t distance = 1000) {
    _tagEvent3D event;
    event.id = id;
    event.tick = tick;
    event.distance = distance;
    return event;
}

inline _tagEvent3D TimeSig(std::uint32_t tick, std::uint32_t numerator, std::uint32_t denominator) {
    return TimeSigEventOf({1, 1, 0, tick, numerator, denominator});
}

inline std::vector<_tagEvent3D> Table(const C3DEventData& store) {
    std::vector<_tagEvent3D> events;
    for (int i = 0; i < store.CountEvents(-1); ++i) {
        events.push_back(store.EventAt(i));
    }
    return events;
}

inline std::vector<t_tSigMapRec> Map(const C3DEventData& store) {
    std::vector<t_tSigMapRec> records;
    store.CopyTimeSigMap(records);
    return records;
}

/// Adds an event by value and gives what AddEvent gives.
inline int Add(C3DEventData& store, _tagEvent3D event, int sortFlag = 1) {
    return store.AddEvent(&event, sortFlag);
}

inline void AddAll(C3DEventData& store, const std::vector<_tagEvent3D>& events) {
    for (const _tagEvent3D& event : events) {
        Add(store, event);
    }
}

inline int Replace(C3DEventData& store, int index, _tagEvent3D event) {
    return store.ReplaceEvent(index, event);
}

/// Everything of a store that a refused operation must leave as it was.
inline auto StateOf(const C3DEventData& store) {
    return std::tuple(Table(store), Map(store), store.Division(), store.CanUndo(), store.CanRedo());
}
