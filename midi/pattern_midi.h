#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "params/pattern_block.h"
#include "sequence/zur_sequence.h"

// A pattern as a Standard MIDI File. Of the pattern's division one tick is one tick; the name is
// the track name of track 1, a time signature is a meta event there, a position event is one F0
// event with the device message (params/device_message.h). Other blocks that a pattern carries do
// not travel. Any thread.

/// How a pattern is laid out as a file.
struct PatternMidiLayout {
    /// 0: one track; 1: a conductor track with all meta events, then a track for each 3D ID.
    std::int16_t format = 0;
    /// Of the one tempo event, at tick 0; microseconds per quarter note, 1 to 0xFFFFFF.
    std::uint32_t tempo = 500000;
};

/// Writes a pattern as a sequence that `PatternFromSequence` reads back the same: name, division,
/// time signatures, and position events in rising order of tick and, at one tick, in the pattern's
/// order (format 1: in that of the 3D IDs). Null for what a file can't say, with words for what
/// was expected: a division that is not 1 to 32767, a time signature beyond 32 bits of ticks or
/// with a fraction that has no meta event.
std::unique_ptr<CZurSequence> SequenceFromPattern(const CQelCPB_3DPattern& pattern,
                                                  const PatternMidiLayout& layout,
                                                  std::string& refusal);

/// A pattern out of a sequence, and what of the sequence it can't hold.
struct PatternFromMidi {
    /// Values as the messages have them, also those that no editor writes: a load corrects them.
    /// The name is that of a new pattern.
    std::unique_ptr<CQelCPB_3DPattern> pattern;
    /// The track name of track 1, in all its length.
    std::optional<std::string> name;
    /// Positions beyond tick 999,999,999 or the 32,767 that a pattern counts to.
    std::uint32_t positionsLeftOut = 0;
    // All events that are neither taken over nor what every file of a pattern has besides: end
    // markers, the names of its ID tracks, a tempo of 120 at the start, empty texts.
    std::uint32_t channelMessages = 0;
    std::uint32_t metaEvents = 0;
    std::uint32_t systemMessages = 0;
};

/// Takes device messages from all tracks, in rising order of tick and at one tick in track order,
/// and name and time signatures from track 1.
PatternFromMidi PatternFromSequence(const CZurSequence& sequence);
