#pragma once

#include <cstdint>
#include <string>

/// The platform's vocabulary: names, widths and numbers as window programs know them.
/// No toolkit stands behind anything in this header.

using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using BOOL = int;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;

inline constexpr BOOL TRUE = 1;
inline constexpr BOOL FALSE = 0;

/// Text is UTF-8 everywhere inside; only the toolkit's folder converts.
using CString = std::string;

/// A colour with red in the low byte, then green, then blue.
using COLORREF = std::uint32_t;

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue) {
    return (red & 0xFFU) | ((green & 0xFFU) << 8U) | ((blue & 0xFFU) << 16U);
}
constexpr int GetRValue(COLORREF colour) {
    return static_cast<int>(colour & 0xFFU);
}
constexpr int GetGValue(COLORREF colour) {
    return static_cast<int>((colour >> 8U) & 0xFFU);
}
constexpr int GetBValue(COLORREF colour) {
    return static_cast<int>((colour >> 16U) & 0xFFU);
}

/// A window: a record that only the toolkit's folder can see into. Null is no window.
struct NativeWindow;
using HWND = NativeWindow*;

struct POINT {
    LONG x = 0;
    LONG y = 0;
    bool operator==(const POINT&) const = default;
};

struct SIZE {
    LONG cx = 0;
    LONG cy = 0;
    bool operator==(const SIZE&) const = default;
};

/// Pixels left..right-1, top..bottom-1.
struct RECT {
    LONG left = 0;
    LONG top = 0;
    LONG right = 0;
    LONG bottom = 0;
    bool operator==(const RECT&) const = default;
};

constexpr LONG Width(const RECT& rect) {
    return rect.right - rect.left;
}
constexpr LONG Height(const RECT& rect) {
    return rect.bottom - rect.top;
}

/// Whether the point lies inside; the right and the lower edge are outside.
constexpr bool PtInRect(const RECT& rect, POINT point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top &&
           point.y < rect.bottom;
}
