#include "sequence/event_slab.h"

#include <mutex>
#include <new>
#include <utility>

#include "sequence/slab_pages.h"

#ifdef ORBIX_PLAIN_SLOTS

EventSlotTake::EventSlotTake() = default;

EventSlotTake::~EventSlotTake() = default;

EventSlotRun EventSlotTake::NewRun() {
    auto* const slot = static_cast<std::byte*>(::operator new(kEventSlot));
    return {slot, slot + kEventSlot};
}

void ReturnEventSlots(void* slot, std::uint32_t /*count*/) {
    ::operator delete(slot);
}

#else

namespace {

constexpr std::size_t kHeadBytes = (sizeof(EventSlab) + kEventSlot - 1) / kEventSlot * kEventSlot;
constexpr std::uint32_t kSlots = (kEventSlab - kHeadBytes) / kEventSlot;

/// The empty slabs. Never destroyed: events of static duration may come back last of all.
class Spares {
public:
    EventSlab* Take() {
        void* slab = nullptr;
        {
            const std::lock_guard lock(m_mutex);
            slab = m_top ? Pop() : m_pages.Take();
        }
        if (!slab)
            throw std::bad_alloc();
        return new (slab) EventSlab{kSlots};
    }

    /// Runs when an event is deleted, so it must not ask for memory: the slabs are their own list.
    void Keep(EventSlab* slab) {
        const std::lock_guard lock(m_mutex);
        if (m_count >= kSpareBytes / kEventSlab) {
            m_pages.GiveBack(slab);
            return;
        }
        slab->next = std::exchange(m_top, slab);
        ++m_count;
    }

private:
    EventSlab* Pop() {
        --m_count;
        return std::exchange(m_top, m_top->next);
    }

    std::mutex m_mutex;
    SlabPages m_pages;
    EventSlab* m_top = nullptr;
    std::size_t m_count = 0;
};

Spares& AllSpares() {
    static auto* const spares = new Spares;
    return *spares;
}

void ReleaseRest(const EventSlotRun& run) {
    if (run.next != run.end)
        ReturnEventSlots(run.next, static_cast<std::uint32_t>((run.end - run.next) / kEventSlot));
}

/// What is left of the slab that a thread hands out from; goes back with the thread.
struct ThreadRun {
    EventSlotRun run;

    EventSlotRun Exchange(const EventSlotRun& other) { return std::exchange(run, other); }
    ~ThreadRun() { ReleaseRest(Exchange({})); }
};

thread_local ThreadRun t_run;

}  // namespace

EventSlotTake::EventSlotTake() : m_run(t_run.Exchange({})) {}

EventSlotTake::~EventSlotTake() {
    ReleaseRest(t_run.Exchange(m_run));
}

EventSlotRun EventSlotTake::NewRun() {
    auto* const first = reinterpret_cast<std::byte*>(AllSpares().Take()) + kHeadBytes;
    return {first, first + kSlots * kEventSlot};
}

void ReturnEventSlots(void* slot, std::uint32_t count) {
    EventSlab& slab = EventSlab::Of(slot);
    if (slab.held.fetch_sub(count, std::memory_order_acq_rel) == count)
        AllSpares().Keep(&slab);
}

#endif
