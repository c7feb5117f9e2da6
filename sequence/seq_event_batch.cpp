#include "sequence/seq_event_batch.h"

#include <algorithm>
#include <memory>

namespace {

/// Takes a quantity of at most four bytes from memory; `at` is null for a longer one.
std::uint32_t TakeQuantity(const std::uint8_t*& at) {
    std::uint32_t value = *at & 0x7FU;
    for (int count = 1; *at++ & 0x80U; ++count) {
        if (count == 4) {
            at = nullptr;
            return 0;
        }
        value = value << 7 | (*at & 0x7FU);
    }
    return value;
}

}  // namespace

CZurSeqEvent* SeqEventBatch::ParseRare(EventSlotTake& slots, const std::uint8_t*& at,
                                       const std::uint8_t* end, std::uint8_t& status) {
    const std::uint8_t* next = at;
    const std::uint32_t delta = TakeQuantity(next);
    if (!next)
        return nullptr;
    const std::uint8_t newStatus = *next & 0x80U ? *next++ : status;
    if (newStatus < 0x80)
        return nullptr;
    std::array<std::uint8_t, 6> head{newStatus, *next};
    std::uint32_t headLength = newStatus == 0xFF ? 2 : 1;
    next += headLength - 1;
    std::uint32_t size = newStatus >> 5 == 6 ? 1 : 2;
    if (newStatus >= 0xF0) {
        size = TakeQuantity(next);
        if (!next)
            return nullptr;
        headLength += EncodeVarLen(size, head.data() + headLength);
    }
    if (next > end || size > end - next)
        return nullptr;
    std::unique_ptr<CZurSeqEvent> event(Make(slots));
    event->m_data = event->Allocate(headLength + size);
    event->m_length = headLength + size;
    event->m_delta = delta;
    std::copy_n(next, size, std::copy_n(head.data(), headLength, event->m_data));
    at = next + size;
    status = newStatus;
    return event.release();
}

namespace {

using EventIterator = std::vector<CZurSeqEvent*>::const_iterator;

/// Asks for the head of the slab of an event that comes soon: the heads are what destroying waits
/// for, and lie too far apart for a processor to guess them.
void ExpectSlab(const CZurSeqEvent* soon) {
    const auto* const head = reinterpret_cast<const std::byte*>(&EventSlab::Of(soon));
    __builtin_prefetch(head, 1);
    __builtin_prefetch(head + 64, 0);
}

}  // namespace

// What `delete` does for each, but neighbours in memory go back to their slab in one step.
void SeqEventBatch::DestroyMade(std::vector<CZurSeqEvent*>& events) {
    constexpr std::ptrdiff_t kAhead = 2 * kEventSlab / kEventSlot;
    for (EventIterator first = events.begin(); first != events.end();) {
        if (events.end() - first > kAhead)
            ExpectSlab(first[kAhead]);
        EventIterator last = first;
        while (last != events.end() && InOneSlab(*last, *first))
            ++last;
        if (MayHoldMarks(*first))
            for (EventIterator each = first; each != last; ++each)
                if (MayBeMarked(*each))
                    (*each)->Release();
        ReturnEventSlots(*first, static_cast<std::uint32_t>(last - first));
        first = last;
    }
    events.clear();
}
