#pragma once

#include <cstddef>

// Memory straight from the system, for what is large. A process that first writes to a page waits
// for it; a large page is one wait where small ones are five hundred. Any thread.

inline constexpr std::size_t kLargePage = std::size_t{2} << 20;

/// `bytes` of address space, a multiple of `kLargePage` that begins at one, which the system alone
/// does not promise. Null without memory.
std::byte* ReservePages(std::size_t bytes);

/// Asks for large pages behind whole ones of that space. Where the system gives none, everything
/// works the same, more slowly.
void PreferLargePages(std::byte* begin, std::size_t bytes);

/// Has small pages made now, all in one go.
void FillPages(std::byte* begin, std::size_t bytes);

/// Makes the memory the system's again. Any part of what was reserved.
void ReleasePages(std::byte* begin, std::size_t bytes);
