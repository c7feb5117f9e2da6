#pragma once

#include <cstdint>

#include "params/pattern_block.h"
#include "params/value_forms.h"

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

/// A number of the pattern, or of its position event `selector`. 0 when it can't be got.
inline std::uint32_t PatternValue(const CQelCPB_3DPattern& pattern, std::uint32_t id,
                                  int selector = -1) {
    st_paramValue record{selector, 0, nullptr};
    pattern.GetParam(id, &record, kSizeParamValue);
    return record.value;
}
