#include "sequence/large_pages.h"

#include <sys/mman.h>

#include <cstdint>

std::byte* ReservePages(std::size_t bytes) {
    void* const range = ::mmap(nullptr, bytes + kLargePage, PROT_READ | PROT_WRITE,
                               MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (range == MAP_FAILED)
        return nullptr;
    auto* const begin = static_cast<std::byte*>(range);
    const std::size_t below = (0 - reinterpret_cast<std::uintptr_t>(begin)) % kLargePage;
    if (below > 0)
        ::munmap(begin, below);
    ::munmap(begin + below + bytes, kLargePage - below);
    return begin + below;
}

void PreferLargePages([[maybe_unused]] std::byte* begin, [[maybe_unused]] std::size_t bytes) {
#ifdef MADV_HUGEPAGE
    ::madvise(begin, bytes, MADV_HUGEPAGE);
#endif
}

void FillPages([[maybe_unused]] std::byte* begin, [[maybe_unused]] std::size_t bytes) {
#ifdef MADV_POPULATE_WRITE
    // A system that is too old for it gives the pages one by one, when they are first written.
    ::madvise(begin, bytes, MADV_POPULATE_WRITE);
#endif
}

void ReleasePages(std::byte* begin, std::size_t bytes) {
    // The system parts a range into a limited number of pieces only: then the addresses stay, but
    // not the memory behind them.
    if (::munmap(begin, bytes) != 0)
        ::madvise(begin, bytes, MADV_DONTNEED);
}
