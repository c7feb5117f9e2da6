#include "sequence/seq_track.h"

#include <algorithm>

#include "sequence/byte_stream.h"
#include "sequence/saturate.h"
#include "sequence/seq_event_batch.h"

namespace {

constexpr std::array<std::uint8_t, 3> kEndMarker{0xFF, 0x2F, 0x00};

bool BeginsWith(const CZurSeqEvent& event, const std::uint8_t* bytes, std::uint32_t length) {
    return event.GetData() && event.GetLength() >= length &&
           std::equal(bytes, bytes + length, event.GetData());
}

bool IsEndMarker(const CZurSeqEvent& event) {
    return event.GetLength() == kEndMarker.size() &&
           BeginsWith(event, kEndMarker.data(), kEndMarker.size());
}

}  // namespace

CZurSeqTrack::CZurSeqTrack(std::uint32_t tag) : CZurSeqTrack() {
    EncodeBigEndian32(tag, reinterpret_cast<std::uint8_t*>(m_tag.data()));
}

// The constructors that can fail start from a whole, empty track, so that its destructor destroys
// what they got.
CZurSeqTrack::CZurSeqTrack(std::strstream& stream) : CZurSeqTrack() {
    CZurSeqTrack::Read(stream);
}

CZurSeqTrack::CZurSeqTrack(const CZurSeqTrack& other) : CZurSeqTrack() {
    m_tag = other.m_tag;
    m_allRead = false;
    m_events.reserve(other.m_events.size());
    for (const CZurSeqEvent* const event : other.m_events)
        m_events.push_back(new CZurSeqEvent(*event));
}

CZurSeqTrack& CZurSeqTrack::operator=(const CZurSeqTrack& other) {
    if (this == &other)
        return *this;
    DestroyEvents();
    CZurSeqTrack copy(other);
    m_tag = copy.m_tag;
    m_allRead = false;
    m_events.swap(copy.m_events);
    return *this;
}

CZurSeqTrack::~CZurSeqTrack() {
    DestroyEvents();
}

void CZurSeqTrack::DestroyEvents() {
    if (m_allRead) {
        SeqEventBatch::DestroyMade(m_events);
        return;
    }
    for (CZurSeqEvent* const event : m_events)
        delete event;
    m_events.clear();
}

void CZurSeqTrack::GetChunkTag(std::string& tag) const {
    tag.assign(m_tag.data(), m_tag.size());
}

std::uint32_t CZurSeqTrack::GetEventCount() const {
    return static_cast<std::uint32_t>(m_events.size());
}

void CZurSeqTrack::InsertEvent(std::uint32_t index, CZurSeqEvent* event) {
    if (!event)
        return;
    m_allRead = false;
    const bool inside = index >= 1 && index <= m_events.size();
    const auto offset = static_cast<std::ptrdiff_t>(inside ? index - 1 : m_events.size());
    m_events.insert(m_events.begin() + offset, event);
}

void CZurSeqTrack::InsertEventAtTime(std::uint32_t tick, CZurSeqEvent* event) {
    if (!event)
        return;
    std::uint32_t previous = 0;
    for (std::uint32_t index = 1; index <= m_events.size(); ++index) {
        CZurSeqEvent& current = *m_events[index - 1];
        const std::uint32_t sum = previous + current.GetDelta();
        const bool lastIsMarker = index == m_events.size() && IsEndMarker(current);
        if (tick < sum || lastIsMarker) {
            event->SetDelta(tick - previous);
            current.SetDelta(tick < sum ? sum - tick : 0);
            InsertEvent(index, event);
            return;
        }
        previous = sum;
    }
    event->SetDelta(tick - previous);
    InsertEvent(0, event);
}

void CZurSeqTrack::RemoveEvent(CZurSeqEvent* event, bool destroy) {
    RemoveEventAt(GetEventIndex(event), destroy);
}

void CZurSeqTrack::RemoveEventAt(std::uint32_t index, bool destroy) {
    if (index < 1 || index > m_events.size())
        return;
    const auto slot = m_events.begin() + static_cast<std::ptrdiff_t>(index - 1);
    if (index < m_events.size())
        slot[1]->SetDelta(slot[0]->GetDelta() + slot[1]->GetDelta());
    if (destroy)
        delete *slot;
    m_events.erase(slot);
}

bool CZurSeqTrack::GetEvent(std::uint32_t index, CZurSeqEvent*& event) const {
    if (index < 1 || index > m_events.size())
        return false;
    event = m_events[index - 1];
    return true;
}

std::uint32_t CZurSeqTrack::FindEvent(std::uint32_t tick, const CZurSeqEvent* event) const {
    if (!event || !event->GetData())
        return 0;
    std::uint32_t sum = 0;
    for (std::uint32_t i = 0; i < m_events.size(); ++i) {
        sum += m_events[i]->GetDelta();
        if (sum == tick && BeginsWith(*m_events[i], event->GetData(), event->GetLength()))
            return i + 1;
    }
    return 0;
}

std::uint32_t CZurSeqTrack::GetEventIndex(const CZurSeqEvent* event) const {
    const auto found = std::find_if(m_events.begin(), m_events.end(),
                                    [event](const auto& slot) { return slot == event; });
    return found == m_events.end() ? 0 : static_cast<std::uint32_t>(found - m_events.begin()) + 1;
}

bool CZurSeqTrack::FindEventByBytes(const SeqBytePattern& pattern, CZurSeqEvent*& event,
                                    std::uint32_t reserved) const {
    const auto found = std::find_if(m_events.begin(), m_events.end(), [&pattern](const auto& slot) {
        return slot->MatchesBytes(pattern);
    });
    if (reserved != 0 || found == m_events.end())
        return false;
    event = *found;
    return true;
}

CZurSeqEvent* CZurSeqTrack::GetNameEvent() const {
    static const SeqBytePattern kTrackName{{0, 0xFF}, {1, 0x03}};
    CZurSeqEvent* event = nullptr;
    FindEventByBytes(kTrackName, event, 0);
    return event;
}

void CZurSeqTrack::LocateTime(std::uint32_t tick, std::uint32_t& time, std::uint32_t& index) const {
    if (index != 0 && index <= m_events.size() && GetElapsedTime(index) == tick) {
        time = tick;
        --index;
        return;
    }
    std::uint32_t sum = 0;
    std::uint32_t position = 0;
    for (; position < m_events.size(); ++position) {
        const std::uint32_t next = sum + m_events[position]->GetDelta();
        if (next > tick)
            break;
        sum = next;
    }
    time = sum;
    index = position;
}

std::uint32_t CZurSeqTrack::GetElapsedTime(std::uint32_t count) const {
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < std::min<std::size_t>(count, m_events.size()); ++i)
        sum += m_events[i]->GetDelta();
    return sum;
}

void CZurSeqTrack::Dump(std::strstream& stream) const {
    for (CZurSeqEvent* const event : m_events)
        event->Dump(stream);
}

bool CZurSeqTrack::HasMarkedEvents() const {
    return std::any_of(m_events.begin(), m_events.end(),
                       [](const auto& event) { return event->IsMarked() != 0; });
}

void CZurSeqTrack::ClearMarks() {
    for (CZurSeqEvent* const event : m_events)
        event->SetMarked(0);
}

bool CZurSeqTrack::FindFirstNoteOn(CZurSeqEvent*& event) const {
    const auto found = std::find_if(m_events.begin(), m_events.end(), [](const auto& slot) {
        return slot->GetData() && slot->GetLength() > 0 && *slot->GetData() >> 4 == 0x9;
    });
    if (found == m_events.end())
        return false;
    event = *found;
    return true;
}

void CZurSeqTrack::Rescale(std::int16_t oldDivision, std::int16_t newDivision) {
    if (oldDivision == 0)
        return;
    double exact = 0.0;
    double written = 0.0;
    for (CZurSeqEvent* const event : m_events) {
        exact += static_cast<double>(event->GetDelta()) * newDivision / oldDivision;
        const double due = exact - written;
        const std::uint32_t delta = HeldToWord(due);
        event->SetDelta(delta);
        written = exact - (due - delta);
    }
}

void CZurSeqTrack::SortEvents(SeqEventCompare compare, std::uint32_t first, std::uint32_t last) {
    const auto count = static_cast<std::uint32_t>(m_events.size());
    if (first == 0 && last == 0)
        last = count;
    last = std::min(last, count);
    if (!compare || first >= last)
        return;
    std::stable_sort(m_events.begin() + first, m_events.begin() + last, compare);
}
