#pragma once

#include <sys/mman.h>

#include <cstdint>

/// Whether the process has a page at that address.
inline bool IsMapped(const void* place) {
    constexpr std::uintptr_t kPage = 4096;
    unsigned char resident = 0;
    auto* const page =
        reinterpret_cast<void*>(reinterpret_cast<std::uintptr_t>(place) / kPage * kPage);
    return ::mincore(page, 1, &resident) == 0;
}
