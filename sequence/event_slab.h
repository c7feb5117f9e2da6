#pragma once

#include <cstddef>
#include <cstdint>

// Where events of exactly the size of CZurSeqEvent live: slabs of 16 KiB that are handed out slot
// after slot and given back whole, when the last event of a slab is gone. That is several times
// quicker than a heap block an event, and a file's events lie one behind the other. The price: one
// event that stays keeps its slab.
//
// Any thread may take and any may give back. Up to `kSpareBytes` of empty slabs are kept for the
// next file. With a sanitizer each slot is a heap block of its own, so that it sees every misuse.

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define ORBIX_PLAIN_SLOTS 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define ORBIX_PLAIN_SLOTS 1
#endif
#endif

inline constexpr std::size_t kEventSlot = 32;
inline constexpr std::size_t kEventSlab = 16384;  ///< also its alignment: a slot's address names it
inline constexpr std::size_t kSpareBytes = std::size_t{128} << 20;

/// A slab that is being handed out, as far as it is not yet.
struct EventSlotRun {
    std::byte* next = nullptr;
    std::byte* end = nullptr;
};

/// Takes slots, one or many at a time, out of the calling thread's slab. One at a time may exist in
/// a thread.
class EventSlotTake {
public:
    EventSlotTake();
    ~EventSlotTake();
    EventSlotTake(const EventSlotTake&) = delete;
    EventSlotTake& operator=(const EventSlotTake&) = delete;

    /// Raises std::bad_alloc without memory.
    void* Take() {
        if (m_run.next == m_run.end)
            m_run = NewRun();
        std::byte* const slot = m_run.next;
        m_run.next += kEventSlot;
        return slot;
    }

private:
    static EventSlotRun NewRun();

    EventSlotRun m_run;
};

/// True when both lie in one slab.
inline bool InOneSlab(const void* slot, const void* other) {
#ifdef ORBIX_PLAIN_SLOTS
    return slot == other;
#else
    return reinterpret_cast<std::uintptr_t>(slot) / kEventSlab ==
           reinterpret_cast<std::uintptr_t>(other) / kEventSlab;
#endif
}

/// Gives back `count` slots of one slab, of which `slot` is any; 0 does nothing.
void ReturnEventSlots(void* slot, std::uint32_t count);
