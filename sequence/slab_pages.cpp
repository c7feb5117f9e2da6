#include "sequence/slab_pages.h"

#include <utility>

#include "sequence/event_slab.h"
#include "sequence/large_pages.h"

namespace {

constexpr std::size_t kReserved = kLargePage;  // of addresses
constexpr std::size_t kPopulated = 2 * kEventSlab;
static_assert(kReserved % kPopulated == 0);
// A process with a few songs does without large pages: it may need but the beginning of one.
constexpr std::size_t kSmallSteps = 1;

}  // namespace

void* SlabPages::Take() {
    if (m_returned.begin != m_returned.end)
        return m_returned.end -= kEventSlab;
    if (m_new.begin == m_new.end) {
        std::byte* const begin = ReservePages(kReserved);
        if (!begin)
            return nullptr;
        m_new = {begin, begin + kReserved};
        if (++m_steps > kSmallSteps)
            PreferLargePages(begin, kReserved);
    }
    if (static_cast<std::size_t>(m_new.end - m_new.begin) % kPopulated == 0)
        FillPages(m_new.begin, kPopulated);
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
    if (m_returned.begin != m_returned.end)
        ReleasePages(m_returned.begin, static_cast<std::size_t>(m_returned.end - m_returned.begin));
}
