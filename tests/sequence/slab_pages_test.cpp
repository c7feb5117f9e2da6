#include "sequence/slab_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <set>
#include <vector>

#include "sequence/event_slab.h"
#include "tests/support/mapped.h"

namespace {

// Two hundred slabs are several reservations; each holds its number from the first byte to the
// last.
TEST(SlabPages, WhatIsTakenIsWholeAlignedAndNobodyElses) {
    SlabPages pages;
    std::vector<unsigned char*> held;
    std::set<void*> seen;
    std::mt19937 random(3);
    for (unsigned round = 0; round < 5; ++round) {
        while (held.size() < 200) {
            auto* const slab = static_cast<unsigned char*>(pages.Take());
            ASSERT_EQ(reinterpret_cast<std::uintptr_t>(slab) % kEventSlab, 0U);
            ASSERT_TRUE(seen.insert(slab).second) << "handed out twice";
            std::memset(slab, static_cast<int>(held.size()), kEventSlab);
            held.push_back(slab);
        }
        for (std::size_t i = 0; i < held.size(); ++i) {
            ASSERT_EQ(held[i][0], i);
            ASSERT_EQ(std::memcmp(held[i], held[i] + 1, kEventSlab - 1), 0) << i;
        }
        // In a row as a file's events go, and at random.
        if (round % 2 == 1)
            std::shuffle(held.begin(), held.end(), random);
        const auto kept = held.begin() + round * 30;
        for (auto each = kept; each != held.end(); ++each) {
            seen.erase(*each);
            pages.GiveBack(*each);
        }
        held.erase(kept, held.end());
        for (std::size_t i = 0; i < held.size(); ++i)
            std::memset(held[i], static_cast<int>(i), kEventSlab);
    }
    for (unsigned char* const slab : held)
        pages.GiveBack(slab);
}

// All but the last run of neighbours, at most 2 MiB, which may be handed out again.
TEST(SlabPages, WhatIsGivenBackIsTheSystemsAgain) {
    SlabPages pages;
    std::vector<void*> slabs(1000);
    for (void*& slab : slabs)
        slab = pages.Take();
    for (void* const slab : slabs)
        pages.GiveBack(slab);
    EXPECT_LE(std::ranges::count_if(slabs, IsMapped), (2 << 20) / kEventSlab);
    EXPECT_TRUE(IsMapped(slabs.back()));
    EXPECT_EQ(pages.Take(), slabs.back());
}

}  // namespace
