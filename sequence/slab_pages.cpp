#include "sequence/slab_pages.h"

#include <sys/mman.h>

#include <cstdint>
#include <utility>

#include "sequence/event_slab.h"

namespace {

constexpr std::size_t kReserved = std::size_t{2} << 20;  // of addresses: one large page
constexpr std::size_t kPopulated = 2 * kEventSlab;
static_assert(kReserved % kPopulated == 0);
// A process with a few songs does without large pages: it may need but the beginning of one.
constexpr std::size_t kSmallSteps = 1;

/// `kReserved` bytes at a multiple of that length, which the system alone does not promise.
std::byte* Reserve() {
    void* const range =
        ::mmap(nullptr, 2 * kReserved, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (range == MAP_FAILED)
        return nullptr;
    auto* const begin = static_cast<std::byte*>(range);
    const std::size_t below = (0 - reinterpret_cast<std::uintptr_t>(begin)) % kReserved;
    if (below > 0)
        ::munmap(begin, below);
    ::munmap(begin + below + kReserved, kReserved - below);
    return begin + below;
}

}  // namespace

void* SlabPages::Take() {
    if (m_returned.begin != m_returned.end)
        return m_returned.end -= kEventSlab;
    if (m_new.begin == m_new.end) {
        std::byte* const begin = Reserve();
        if (!begin)
            return nullptr;
        m_new = {begin, begin + kReserved};
#ifdef MADV_HUGEPAGE
        if (++m_steps > kSmallSteps)
            ::madvise(begin, kReserved, MADV_HUGEPAGE);
#endif
    }
#ifdef MADV_POPULATE_WRITE
    // A system that is too old for it gives the pages one by one, when they are first written.
    if (static_cast<std::size_t>(m_new.end - m_new.begin) % kPopulated == 0)
        ::madvise(m_new.begin, kPopulated, MADV_POPULATE_WRITE);
#endif
    return std::exchange(m_new.begin, m_new.begin + kEventSlab);
}

void SlabPages::GiveBack(void* slab) {
    auto* const begin = static_cast<std::byte*>(slab);
    if (begin != m_returned.end || m_returned.end - m_returned.begin >= std::ptrdiff_t{kReserved}) {
        ReleaseReturned();
        m_returned.begin = begin;
    }
    m_returned.end = begin + kEventSlab;
}

void SlabPages::ReleaseReturned() {
    if (m_returned.begin == m_returned.end)
        return;
    const auto bytes = static_cast<std::size_t>(m_returned.end - m_returned.begin);
    // The system parts a range into a limited number of pieces only: then the addresses stay, but
    // not the memory behind them.
    if (::munmap(m_returned.begin, bytes) != 0)
        ::madvise(m_returned.begin, bytes, MADV_DONTNEED);
}
