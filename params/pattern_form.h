#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "params/pattern_block.h"
#include "sequence/api.h"

/// What is wrong with the bytes of a pattern, and where.
struct ORBIX_API PatternFault {
    std::uint32_t offset = 0;  ///< byte from the start
    std::string block;         ///< the way to the block: "pattern > division (block 2907, child 4)"
    std::string expected;
    std::string found;

    /// "at byte 4, pattern: expected ..., found ..."
    std::string Text() const;
};

/// Checks that the bytes are one whole pattern and nothing else. The form has no magic number, so
/// every header, length and count down to the last level is held against its surroundings, and
/// position events and time signatures must have the blocks that are read from them. Linear in the
/// number of bytes; nothing is allocated unless there is a fault.
ORBIX_API std::optional<PatternFault> CheckPatternBytes(std::string_view bytes);

/// The pattern that the bytes hold; null, with the fault told, when the check refuses them. Raises
/// `std::bad_alloc` without memory: a pattern is never read in part.
ORBIX_API std::unique_ptr<CQelCPB_3DPattern> ReadPatternBytes(std::string_view bytes,
                                                              PatternFault& fault);

/// A copy that is whole. Raises `std::bad_alloc` without memory, where the copy constructor leaves
/// out what there is no room for.
ORBIX_API std::unique_ptr<CQelCPB_3DPattern> CopyPattern(const CQelCPB_3DPattern& pattern);

/// The stored form, the same bytes for equal patterns. Raises `std::bad_alloc` without memory.
ORBIX_API std::string WritePatternBytes(const CQelCPB_3DPattern& pattern);
