#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "event/event_record.h"
#include "sequence/api.h"
#include "sequence/musical_types.h"

/// Division of a new store, ticks per quarter note.
inline constexpr std::uint32_t kDefaultDivision = 480;

/// Links total ticks with measure, beat and tick: a division and the time signatures in rising
/// order of total tick. A record keeps its measure for good; its total tick follows from the
/// records before it and is reckoned anew after every change. Where no record applies, 4/4 is in
/// force from the start. Owned by value, no locks. Arithmetic is unsigned 32-bit and wraps.
class ORBIX_API C3DTimeSigMap {
public:
    explicit C3DTimeSigMap(std::uint32_t division = kDefaultDivision) : division_(division) {}

    /// Ticks per quarter note. Changing it rescales nothing: ticks keep their numbers and are
    /// read as other measures.
    std::uint32_t Division() const { return division_; }
    void SetDivision(std::uint32_t division) {
        division_ = division;
        settled_ = records_.empty();
    }

    const std::vector<t_tSigMapRec>& Records() const { return records_; }
    /// Puts records back as `Records` gave them; nothing is reckoned anew.
    void SetRecords(std::vector<t_tSigMapRec> records) {
        records_ = std::move(records);
        settled_ = records_.empty();
    }
    void Clear() { SetRecords({}); }

    t_MBT TickToMBT(std::uint32_t tick) const;
    std::uint32_t MBTToTick(const t_MBT& mbt) const;
    /// The time signature in force at a tick: the last record at or before it, else the default.
    t_tSigMapRec TimeSigAt(std::uint32_t tick) const;
    /// Index of the first record at the event's tick, -1 when there is none.
    int FindTimeSigRec(const _tagEvent3D& event) const;

    /// Takes a time-signature event in at the measure that its tick has under the present
    /// records. 0, or kErrorTimeSigExists when a record stands at that tick.
    int AddTimeSig(const _tagEvent3D& event);
    /// Overwrites the record at the old event's tick. The new tick is read under the present
    /// records, the overwritten one included. Nothing happens when there is no such record.
    void ChangeTimeSig(const _tagEvent3D& event, const _tagEvent3D& old);
    /// Takes the record at the event's tick out; nothing when there is none.
    void RemoveTimeSig(const _tagEvent3D& event);
    /// Orders the records by total tick, then reckons each total tick from the records before it.
    /// They are in rising order afterwards.
    void NormalizeTimeSigs();

private:
    t_tSigMapRec RecordFor(const _tagEvent3D& event) const;
    bool AppendSettled(const _tagEvent3D& event);

    std::uint32_t division_;
    std::vector<t_tSigMapRec> records_;
    // The records stand in strictly rising order where reckoning puts them under this division,
    // so that reckoning them once more would change nothing.
    bool settled_ = true;
};
