#pragma once

#include <cstdint>

#include "platform/messages.h"

/// What the editor and its position pages say to each other, through SendMessage.

/// A position: millimetres and degrees, on their grids.
struct tag3DPosMsg {
    std::int32_t distance = 0;
    std::int32_t azimuth = 0;
    std::int32_t elevation = 0;
    bool operator==(const tag3DPosMsg&) const = default;
};

/// A new position, both ways. wParam: pointer to a tag3DPosMsg; lParam: who says it.
inline constexpr UINT WM_SET3DPOS = WM_USER + 1;
/// From the editor to a page: wParam 1 enables its controls, 0 disables them.
inline constexpr UINT WM_ENABLEPAGE = WM_USER + 2;
/// One step of a CRepeatButton, to its parent. wParam: the button's control number.
inline constexpr UINT WM_REPEATCLICK = WM_USER + 10;

/// lParam of WM_SET3DPOS.
inline constexpr LPARAM kFromSphericalPage = 0;  ///< And from the editor.
inline constexpr LPARAM kFromCartesianPage = 1;
