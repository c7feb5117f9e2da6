#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "sequence/zur_sequence.h"

/// What is wrong with the bytes of a Standard MIDI File, and where.
struct MidiFault {
    std::uint32_t offset = 0;  ///< byte from the start
    std::string place;         ///< "header", "track 2", "track 2, event 5"; both count from 1
    std::string expected;
    std::string found;

    /// "at byte 22, track 1, event 1: expected ..., found ..."
    std::string Text() const;
};

/// The sequence that the bytes hold; null, with the fault told, where the classes of the sequence
/// refuse them, would pass over all tracks, or would make up bytes at the end that are not there.
/// Bytes behind the last chunk are passed over. Any thread.
std::unique_ptr<CZurSequence> ReadMidiBytes(std::string_view bytes, MidiFault& fault);

/// The file; nothing for a sequence that none can hold, because it has no tracks or a delta time
/// above `kLargestVarLen`. Raises `std::bad_alloc` without memory.
std::optional<std::string> WriteMidiBytes(const CZurSequence& sequence);
