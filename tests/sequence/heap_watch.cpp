#include "tests/sequence/heap_watch.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {
std::size_t s_now = 0;
std::size_t s_peak = 0;

void* Count(void* block) {
    s_now += malloc_usable_size(block);
    s_peak = std::max(s_peak, s_now);
    return block;
}
void Release(void* block) {
    s_now -= malloc_usable_size(block);
    std::free(block);  // NOLINT: this is the allocator
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

void* operator new(std::size_t size) {
    void* const block = std::malloc(size);
    return block ? Count(block) : throw std::bad_alloc();
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    void* const block = std::aligned_alloc(static_cast<std::size_t>(alignment), size);
    return block ? Count(block) : throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* const block = std::malloc(size);
    return block ? Count(block) : nullptr;
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return operator new(size, tag);
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void operator delete[](void* block) noexcept {
    Release(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    Release(block);
}
void operator delete(void* block) noexcept {
    Release(block);
}
void operator delete(void* block, std::size_t) noexcept {
    Release(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
    Release(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
    Release(block);
}
