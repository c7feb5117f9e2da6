#pragma once

#include <cstdint>

/// The numbers of the pattern's parameters (GetParam, SetParam, DoParam of CQelCPB_3DPattern) that
/// its users ask for.
inline constexpr std::uint32_t kPatternPosition = 2900;
inline constexpr std::uint32_t kPatternPositionCount = 2901;
inline constexpr std::uint32_t kPatternName = 2902;
/// The first of seven, for position events by index: tick, 3D ID, two without meaning here,
/// azimuth and elevation in wire form, distance.
inline constexpr std::uint32_t kPatternPositionTick = 2904;
inline constexpr std::uint32_t kPatternClearPositions = 2911;
inline constexpr std::uint32_t kPatternDivision = 2913;
inline constexpr std::uint32_t kPatternTimeSigs = 2914;
