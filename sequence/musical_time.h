#pragma once

#include <cstdint>
#include <vector>

#include "sequence/musical_types.h"

// Conversions between the three ways to state a moment: ticks from the start, a measure, beat and
// tick under a list of time signatures, and milliseconds under a list of tempos.
//
// The division is ticks per quarter note. A beat lasts division * 4 / denominator ticks, the
// remainder dropped; a measure lasts numerator such beats. All integers are unsigned 32-bit words
// and wrap. Lists stand in rising order. No function fails or divides by zero: a denominator,
// division, tempo or rate of 0 counts as 1 where it divides, a beat as at least one tick and a
// measure as at least one beat. Any thread; nothing is kept between calls.

/// The place of `totalTick` under the signatures. Before the first record 4/4 holds from the start;
/// a record's own tick gives its own measure, beat and tick.
void TickToMeasure(std::uint32_t totalTick, std::uint32_t division,
                   const std::vector<t_tSigMapRec>& signatures, t_MBT& position);

/// Total ticks of a place under the signatures, the reverse of `TickToMeasure`. Beat and tick are
/// not held against the signature: 1, 9, 0 under 4/4 is the start of measure 3.
std::uint32_t MeasureToTick(const t_MBT& position, std::uint32_t division,
                            const std::vector<t_tSigMapRec>& signatures);

/// The place of `ticks` counted from the start of a measure 1 under one signature.
void SplitTicks(std::uint32_t numerator, std::uint32_t denominator, std::uint32_t division,
                std::uint32_t ticks, t_MBT& position);

/// Ticks of a place under one signature that starts at `baseTick` in `baseMeasure`. `beat` counts
/// from 0 here.
std::uint32_t JoinTicks(std::uint32_t numerator, std::uint32_t denominator, std::uint32_t baseTick,
                        std::uint32_t baseMeasure, std::uint32_t division, std::uint32_t measure,
                        std::uint32_t beat, std::uint32_t tick);

/// Ticks of a measure, multiplied first and divided last, so that its truncation can differ from
/// that of `SplitTicks`. 0 for a numerator of 0.
std::uint32_t TicksPerMeasure(std::uint32_t numerator, std::uint32_t denominator,
                              std::uint32_t division);

/// Beats a minute to microseconds per quarter note, truncated.
std::uint32_t BpmToTempo(std::uint32_t beatsPerMinute);

/// Microseconds per quarter note to beats a minute.
double TempoToBpm(std::uint32_t tempo);

/// Milliseconds from the start to `totalTick`, rounded to the nearest. The microseconds are
/// truncated at every tempo record. Before the first record the tempo is 500000. A moment beyond
/// the 4,294,967,295 microseconds (71 minutes) of the sum is held there.
std::uint32_t TickToMilliseconds(std::uint32_t totalTick, std::uint32_t division,
                                 const std::vector<t_tTempoRec>& tempos);

/// The tick that falls on a moment, truncated, reckoned from the whole milliseconds of the last
/// tempo record before it: 500 ms at division 480 and tempo 500000 is tick 479, because
/// tempo / division is a division of doubles. Held at the largest 32-bit value.
std::uint32_t MillisecondsToTick(std::uint32_t milliseconds, std::uint32_t division,
                                 const std::vector<t_tTempoRec>& tempos);
