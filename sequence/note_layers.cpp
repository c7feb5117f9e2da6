// Notes that sound at one time.

#include "sequence/seq_track.h"

namespace {

/// The notes of one channel and key in a track.
class NoteWalk {
public:
    NoteWalk(const CZurSeqTrack& track, const CZurSeqEvent& event)
        : m_track(track), m_channel(event.GetData()[0] & 0x0F), m_key(event.GetData()[1]) {}

    bool IsStart(std::uint32_t number) const { return Velocity(number, 0x9) > 0; }
    bool IsEnd(std::uint32_t number) const {
        return Velocity(number, 0x8) >= 0 || Velocity(number, 0x9) == 0;
    }
    /// Number of the first end behind event `number`; 0 for none.
    std::uint32_t EndBehind(std::uint32_t number) const {
        const std::uint32_t count = m_track.GetEventCount();
        while (++number <= count)
            if (IsEnd(number))
                return number;
        return 0;
    }
    /// Number of the last start in front of event `number`; 0 for none.
    std::uint32_t StartBefore(std::uint32_t number) const {
        while (--number > 0 && !IsStart(number)) {
        }
        return number;
    }

private:
    /// Third byte of the event when it is this note under `kind`, else -1.
    int Velocity(std::uint32_t number, int kind) const {
        CZurSeqEvent* event = nullptr;
        if (!m_track.GetEvent(number, event) || !event->GetData() || event->GetLength() < 3)
            return -1;
        const std::uint8_t* const data = event->GetData();
        return data[0] == (kind << 4 | m_channel) && data[1] == m_key ? data[2] : -1;
    }

    const CZurSeqTrack& m_track;
    int m_channel;
    int m_key;
};

}  // namespace

bool CountNoteLayers(const CZurSeqTrack* track, std::uint32_t number, std::uint32_t& count) {
    CZurSeqEvent* event = nullptr;
    if (!track || !track->GetEvent(number, event))
        return false;
    if (number == 1) {
        count = 0;
        return true;
    }
    if (!event->GetData() || event->GetLength() < 2)
        return false;
    const NoteWalk notes(*track, *event);
    std::uint32_t end = notes.EndBehind(number);
    if (end == 0)
        return false;
    // A start in front of `number` always has an end behind it, at the latest `end`.
    while (const std::uint32_t start = notes.StartBefore(number)) {
        ++count;
        const std::uint32_t itsEnd = notes.EndBehind(start);
        if (itsEnd == end)
            return true;
        number = start;
        end = itsEnd;
        if (number == 1) {
            count = 0;
            return true;
        }
    }
    return true;
}
