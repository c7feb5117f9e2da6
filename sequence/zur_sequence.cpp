#include "sequence/zur_sequence.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "sequence/byte_stream.h"
#include "sequence/seq_codes.h"

namespace {

constexpr std::int16_t kDefaultDivision = 480;
constexpr std::array<std::uint8_t, 8> kHeaderStart{'M', 'T', 'h', 'd', 0, 0, 0, 6};

/// The next bytes of a header; raises `code` when the stream does not hold them.
template <std::size_t count>
std::array<std::uint8_t, count> ReadField(std::strstream& stream, int code) {
    std::array<std::uint8_t, count> bytes{};
    stream.read(reinterpret_cast<char*>(bytes.data()), count);
    if (!stream)
        throw code;
    return bytes;
}

std::int16_t ReadHalf(std::strstream& stream, int code) {
    return static_cast<std::int16_t>(DecodeBigEndian16(ReadField<2>(stream, code).data()));
}

void WriteText(std::strstream& stream, const std::string& text) {
    stream.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace

CZurSequence::CZurSequence(std::int16_t format, std::int16_t division)
    : m_format(format), m_division(division) {}

CZurSequence::CZurSequence(std::strstream& stream) {
    CZurSequence::Read(stream);
}

CZurSequence::CZurSequence(const CZurSequence& other) {
    CZurSequence::CopyFrom(other);
}

CZurSequence& CZurSequence::operator=(const CZurSequence& other) {
    if (this != &other) {
        FreeTracks();
        CopyFrom(other);
    }
    return *this;
}

CZurSequence::~CZurSequence() = default;

void CZurSequence::Load(std::strstream& stream) {
    FreeTracks();
    Init();
    Read(stream);
}

void CZurSequence::Save(std::strstream& stream) const {
    Write(stream);
}

std::int16_t CZurSequence::GetFormat() const {
    return m_format;
}

CZurSequence& CZurSequence::SetFormat(std::int16_t format) {
    m_format = format;
    return *this;
}

std::int16_t CZurSequence::GetDivision() const {
    return m_division;
}

CZurSequence& CZurSequence::SetDivision(std::int16_t division) {
    m_division = division;
    return *this;
}

std::int32_t CZurSequence::GetTrackCount() const {
    return static_cast<std::int32_t>(m_tracks.size());
}

CZurSeqTrack* CZurSequence::TrackAt(std::int32_t number) const {
    const bool there = number >= 1 && number <= GetTrackCount();
    return there ? m_tracks[static_cast<std::size_t>(number) - 1].get() : nullptr;
}

void CZurSequence::InsertTrack(std::int32_t number, CZurSeqTrack* track) {
    if (!track)
        return;
    const auto slot = TrackAt(number) ? m_tracks.begin() + (number - 1) : m_tracks.end();
    m_tracks.emplace(slot, track);
}

void CZurSequence::DeleteTrack(std::int32_t number) {
    if (TrackAt(number))
        m_tracks.erase(m_tracks.begin() + (number - 1));
}

void CZurSequence::Clear() {
    FreeTracks();
}

void CZurSequence::Reserved12(std::int32_t /*first*/, std::int32_t /*second*/) {}

bool CZurSequence::GetTrack(std::int32_t number, CZurSeqTrack*& track) const {
    CZurSeqTrack* const found = TrackAt(number);
    if (found)
        track = found;
    return found != nullptr;
}

std::int32_t CZurSequence::GetTrackIndex(const CZurSeqTrack* track) const {
    const auto found = std::find_if(m_tracks.begin(), m_tracks.end(),
                                    [track](const auto& slot) { return slot.get() == track; });
    return found == m_tracks.end() ? 0 : static_cast<std::int32_t>(found - m_tracks.begin()) + 1;
}

void CZurSequence::Reserved15() {}

void CZurSequence::InsertEvent(std::int32_t track, std::uint32_t number, CZurSeqEvent* event) {
    if (CZurSeqTrack* const found = TrackAt(track))
        found->InsertEvent(number, event);
}

void CZurSequence::InsertEventAtTime(std::int32_t track, std::uint32_t tick, CZurSeqEvent* event) {
    if (CZurSeqTrack* const found = TrackAt(track))
        found->InsertEventAtTime(tick, event);
}

void CZurSequence::RemoveEvent(std::int32_t track, CZurSeqEvent* event, bool destroy) {
    if (CZurSeqTrack* const found = TrackAt(track))
        found->RemoveEvent(event, destroy);
}

void CZurSequence::RemoveEventAt(std::int32_t track, std::uint32_t number, bool destroy) {
    if (CZurSeqTrack* const found = TrackAt(track))
        found->RemoveEventAt(number, destroy);
}

bool CZurSequence::GetTrackEvent(std::int32_t track, std::int32_t /*unused*/, std::uint32_t number,
                                 CZurSeqEvent*& event) const {
    const CZurSeqTrack* const found = TrackAt(track);
    return found && found->GetEvent(number, event);
}

std::uint32_t CZurSequence::GetEventTime(std::int32_t track, const CZurSeqEvent* event) const {
    const CZurSeqTrack* const found = TrackAt(track);
    return found ? found->GetElapsedTime(found->GetEventIndex(event)) : 0;
}

void CZurSequence::Reserved30(std::int32_t /*first*/, std::int32_t /*second*/) {}

bool CZurSequence::HasMarkedEvents() const {
    return std::any_of(m_tracks.begin(), m_tracks.end(),
                       [](const auto& track) { return track->HasMarkedEvents(); });
}

void CZurSequence::ClearMarks() {
    for (const auto& track : m_tracks)
        track->ClearMarks();
}

void CZurSequence::Dump(std::strstream& stream) const {
    WriteText(stream, "Format:" + std::to_string(m_format) + '\r');
    WriteText(stream, "Resolution:" + std::to_string(m_division) + '\r');
    for (std::size_t position = 0; position < m_tracks.size(); ++position) {
        WriteText(stream, "Track:" + std::to_string(position) + '\r');
        m_tracks[position]->Dump(stream);
    }
}

void CZurSequence::ReadHeader(std::strstream& stream, std::int16_t& trackCount) {
    const auto tag = ReadField<4>(stream, kSeqNoFileTag);
    if (!std::equal(tag.begin(), tag.end(), kHeaderStart.begin()))
        throw kSeqNoFileTag;
    const auto length = ReadField<4>(stream, kSeqBadHeaderLength);
    if (!std::equal(length.begin(), length.end(), kHeaderStart.begin() + 4))
        throw kSeqBadHeaderLength;
    m_format = ReadHalf(stream, kSeqBadFormat);
    if (m_format != 0 && m_format != 1)
        throw kSeqBadFormat;
    trackCount = ReadHalf(stream, kSeqBadTrackCount);
    if (m_format == 0 ? trackCount != 1 : trackCount == 0)
        throw kSeqBadTrackCount;
    m_division = ReadHalf(stream, kSeqBadDivision);
    if (m_division < 0)
        throw kSeqBadDivision;
    if (m_division == 0)
        m_division = kDefaultDivision;
}

void CZurSequence::Read(std::strstream& stream) {
    std::int16_t trackCount = 0;
    ReadHeader(stream, trackCount);
    for (int number = 1; number <= trackCount; ++number)
        m_tracks.push_back(std::make_unique<CZurSeqTrack>(stream));
}

void CZurSequence::Write(std::strstream& stream) const {
    stream.write(reinterpret_cast<const char*>(kHeaderStart.data()), kHeaderStart.size());
    for (const auto value : {m_format, static_cast<std::int16_t>(m_tracks.size()), m_division}) {
        std::array<std::uint8_t, 2> half{};
        EncodeBigEndian16(value, half.data());
        stream.write(reinterpret_cast<const char*>(half.data()), half.size());
    }
    for (const auto& track : m_tracks)
        track->Write(stream);
}

void CZurSequence::Init() {
    m_format = 0;
    m_division = kDefaultDivision;
}

void CZurSequence::CopyFrom(const CZurSequence& other) {
    m_format = other.m_format;
    m_division = other.m_division;
    const std::size_t count = other.m_tracks.size();  // `other` may be this sequence
    m_tracks.reserve(m_tracks.size() + count);
    for (std::size_t i = 0; i < count; ++i)
        m_tracks.push_back(std::make_unique<CZurSeqTrack>(*other.m_tracks[i]));
}

void CZurSequence::FreeTracks() {
    decltype(m_tracks)().swap(m_tracks);
}
