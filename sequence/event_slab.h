#pragma once

#include <array>
#include <atomic>
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

/// Gives back `count` slots of one slab, of which `slot` is any.
void ReturnEventSlots(void* slot, std::uint32_t count);

/// The head of a slab, in the place of its first slots.
struct EventSlab {
    std::atomic<std::uint32_t> held;  ///< slots that were not given back, handed out or not
    EventSlab* next = nullptr;        ///< the spare slab below this one
    /// A bit a slot: who destroys an event can see here, without a look at the event itself, that
    /// there is nothing more to do.
    std::array<std::atomic<std::uint64_t>, kEventSlab / kEventSlot / 64> marks{};

    static EventSlab& Of(const void* slot) {
        const auto address = reinterpret_cast<std::uintptr_t>(slot);
        return *reinterpret_cast<EventSlab*>(address - address % kEventSlab);
    }
    static std::size_t NumberOf(const void* slot) {
        return reinterpret_cast<std::uintptr_t>(slot) % kEventSlab / kEventSlot;
    }
};

/// Marks a slot for as long as its slab is in use.
inline void MarkEventSlot([[maybe_unused]] const void* slot) {
#ifndef ORBIX_PLAIN_SLOTS
    const std::size_t number = EventSlab::NumberOf(slot);
    EventSlab::Of(slot).marks[number / 64].fetch_or(std::uint64_t{1} << number % 64,
                                                    std::memory_order_relaxed);
#endif
}

/// False when nobody marked any slot of the slab.
inline bool MayHoldMarks([[maybe_unused]] const void* slot) {
#ifdef ORBIX_PLAIN_SLOTS
    return true;
#else
    std::uint64_t all = 0;
    for (const auto& word : EventSlab::Of(slot).marks)
        all |= word.load(std::memory_order_relaxed);
    return all != 0;
#endif
}

/// False when nobody marked the slot.
inline bool MayBeMarked([[maybe_unused]] const void* slot) {
#ifdef ORBIX_PLAIN_SLOTS
    return true;
#else
    const std::size_t number = EventSlab::NumberOf(slot);
    const auto word = EventSlab::Of(slot).marks[number / 64].load(std::memory_order_relaxed);
    return (word >> number % 64 & 1) != 0;
#endif
}
