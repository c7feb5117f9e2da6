#pragma once

#include <cstdint>
#include <limits>

/// `value` truncated toward zero and held inside an unsigned 32-bit word; 0 for what is no number.
inline std::uint32_t HeldToWord(double value) {
    constexpr auto largest = std::numeric_limits<std::uint32_t>::max();
    if (!(value > 0.0))
        return 0;
    return value >= static_cast<double>(largest) ? largest : static_cast<std::uint32_t>(value);
}
