#pragma once

#include <cstdint>

/// A moment in musical terms. Measure and beat count from 1, the tick within the beat from 0; the
/// first moment of a piece is 1, 1, 0.
struct t_MBT {
    std::uint32_t measure = 1;
    std::uint32_t beat = 1;
    std::uint32_t tick = 0;

    friend bool operator==(const t_MBT&, const t_MBT&) = default;
};

/// One time signature and where it starts. A list of these is a vector in rising order of total
/// tick and measure. The default is what holds where no record does: 4/4 from the very start.
struct t_tSigMapRec {
    std::uint32_t measure = 1;
    std::uint32_t beat = 1;
    std::uint32_t tick = 0;
    std::uint32_t totalTick = 0;  ///< the same place in ticks from the start of the piece
    std::uint32_t numerator = 4;
    std::uint32_t denominator = 4;  ///< the note value itself (8 for eighths), not its power of two

    /// The place in musical terms: the record's first three words.
    t_MBT Position() const { return {measure, beat, tick}; }

    friend bool operator==(const t_tSigMapRec&, const t_tSigMapRec&) = default;
};

/// One tempo change and where it stands. A list of these is a vector in rising order of total tick.
struct t_tTempoRec {
    std::uint32_t measure = 1;
    std::uint32_t beat = 1;
    std::uint32_t tick = 0;
    std::uint32_t totalTick = 0;
    std::uint32_t tempo = 500000;  ///< microseconds per quarter note; 500000 is 120 beats a minute

    friend bool operator==(const t_tTempoRec&, const t_tTempoRec&) = default;
};
