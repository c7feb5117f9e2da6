// The operations of a sequence that read time out of its tracks.

#include <algorithm>
#include <limits>

#include "sequence/musical_time.h"
#include "sequence/zur_sequence.h"

namespace {

constexpr std::uint32_t kNoTime = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint32_t kSnapTicks = 10;

bool IsMeta(const CZurSeqEvent& event, std::uint8_t type, std::uint32_t leastLength) {
    const std::uint8_t* const data = event.GetData();
    return data && event.GetLength() >= leastLength && data[0] == 0xFF && data[1] == type;
}

// FF 58 04 nn dd: dd is a power of two.
bool IsTimeSignature(const CZurSeqEvent& event) {
    return IsMeta(event, 0x58, 5);
}

// FF 51 03 t1 t2 t3
bool IsTempo(const CZurSeqEvent& event) {
    return IsMeta(event, 0x51, 6);
}

bool EndsNote(const CZurSeqEvent& event) {
    const std::uint8_t* const data = event.GetData();
    if (!data || event.GetLength() == 0)
        return false;
    const int kind = data[0] >> 4;
    return kind == 0x8 || (kind == 0x9 && event.GetLength() > 2 && data[2] == 0);
}

/// A walk along the conductor track: the running tick and the signature that is in force there.
class ConductorWalk {
public:
    ConductorWalk(const CZurSeqTrack& track, std::int16_t division)
        : m_track(track), m_division(static_cast<std::uint32_t>(division)) {}

    /// The next event, null behind the last.
    const CZurSeqEvent* Next() {
        CZurSeqEvent* event = nullptr;
        if (m_track.GetEvent(++m_number, event))
            m_tick += event->GetDelta();
        return event;
    }

    std::uint32_t Tick() const { return m_tick; }

    /// The current tick's place under the signature in force.
    t_MBT Place() const {
        t_MBT place;
        SplitTicks(m_signature.numerator, m_signature.denominator, m_division,
                   m_tick - m_signature.totalTick, place);
        place.measure += m_signature.measure - 1;
        return place;
    }

    /// The place laid on the grid, for a signature that starts here.
    t_MBT SnappedPlace() const {
        t_MBT place = Place();
        const std::uint32_t beatTicks =
            JoinTicks(m_signature.numerator, m_signature.denominator, 0, 1, m_division, 1, 1, 0);
        if (place.tick <= kSnapTicks)
            place.tick = 0;
        else if (place.tick + kSnapTicks >= beatTicks)
            place = {place.measure + 1, 1, 0};
        return place;
    }

    /// Puts the signature that starts here in force and gives its record.
    const t_tSigMapRec& Change(const CZurSeqEvent& event, const t_MBT& place) {
        const std::uint8_t* const data = event.GetData();
        const std::uint32_t power = std::min<std::uint32_t>(data[4], 31);
        m_signature = {place.measure, place.beat, place.tick, m_tick, data[3], 1U << power};
        return m_signature;
    }

private:
    const CZurSeqTrack& m_track;
    std::uint32_t m_division;
    std::uint32_t m_number = 0;
    std::uint32_t m_tick = 0;
    t_tSigMapRec m_signature;
};

}  // namespace

void CZurSequence::GetTimeSignatures(std::vector<t_tSigMapRec>& list) const {
    const CZurSeqTrack* const conductor = TrackAt(1);
    if (!conductor)
        return;
    ConductorWalk walk(*conductor, m_division);
    while (const CZurSeqEvent* const event = walk.Next())
        if (IsTimeSignature(*event))
            list.push_back(walk.Change(*event, walk.SnappedPlace()));
}

void CZurSequence::GetTempos(std::vector<t_tTempoRec>& list) const {
    const CZurSeqTrack* const conductor = TrackAt(1);
    if (!conductor)
        return;
    ConductorWalk walk(*conductor, m_division);
    while (const CZurSeqEvent* const event = walk.Next()) {
        if (IsTimeSignature(*event)) {
            walk.Change(*event, walk.Place());
        } else if (IsTempo(*event)) {
            const std::uint8_t* const data = event->GetData();
            const t_MBT place = walk.Place();
            list.push_back({place.measure, place.beat, place.tick, walk.Tick(),
                            data[3] * 65536U + data[4] * 256U + data[5]});
        }
    }
}

void CZurSequence::GetTimeSignatureAt(const t_MBT& position, t_tSigMapRec& record) const {
    std::vector<t_tSigMapRec> list;
    GetTimeSignatures(list);
    record.numerator = 4;
    record.denominator = 4;
    const auto division = static_cast<std::uint32_t>(m_division);
    const std::uint32_t target = MeasureToTick(position, division, list);
    // Measures rise along the list, so the record that `MeasureToTick` would look up for a place
    // is found by a second walk in step with the first.
    auto base = list.rbegin();
    for (auto each = list.rbegin(); each != list.rend(); ++each) {
        while (base->measure > each->measure)
            ++base;
        const std::uint32_t tick =
            JoinTicks(base->numerator, base->denominator, base->totalTick, base->measure, division,
                      each->measure, each->beat - 1, each->tick);
        if (tick <= target) {
            record = *each;
            return;
        }
    }
}

std::uint32_t CZurSequence::GetTicksPerMeasure(std::uint32_t measure) const {
    t_tSigMapRec record;
    GetTimeSignatureAt({measure, 1, 0}, record);
    return TicksPerMeasure(record.numerator, record.denominator,
                           static_cast<std::uint32_t>(m_division));
}

void CZurSequence::AddEvent(std::int32_t track, const t_MBT& position, CZurSeqEvent* event) {
    if (!event)
        return;
    std::vector<t_tSigMapRec> list;
    GetTimeSignatures(list);
    InsertEventAtTime(track, MeasureToTick(position, static_cast<std::uint32_t>(m_division), list),
                      event);
}

void CZurSequence::MoveEvent(CZurSeqTrack* source, CZurSeqEvent* event, std::int32_t offset,
                             CZurSeqTrack* target) {
    if (!source || !event || !target)
        return;
    const std::uint32_t number = source->GetEventIndex(event);
    const std::int32_t targetNumber = GetTrackIndex(target);
    if (number == 0 || targetNumber == 0)
        return;
    std::vector<t_tSigMapRec> list;
    GetTimeSignatures(list);
    const std::int64_t tick = std::int64_t{source->GetElapsedTime(number)} + offset;
    t_MBT position;
    TickToMeasure(static_cast<std::uint32_t>(std::max<std::int64_t>(tick, 0)),
                  static_cast<std::uint32_t>(m_division), list, position);
    source->RemoveEvent(event, false);
    AddEvent(targetNumber, position, event);
}

void CZurSequence::MoveEventAt(std::int32_t source, std::uint32_t number, std::int32_t offset,
                               std::int32_t target) {
    CZurSeqTrack* const from = TrackAt(source);
    CZurSeqTrack* const to = TrackAt(target);
    CZurSeqEvent* event = nullptr;
    if (from && to && from->GetEvent(number, event))
        MoveEvent(from, event, offset, to);
}

std::uint32_t CZurSequence::GetLastMeasure() const {
    std::vector<t_tSigMapRec> list;
    GetTimeSignatures(list);
    std::uint32_t highest = 0;
    for (const auto& track : m_tracks) {
        t_MBT position;
        TickToMeasure(track->GetElapsedTime(track->GetEventCount()),
                      static_cast<std::uint32_t>(m_division), list, position);
        highest = std::max(highest, position.measure);
    }
    return highest;
}

std::uint32_t CZurSequence::GetEndTime() const {
    std::uint32_t longest = 0;
    for (const auto& track : m_tracks)
        longest = std::max(longest, track->GetElapsedTime(track->GetEventCount()));
    return longest;
}

std::uint32_t CZurSequence::GetNoteEndTime(std::int32_t first, std::int32_t last) const {
    std::uint32_t longest = 0;
    for (std::int32_t number = std::max(first, 1); number <= std::min(last, GetTrackCount());
         ++number) {
        const CZurSeqTrack& track = *TrackAt(number);
        CZurSeqEvent* event = nullptr;
        std::uint32_t index = track.GetEventCount();
        while (track.GetEvent(index, event) && !EndsNote(*event))
            --index;
        if (index > 0)
            longest = std::max(longest, track.GetElapsedTime(track.GetEventCount()));
    }
    return longest;
}

void CZurSequence::SetDivisionRescaled(std::int16_t division) {
    const std::int16_t old = m_division;
    if (division <= 0 || division == old)
        return;
    SetDivision(division);
    for (const auto& track : m_tracks)
        track->Rescale(old, division);
}

void CZurSequence::SortTrackRun(std::int32_t track, void* userValue, SeqEventCallback callback,
                                SeqEventCompare compare) {
    CZurSeqTrack* const found = TrackAt(track);
    if (!callback || !compare || !found)
        return;
    std::uint32_t walked = 0;
    std::uint32_t tick = 0;
    for (CZurSeqEvent* event = nullptr; found->GetEvent(walked + 1, event); ++walked) {
        tick += event->GetDelta();
        if (!callback(tick, event, userValue))
            break;
    }
    if (walked > 0)  // 0, 0 would sort the whole track
        found->SortEvents(compare, 0, walked);
}

std::uint32_t CZurSequence::GetFirstNoteTime(std::int32_t track) const {
    std::uint32_t number = 0;
    if (track != 0)
        return GetFirstNoteTime(track, number);
    std::uint32_t earliest = kNoTime;
    for (std::int32_t each = 1; each <= GetTrackCount(); ++each)
        earliest = std::min(earliest, GetFirstNoteTime(each, number));
    return earliest;
}

std::uint32_t CZurSequence::GetFirstNoteTime(std::int32_t track, std::uint32_t& eventNumber) const {
    const CZurSeqTrack* const found = TrackAt(track);
    CZurSeqEvent* event = nullptr;
    if (!found || !found->FindFirstNoteOn(event))
        return kNoTime;
    eventNumber = found->GetEventIndex(event);
    return found->GetElapsedTime(eventNumber);
}
