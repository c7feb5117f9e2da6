#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "sequence/api.h"
#include "sequence/seq_event.h"
#include "sequence/strstream.h"

/// True when the first event goes before the second.
using SeqEventCompare = bool (*)(const CZurSeqEvent* first, const CZurSeqEvent* second);

/// One track chunk of a Standard MIDI File: its tag and its events in playing order. Events hold
/// delta times only; the absolute tick of an event is the sum of the deltas up to and including it
/// (unsigned 32 bits, wraps). `InsertEventAtTime` and the two removals keep the absolute ticks of
/// all other events; the other changes leave deltas alone.
///
/// Events count from 1, where nothing else is said. An event that is exactly FF 2F 00 is the end
/// marker; nothing adds one and only `InsertEventAtTime` treats it specially.
///
/// The track owns its events. Pointers that it hands out are borrowed; events handed to it are its
/// own from then on. A number or pointer that names no event makes an operation do nothing or give
/// false, 0 or null. Only `Read` and what makes a track of something raise. One thread at a time.
class ORBIX_API CZurSeqTrack {
public:
    /// Tag "MTrk", no events.
    CZurSeqTrack() = default;
    /// The tag as a big-endian word.
    explicit CZurSeqTrack(std::uint32_t tag);
    /// Runs `Read`; what it raises passes on.
    explicit CZurSeqTrack(std::strstream& stream);
    /// Deep copies. They raise what an event's copy constructor raises (-100).
    CZurSeqTrack(const CZurSeqTrack& other);
    CZurSeqTrack& operator=(const CZurSeqTrack& other);

    virtual ~CZurSeqTrack();                           // 1
    virtual void GetChunkTag(std::string& tag) const;  // 2
    virtual std::uint32_t GetEventCount() const;       // 3
    /// In front of event `index`, behind the last for any other number. A null event is ignored.
    virtual void InsertEvent(std::uint32_t index, CZurSeqEvent* event);  // 4
    /// At an absolute tick, behind events of the same tick, but always in front of a closing end
    /// marker, which moves along when the tick lies behind it. A null event is ignored.
    virtual void InsertEventAtTime(std::uint32_t tick, CZurSeqEvent* event);  // 5
    /// The event that follows keeps its absolute tick. Without `destroy` the caller owns the event
    /// again.
    virtual void RemoveEvent(CZurSeqEvent* event, bool destroy);             // 6
    virtual void RemoveEventAt(std::uint32_t index, bool destroy);           // 7
    virtual bool GetEvent(std::uint32_t index, CZurSeqEvent*& event) const;  // 8
    /// Number of the first event at exactly `tick` whose bytes begin with those of `event`; 0 for
    /// none, or for an event without data.
    virtual std::uint32_t FindEvent(std::uint32_t tick, const CZurSeqEvent* event) const;  // 9
    virtual std::uint32_t GetEventIndex(const CZurSeqEvent* event) const;                  // 10
    /// The first event that matches. `reserved` must be 0.
    virtual bool FindEventByBytes(const SeqBytePattern& pattern, CZurSeqEvent*& event,
                                  std::uint32_t reserved) const;  // 11
    /// The first track name meta event (FF 03), null for none.
    virtual CZurSeqEvent* GetNameEvent() const;  // 12
    /// Where a tick falls. A number in `index` whose event stands exactly at `tick` gives that tick
    /// and the event's position counted from 0. Otherwise the first event behind `tick`: its
    /// position counted from 0, and as `time` the tick of the event in front of it; behind all
    /// events their number and the whole length.
    virtual void LocateTime(std::uint32_t tick, std::uint32_t& time,
                            std::uint32_t& index) const;  // 13
    /// Sum of the deltas of the first `count` events.
    virtual std::uint32_t GetElapsedTime(std::uint32_t count) const;  // 14
    virtual void Dump(std::strstream& stream) const;                  // 15
    /// Appends the events of the chunk at the read position. Running status is the first byte of
    /// the event before, whatever it was. The chunk's stated length is held against the position
    /// between events only, so that an event may run past it. Raises -102 for another tag and -101
    /// when anything fails behind it; events read until then stay.
    virtual void Read(std::strstream& stream);  // 16
    /// The chunk with its measured length, every event by its `Save`. Needs a stream that seeks.
    virtual void Write(std::strstream& stream) const;  // 17
    virtual bool HasMarkedEvents() const;              // 18
    virtual void ClearMarks();                         // 19

    /// The first event with a status of 9n, whatever its velocity.
    bool FindFirstNoteOn(CZurSeqEvent*& event) const;
    /// Times all deltas by `newDivision / oldDivision` and carries the rounding error along, in
    /// double precision; deltas are truncated and held inside 32 bits. An old division of 0 changes
    /// nothing.
    void Rescale(std::int16_t oldDivision, std::int16_t newDivision);
    /// Stable sort of the positions from `first` up to but not including `last`, counted from 0 and
    /// clipped to the track; 0, 0 sorts all. Deltas travel with their events. Nothing without
    /// `compare`.
    void SortEvents(SeqEventCompare compare, std::uint32_t first, std::uint32_t last);

private:
    void ReadEvents(std::strstream& stream);
    void DestroyEvents();

    std::array<char, 4> m_tag{'M', 'T', 'r', 'k'};
    // Owned. Plain pointers, because a track goes two thirds quicker when nothing is written into
    // the list on the way.
    std::vector<CZurSeqEvent*> m_events;
    bool m_allRead = true;  // no event came in but by `Read`
};

/// Follows the note at event `number` back through earlier notes of its channel and key that were
/// still sounding, and adds each to `count`. Event 1 sets `count` to 0 instead, also at the end of
/// such a walk. False for a null track, an event that is not there or has no key byte, and a note
/// that never ends. A note ends with 8n or with 9n of velocity 0.
bool CountNoteLayers(const CZurSeqTrack* track, std::uint32_t number, std::uint32_t& count);
