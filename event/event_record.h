#pragma once

#include <cstdint>

#include "sequence/musical_types.h"

/// What an event is (`_tagEvent3D::type`). The range markers never enter the store: the list view
/// makes them for its first and last row.
inline constexpr std::uint32_t kEventPosition = 0;
inline constexpr std::uint32_t kEventTimeSig = 1;
inline constexpr std::uint32_t kEventRangeStart = 2;
inline constexpr std::uint32_t kEventRangeEnd = 3;

/// Number of sound sources; position events carry a 3D ID of 0 to kSourceCount - 1.
inline constexpr int kSourceCount = 4;
/// The id that every time-signature event carries and is counted under.
inline constexpr std::uint8_t kTimeSigId = 5;
/// The uid of an event that no store has taken yet, and "no current event".
inline constexpr std::int32_t kNoUid = -1;

/// Free mode: everything may be edited. Range mode: position events are bound to a range of ticks
/// and time signatures are read-only.
inline constexpr int kFreeMode = 0;
inline constexpr int kRangeMode = 1;

/// One event of the table. A default-constructed one is the blank event: a position event of
/// source 0 at tick 0, one metre straight ahead, shown, not yet in a store.
struct _tagEvent3D {
    std::uint32_t type = kEventPosition;
    /// Beats per measure, 1 to 64; time signatures only.
    std::uint32_t numerator = 0;
    /// Note value of a beat: 2, 4, 8, 16 or 32; time signatures only.
    std::uint32_t denominator = 0;
    /// 3D ID, 0 to 3; kTimeSigId for time signatures; 0 for markers.
    std::uint8_t id = 0;
    /// Total ticks from the start of the pattern.
    std::uint32_t tick = 0;
    /// Millimetres, 0 to 12750 on a grid of 50.
    std::uint16_t distance = 1000;
    /// Degrees, -180 to 177 on a grid of 3.
    std::int16_t azimuth = 0;
    /// Degrees, -90 to 90 on a grid of 3.
    std::int16_t elevation = 0;
    /// Given by the store, unique within the store's life.
    std::int32_t uid = kNoUid;
    /// 1 drawn on the graph, 0 hidden there.
    std::int32_t visible = 1;

    bool operator==(const _tagEvent3D&) const = default;
};

/// The event that stands for a record of the time-signature map.
inline _tagEvent3D TimeSigEventOf(const t_tSigMapRec& record) {
    _tagEvent3D event;
    event.type = kEventTimeSig;
    event.numerator = record.numerator;
    event.denominator = record.denominator;
    event.tick = record.totalTick;
    return event;
}

/// The ticks that a store admits for position events, both ends inclusive; unbound in free mode.
struct EventRange {
    int mode = kFreeMode;
    std::uint32_t start = 0;
    std::uint32_t end = 0;

    bool IsBound() const { return mode == kRangeMode; }
    bool Admits(std::uint32_t tick) const { return !IsBound() || (tick >= start && tick <= end); }
};
