#pragma once

#include <cstdint>

/// The numbers of the pattern's parameters (GetParam, SetParam, DoParam of CQelCPB_3DPattern) that
/// its users ask for.
inline constexpr std::uint32_t kPatternPosition = 2900;
inline constexpr std::uint32_t kPatternPositionCount = 2901;
inline constexpr std::uint32_t kPatternName = 2902;
/// Of position events by index, seven in a row; two between ID and azimuth have no meaning here.
/// Azimuth and elevation are in wire form.
inline constexpr std::uint32_t kPatternPositionTick = 2904;
inline constexpr std::uint32_t kPatternPositionId = 2905;
inline constexpr std::uint32_t kPatternPositionAzimuth = 2908;
inline constexpr std::uint32_t kPatternPositionElevation = 2909;
inline constexpr std::uint32_t kPatternPositionDistance = 2910;
inline constexpr std::uint32_t kPatternClearPositions = 2911;
inline constexpr std::uint32_t kPatternDivision = 2913;
inline constexpr std::uint32_t kPatternTimeSigs = 2914;
