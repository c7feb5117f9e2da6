#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "sequence/api.h"
#include "sequence/musical_types.h"
#include "sequence/seq_track.h"
#include "sequence/strstream.h"

/// Sees an event at its absolute tick; false stops the walk.
using SeqEventCallback = bool (*)(std::uint32_t tick, CZurSeqEvent* event, void* userValue);

/// A Standard MIDI File in memory: format (0 or 1), division (ticks per quarter note) and tracks.
/// Track 1 is the conductor: time signatures and tempos are taken from it alone.
///
/// The file: "MThd", the length 00 00 00 06, format, number of tracks, division, each 16 bits
/// big-endian, then the track chunks. Format 2, time code divisions, longer headers and chunks of
/// other types are refused.
///
/// Tracks and events count from 1. The sequence owns its tracks, as the tracks own their events;
/// pointers that it hands out are borrowed. A number or pointer that names nothing makes an
/// operation do nothing or give false or 0. `Load`, `Read` and the stream constructor raise -101 to
/// -107 (seq_codes.h); copies raise -100 without memory. One thread at a time.
class ORBIX_API CZurSequence {
public:
    /// Format 0, division 480, no tracks.
    CZurSequence() = default;
    /// Both stored unchanged, no tracks.
    CZurSequence(std::int16_t format, std::int16_t division);
    /// Runs `Read`; what it raises passes on, and no track stays.
    explicit CZurSequence(std::strstream& stream);
    CZurSequence(const CZurSequence& other);
    CZurSequence& operator=(const CZurSequence& other);

    virtual ~CZurSequence();  // 1
    /// Replaces everything by what stands in the stream. After a failure the tracks read until then
    /// stay, and format and division as read.
    virtual void Load(std::strstream& stream);             // 2
    virtual void Save(std::strstream& stream) const;       // 3
    virtual std::int16_t GetFormat() const;                // 4
    virtual CZurSequence& SetFormat(std::int16_t format);  // 5
    virtual std::int16_t GetDivision() const;              // 6
    /// Times are not rescaled; see `SetDivisionRescaled`.
    virtual CZurSequence& SetDivision(std::int16_t division);  // 7
    virtual std::int32_t GetTrackCount() const;                // 8
    /// In front of track `number`, behind the last for any other number. Takes the track over; null
    /// is ignored.
    virtual void InsertTrack(std::int32_t number, CZurSeqTrack* track);      // 9
    virtual void DeleteTrack(std::int32_t number);                           // 10
    virtual void Clear();                                                    // 11
    virtual void Reserved12(std::int32_t first, std::int32_t second);        // 12
    virtual bool GetTrack(std::int32_t number, CZurSeqTrack*& track) const;  // 13
    virtual std::int32_t GetTrackIndex(const CZurSeqTrack* track) const;     // 14
    virtual void Reserved15();                                               // 15
    /// The track's operations of these names. An event goes over to the sequence only when the
    /// track exists.
    virtual void InsertEvent(std::int32_t track, std::uint32_t number, CZurSeqEvent* event);  // 16
    /// `InsertEventAtTime` at a place under the sequence's own time signatures.
    virtual void AddEvent(std::int32_t track, const t_MBT& position, CZurSeqEvent* event);  // 17
    virtual void InsertEventAtTime(std::int32_t track, std::uint32_t tick,
                                   CZurSeqEvent* event);                                 // 18
    virtual void RemoveEvent(std::int32_t track, CZurSeqEvent* event, bool destroy);     // 19
    virtual void RemoveEventAt(std::int32_t track, std::uint32_t number, bool destroy);  // 20
    /// Moves an event of `source` by `offset` ticks (not below tick 0) into `target`: its place is
    /// read under the time signatures as they are and written under those that remain without it.
    /// Nothing when the event is not in `source` or `target` not in this sequence.
    virtual void MoveEvent(CZurSeqTrack* source, CZurSeqEvent* event, std::int32_t offset,
                           CZurSeqTrack* target);  // 21
    virtual void MoveEventAt(std::int32_t source, std::uint32_t number, std::int32_t offset,
                             std::int32_t target);  // 22
    /// `unused` has no effect.
    virtual bool GetTrackEvent(std::int32_t track, std::int32_t unused, std::uint32_t number,
                               CZurSeqEvent*& event) const;  // 23
    /// Absolute tick of an event of that track.
    virtual std::uint32_t GetEventTime(std::int32_t track, const CZurSeqEvent* event) const;  // 24
    /// Measure in which the longest track ends; 0 without tracks.
    virtual std::uint32_t GetLastMeasure() const;                           // 25
    virtual std::uint32_t GetTicksPerMeasure(std::uint32_t measure) const;  // 26
    /// Appends the time signatures in order. The total tick of a record is the event's true tick;
    /// its place is laid on the grid: up to 10 ticks behind a beat the ticks drop out, from 10
    /// ticks in front of a beat's end on it is the start of the next measure. Events too short to
    /// hold numerator and denominator are passed over; a denominator beyond 31 bits is held there.
    virtual void GetTimeSignatures(std::vector<t_tSigMapRec>& list) const;  // 27
    /// The record in force at a place. Without one only numerator and denominator are set, to 4/4.
    virtual void GetTimeSignatureAt(const t_MBT& position, t_tSigMapRec& record) const;  // 28
    /// Appends the tempos in order, at their true places.
    virtual void GetTempos(std::vector<t_tTempoRec>& list) const;      // 29
    virtual void Reserved30(std::int32_t first, std::int32_t second);  // 30
    /// Ticks of the longest track.
    virtual std::uint32_t GetEndTime() const;  // 31
    /// Ticks of the longest whole track among those from `first` to `last` that hold a note's end;
    /// 0 for none. Numbers are clipped to the tracks that are there.
    virtual std::uint32_t GetNoteEndTime(std::int32_t first, std::int32_t last) const;  // 32
    virtual bool HasMarkedEvents() const;                                               // 33
    virtual void ClearMarks();                                                          // 34
    /// Text: "Format:", "Resolution:" and for each track "Track:" with its position from 0, each
    /// with its number and a carriage return, and the lines of the track's events.
    virtual void Dump(std::strstream& stream) const;  // 35
    /// Reads a file and appends its tracks. A count of tracks with bit 15 set reads none.
    virtual void Read(std::strstream& stream);         // 36
    virtual void Write(std::strstream& stream) const;  // 37
    /// Format 0 and division 480; the tracks stay.
    virtual void Init();  // 38
    /// Takes format and division over and appends deep copies of the tracks.
    virtual void CopyFrom(const CZurSequence& other);  // 39
    virtual void FreeTracks();                         // 40

    /// Sets the division and rescales all times. Nothing for a division that is not positive.
    void SetDivisionRescaled(std::int16_t division);
    /// Shows the events of a track in order to `callback` until it gives false, and sorts those
    /// before that one with `compare`; all, when it never does.
    void SortTrackRun(std::int32_t track, void* userValue, SeqEventCallback callback,
                      SeqEventCompare compare);
    /// Tick of the first note on of a track, of all tracks for number 0; FFFFFFFF for none.
    std::uint32_t GetFirstNoteTime(std::int32_t track) const;
    /// The same for one track, with the event's number; left alone when there is none.
    std::uint32_t GetFirstNoteTime(std::int32_t track, std::uint32_t& eventNumber) const;

private:
    CZurSeqTrack* TrackAt(std::int32_t number) const;
    void ReadHeader(std::strstream& stream, std::int16_t& trackCount);

    std::int16_t m_format = 0;
    std::int16_t m_division = 480;
    std::vector<std::unique_ptr<CZurSeqTrack>> m_tracks;
};
