#pragma once

#include <cstdint>
#include <string>

// Stored patterns, put together byte by byte with nothing of what is tested.

/// Four bytes, the highest first.
inline std::string Word(std::size_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>(value >> shift & 0xFFU);
    }
    return bytes;
}

/// A stored block: identifier, payload length, payload.
inline std::string Block(std::uint32_t id, const std::string& payload) {
    return Word(id) + Word(payload.size()) + payload;
}

/// A stored composite, `count` children in `children`, inside the block that its parent knows.
inline std::string Composite(std::uint32_t id, std::uint32_t count, const std::string& children) {
    return Block(id, Block(0, Word(count) + children));
}

/// 4/4 at measure 1, beat 1, tick 0.
inline std::string TimeSigBlock() {
    return Composite(5700, 3,
                     Block(5800, {1, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0}) + Block(5801, {0, 4}) +
                         Block(5802, {0, 4}));
}

/// Straight ahead: tick, ID, two bytes without meaning, then azimuth and elevation as
/// degrees / 3 + 64, then millimetres.
inline std::string PositionBlock(std::uint32_t tick, char id, std::uint32_t distance = 1000) {
    return Composite(2903, 1,
                     Block(2800, Word(tick) + std::string{id, 0, 0, 0, 64, 64} + Word(distance)));
}

/// A pattern of division 480 with the time signatures of `timeSigs` and then `others` as its last
/// children.
inline std::string PatternOf(std::uint32_t timeSigCount, const std::string& timeSigs,
                             std::uint32_t otherCount, const std::string& others,
                             const std::string& name = "Orbit") {
    return Composite(0, 5 + otherCount,
                     Block(2900, std::string(24, '\0')) +
                         Block(2901, name + std::string(17 - name.size(), '\0')) +
                         Block(2902, Word(0)) + Block(2907, Word(480)) +
                         Composite(2906, timeSigCount, timeSigs) + others);
}
