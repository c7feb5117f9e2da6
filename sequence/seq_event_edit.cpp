// Byte edits of meta and system exclusive events.

#include <algorithm>
#include <array>

#include "sequence/byte_stream.h"
#include "sequence/seq_event.h"

namespace {

constexpr std::uint8_t kMeta = 0xFF;
constexpr std::uint8_t kSystemExclusive = 0xF0;
constexpr std::uint8_t kSystemExclusiveContinued = 0xF7;

}  // namespace

/// Where the payload of a meta or system exclusive event stands in its data.
struct CZurSeqEvent::Payload {
    std::uint32_t head;   ///< bytes in front of the length quantity
    std::uint32_t start;  ///< position of the first payload byte
};

// The tests that both byte edits begin with. `lastIndex` is the highest position that the edit may
// name.
bool CZurSeqEvent::FindPayload(std::uint32_t lastIndex, std::uint32_t index,
                               Payload& payload) const {
    const std::uint8_t status = m_data[0];
    if (status != kSystemExclusive && status != kSystemExclusiveContinued && status != kMeta)
        return false;
    payload.head = status == kMeta ? 2 : 1;
    const std::uint8_t* const end = m_data + m_length;
    const std::uint8_t* const quantity = m_data + payload.head;
    const std::uint8_t* const last =
        std::find_if(quantity, end, [](std::uint8_t byte) { return byte < 0x80; });
    if (last == end)
        return false;
    payload.start = static_cast<std::uint32_t>(last + 1 - m_data);
    return DecodeVarLen(quantity) == m_length - payload.start && index >= payload.start &&
           index <= lastIndex;
}

// Builds the array anew: the quantity may change its own length.
bool CZurSeqEvent::EditPayload(const Payload& payload, std::uint32_t index, std::uint32_t removed,
                               const std::uint8_t* inserted) {
    const std::uint32_t added = inserted ? 1 : 0;
    const std::uint32_t size = m_length - payload.start - removed + added;
    std::array<std::uint8_t, 4> quantity{};
    const std::uint32_t quantityLength = EncodeVarLen(size, quantity.data());
    const std::uint32_t length = payload.head + quantityLength + size;
    auto* const data = quantityLength ? AllocateBlock(length) : nullptr;
    if (!data)
        return false;
    std::uint8_t* out = std::copy_n(m_data, payload.head, data);
    out = std::copy_n(quantity.data(), quantityLength, out);
    out = std::copy(m_data + payload.start, m_data + index, out);
    out = std::copy_n(inserted, added, out);
    std::copy(m_data + index + removed, m_data + m_length, out);
    Release();
    m_data = data;
    m_length = length;
    return true;
}

bool CZurSeqEvent::RemoveDataByte(std::uint32_t index) {
    Payload payload{};
    if (!m_data || m_length < 2)
        return false;
    const std::uint32_t last = m_length - (m_data[0] == kSystemExclusive ? 2 : 1);
    return FindPayload(last, index, payload) && EditPayload(payload, index, 1, nullptr);
}

bool CZurSeqEvent::InsertDataByte(std::uint32_t index, std::uint8_t value) {
    Payload payload{};
    if (!m_data || m_length < 2)
        return false;
    const std::uint32_t last = m_length - (m_data[0] == kSystemExclusive ? 1 : 0);
    return FindPayload(last, index, payload) && EditPayload(payload, index, 0, &value);
}
