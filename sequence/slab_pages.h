#pragma once

#include <cstddef>

/// The slabs' memory, straight from the system: address space in large steps, and pages two slabs
/// at a time, which costs half of a page fault each. Beyond the first step the system is asked for
/// large pages; where it gives none, everything works the same, a little slower.
///
/// Not safe for several threads at once.
class SlabPages {
public:
    /// `kEventSlab` bytes at a multiple of that length, of any content. Null without memory.
    void* Take();

    /// Gives one slab's memory back. It goes to the system together with its neighbours: a call for
    /// each slab would take as long as reading the events did.
    void GiveBack(void* slab);

private:
    struct Range {
        std::byte* begin = nullptr;
        std::byte* end = nullptr;
    };

    void ReleaseReturned();

    std::size_t m_steps = 0;  ///< of address space so far
    Range m_new;              ///< not handed out yet
    Range m_returned;         ///< not yet the system's again
};
