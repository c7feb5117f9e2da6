#include "sequence/seq_event.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <new>

#include "sequence/byte_stream.h"
#include "sequence/event_slab.h"
#include "sequence/seq_codes.h"

namespace {

constexpr std::uint8_t kMeta = 0xFF;
constexpr std::uint8_t kSystemExclusive = 0xF0;

/// A quantity that `Write` can give back in four bytes.
void ReadQuantity(std::strstream& stream, std::uint32_t& value) {
    value = ReadVarLen(stream);
    if (value > kLargestVarLen)
        throw kSeqEndOfStream;
}

// The end is tested before the byte is looked at: taking a byte and putting it back would clear
// the end mark, and a stream that stops here would give FF for ever.
std::uint8_t ReadStatus(std::strstream& stream, std::uint8_t runningStatus) {
    const int next = stream.good() ? stream.peek() : std::char_traits<char>::eof();
    if (next == std::char_traits<char>::eof())
        throw kSeqEndOfStream;
    return next & 0x80 ? ReadStreamByte(stream) : runningStatus;
}

}  // namespace

CZurSeqEvent::CZurSeqEvent(std::strstream& stream, std::uint8_t runningStatus) {
    try {
        CZurSeqEvent::Read(stream, runningStatus);
    } catch (...) {
        Release();
        throw kSeqBadEvent;
    }
}

CZurSeqEvent::CZurSeqEvent(std::uint32_t delta, std::uint32_t length, const std::uint8_t* data)
    : m_delta(delta), m_length(length) {
    if (!data)
        return;
    m_data = Allocate(length);
    std::memcpy(m_data, data, length);
}

CZurSeqEvent::CZurSeqEvent(const CZurSeqEvent& other) {
    CopyFrom(other);
}

CZurSeqEvent& CZurSeqEvent::operator=(const CZurSeqEvent& other) {
    if (this != &other) {
        Release();
        CopyFrom(other);
    }
    return *this;
}

CZurSeqEvent::~CZurSeqEvent() {
    Release();
}

void* CZurSeqEvent::operator new(std::size_t size) {
    static_assert(sizeof(CZurSeqEvent) == kEventSlot);
    return size == kEventSlot ? EventSlotTake().Take() : ::operator new(size);
}

void CZurSeqEvent::operator delete(void* place, std::size_t size) noexcept {
    if (size == kEventSlot)
        ReturnEventSlots(place, 1);
    else
        ::operator delete(place);
}

void CZurSeqEvent::Release() {
    if (m_data != m_inline.data())
        delete[] m_data;
    m_data = nullptr;
    m_length = 0;
}

std::uint8_t* CZurSeqEvent::Allocate(std::uint32_t length) {
    if (length <= m_inline.size())
        return m_inline.data();
    auto* const data = AllocateBlock(length);
    if (!data)
        throw kSeqBadEvent;
    return data;
}

std::uint8_t* CZurSeqEvent::AllocateBlock(std::uint32_t length) {
    if (m_marksSlot)
        MarkEventSlot(this);
    return new (std::nothrow) std::uint8_t[length];
}

void CZurSeqEvent::CopyFrom(const CZurSeqEvent& other) {
    if (other.m_data) {
        m_data = Allocate(other.m_length);
        std::memcpy(m_data, other.m_data, other.m_length);
    }
    m_delta = other.m_delta;
    m_length = other.m_length;
}

std::uint8_t* CZurSeqEvent::GetByteAt(std::uint32_t index) {
    return m_data ? m_data + index : nullptr;
}

std::int32_t CZurSeqEvent::GetKind() const {
    if (!m_data || m_length == 0 || m_data[0] < 0x80)
        return -1;
    if (m_data[0] < kSystemExclusive)
        return 0;
    if (m_data[0] == kMeta)
        return 1;
    return m_data[0] == kSystemExclusive ? 2 : -1;
}

void CZurSeqEvent::Save(std::strstream& stream) const {
    Write(stream);
}

std::uint32_t CZurSeqEvent::GetDelta() const {
    return m_delta;
}

CZurSeqEvent& CZurSeqEvent::SetDelta(std::uint32_t delta) {
    m_delta = delta;
    return *this;
}

std::uint32_t CZurSeqEvent::GetLength() const {
    return m_length;
}

const std::uint8_t* CZurSeqEvent::GetData() const {
    return m_data;
}

void CZurSeqEvent::SetData(std::uint32_t delta, const std::uint8_t* data, std::uint32_t length) {
    if (!data || length == 0)
        return;
    auto* const copy = AllocateBlock(length);
    if (!copy)
        return;
    std::memcpy(copy, data, length);
    Release();
    m_data = copy;
    m_length = length;
    m_delta = delta;
}

std::uint8_t* CZurSeqEvent::CopyData() const {
    auto* const copy = m_data ? new (std::nothrow) std::uint8_t[m_length] : nullptr;
    if (copy)
        std::memcpy(copy, m_data, m_length);
    return copy;
}

void CZurSeqEvent::Dump(std::strstream& stream) const {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::array<char, 10> decimal{};
    const char* const end =
        std::to_chars(decimal.data(), decimal.data() + decimal.size(), m_delta).ptr;
    stream.write(decimal.data(), end - decimal.data());
    stream.write("\t\t", 2);
    for (std::uint32_t i = 0; m_data && i < m_length; ++i) {
        const std::array<char, 3> text{kDigits[m_data[i] >> 4], kDigits[m_data[i] & 0x0F], ' '};
        stream.write(text.data(), text.size());
    }
    stream.put('\r');
}

void CZurSeqEvent::Read(std::strstream& stream, std::uint8_t runningStatus) {
    Release();
    ReadQuantity(stream, m_delta);
    const std::uint8_t status = ReadStatus(stream, runningStatus);
    switch (status >> 4) {
        case 0x8:
        case 0x9:
        case 0xA:
        case 0xB:
        case 0xE:
            ReadChannelMessage(stream, status, 2);
            break;
        case 0xC:
        case 0xD:
            ReadChannelMessage(stream, status, 1);
            break;
        case 0xF: {
            std::array<std::uint8_t, 2> head{status, 0};
            if (status == kMeta)
                head[1] = ReadStreamByte(stream);
            ReadPayload(stream, head.data(), status == kMeta ? 2 : 1);
            break;
        }
        default:
            break;
    }
}

void CZurSeqEvent::ReadChannelMessage(std::strstream& stream, std::uint8_t status,
                                      std::uint32_t dataBytes) {
    std::array<std::uint8_t, 3> bytes{status};
    for (std::uint32_t i = 1; i <= dataBytes; ++i)
        bytes[i] = ReadStreamByte(stream);
    m_data = Allocate(dataBytes + 1);
    m_length = dataBytes + 1;
    std::copy_n(bytes.data(), m_length, m_data);
}

void CZurSeqEvent::ReadPayload(std::strstream& stream, const std::uint8_t* head,
                               std::uint32_t headLength) {
    std::uint32_t size = 0;
    ReadQuantity(stream, size);
    if (size > BytesLeft(stream))
        throw kSeqEndOfStream;
    std::array<std::uint8_t, 4> quantity{};
    const std::uint32_t quantityLength = EncodeVarLen(size, quantity.data());
    m_data = Allocate(headLength + quantityLength + size);
    m_length = headLength + quantityLength + size;
    std::uint8_t* const payload =
        std::copy_n(quantity.data(), quantityLength, std::copy_n(head, headLength, m_data));
    stream.read(reinterpret_cast<char*>(payload), size);
}

void CZurSeqEvent::Write(std::strstream& stream) const {
    WriteVarLen(m_delta, stream);
    if (m_data)
        stream.write(reinterpret_cast<const char*>(m_data), m_length);
}

CZurSeqEvent& CZurSeqEvent::SetMarked(std::uint8_t marked) {
    m_marked = marked;
    return *this;
}

std::uint8_t CZurSeqEvent::IsMarked() const {
    return m_marked;
}

bool CZurSeqEvent::MatchesBytes(const SeqBytePattern& pattern) const {
    return m_data && std::all_of(pattern.begin(), pattern.end(), [this](const auto& expected) {
               return expected.first >= m_length || m_data[expected.first] == expected.second;
           });
}

bool CZurSeqEvent::IsEqual(const CZurSeqEvent& other) const {
    const std::uint8_t* const theirs = other.GetData();
    if (m_length != other.GetLength() || !m_data || !theirs)
        return m_length == other.GetLength() && m_data == theirs;
    return std::memcmp(m_data, theirs, m_length) == 0;
}
