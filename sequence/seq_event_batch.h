#pragma once

#include <cstdint>
#include <cstring>
#include <new>
#include <typeinfo>
#include <vector>

#include "sequence/byte_stream.h"
#include "sequence/event_slab.h"
#include "sequence/seq_event.h"

/// Quick forms of what a track does with many events: the same outcome as the events' own
/// operations one by one. Events of derived classes are left to their own operations.
class SeqEventBatch {
public:
    /// Bytes behind `end` that `Parse` may look at.
    static constexpr std::size_t kSlack = 16;
    /// Most bytes that `Put` writes.
    static constexpr std::uint32_t kPutBytes = 12;

    /// False for a derived class. (It may be false for a plain event, too, of which the program
    /// has a second type record; that costs time only.)
    static bool IsPlain(const CZurSeqEvent& event) {
        return &typeid(event) == &typeid(CZurSeqEvent);
    }

    /// `CZurSeqEvent::Read` from memory: gives a new event and moves `at` behind it, and `status`
    /// on to its own. Null, and nothing changed, when [at, end) does not hold a whole good one.
    static CZurSeqEvent* Parse(EventSlotTake& slots, const std::uint8_t*& at,
                               const std::uint8_t* end, std::uint8_t& status);

    /// `CZurSeqEvent::Write` into memory for a plain event of at most six bytes: gives the place
    /// behind. Null, and nothing written, for any other event.
    static std::uint8_t* Put(const CZurSeqEvent& event, std::uint8_t* out);

    /// A new, empty event.
    static CZurSeqEvent* Make(EventSlotTake& slots) {
        auto* const event = ::new (slots.Take()) CZurSeqEvent;
        event->m_marksSlot = true;
        return event;
    }

    /// Destroys events that `Make` and `Parse` made and empties the list. Only those are looked at
    /// that got a heap block.
    static void DestroyMade(std::vector<CZurSeqEvent*>& events);

private:
    static CZurSeqEvent* ParseRare(EventSlotTake& slots, const std::uint8_t*& at,
                                   const std::uint8_t* end, std::uint8_t& status);

    /// `yes` or `no` for a condition of 1 or 0, without a branch: which one it is follows no
    /// pattern that a processor could learn.
    static std::uint32_t Pick(std::uint32_t condition, std::uint32_t yes, std::uint32_t no) {
        return no ^ ((yes ^ no) & (0U - condition));
    }
};

inline CZurSeqEvent* SeqEventBatch::Parse(EventSlotTake& slots, const std::uint8_t*& at,
                                          const std::uint8_t* end, std::uint8_t& status) {
    const std::uint8_t* const bytes = at;
    const std::uint32_t twoByteDelta = bytes[0] >> 7;
    const std::uint32_t first = Pick(twoByteDelta, bytes[2], bytes[1]);
    const std::uint32_t ownStatus = first >> 7;
    const std::uint32_t newStatus = Pick(ownStatus, first, status);
    const bool channelMessage = newStatus - 0x80U < 0x70U;
    if ((twoByteDelta & bytes[1] >> 7) != 0 || !channelMessage) {
        // Through copies, so that the quick way keeps place and status in registers.
        const std::uint8_t* rareAt = at;
        std::uint8_t rareStatus = status;
        CZurSeqEvent* const event = ParseRare(slots, rareAt, end, rareStatus);
        at = rareAt;
        status = rareStatus;
        return event;
    }
    const std::uint32_t dataBytes = newStatus >> 5 == 6 ? 1 : 2;
    const std::uint8_t* const data = bytes + 1 + twoByteDelta + ownStatus;
    if (data + dataBytes > end)
        return nullptr;
    CZurSeqEvent* const event = Make(slots);
    event->m_delta = Pick(twoByteDelta, (bytes[0] & 0x7FU) << 7 | bytes[1], bytes[0]);
    event->m_length = dataBytes + 1;
    event->m_data = event->m_inline.data();
    event->m_inline[0] = static_cast<std::uint8_t>(newStatus);
    event->m_inline[1] = data[0];
    event->m_inline[2] = data[1];
    status = static_cast<std::uint8_t>(newStatus);
    at = data + dataBytes;
    return event;
}

inline std::uint8_t* SeqEventBatch::Put(const CZurSeqEvent& event, std::uint8_t* out) {
    if (!IsPlain(event) || event.m_data != event.m_inline.data() || event.m_delta > kLargestVarLen)
        return nullptr;
    if (event.m_delta < 0x80)
        *out++ = static_cast<std::uint8_t>(event.m_delta);
    else
        out += EncodeVarLen(event.m_delta, out);
    std::memcpy(out, event.m_inline.data(), event.m_inline.size());
    return out + event.m_length;
}
