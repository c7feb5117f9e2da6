#include "tests/sequence/heap_watch.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {
std::size_t s_now = 0;
std::size_t s_peak = 0;

void* Take(std::size_t size) {
    void* const block = std::malloc(size);
    s_now += malloc_usable_size(block);
    s_peak = std::max(s_peak, s_now);
    return block;
}
void Give(void* block) {
    s_now -= malloc_usable_size(block);
    std::free(block);
}
}  // namespace

std::size_t HeapNow() {
    return s_now;
}
std::size_t HeapPeak() {
    return s_peak;
}
void MarkHeap() {
    s_peak = s_now;
}

// clang-format off
void* operator new(std::size_t size) { void* const block = Take(size); return block ? block : throw std::bad_alloc(); }
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Take(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Take(size); }
void operator delete(void* block) noexcept { Give(block); }
void operator delete[](void* block) noexcept { Give(block); }
void operator delete(void* block, std::size_t) noexcept { Give(block); }
void operator delete[](void* block, std::size_t) noexcept { Give(block); }
// clang-format on
