#pragma once

#include <cstddef>
#include <string_view>

#include "platform/types.h"

/// Bytes that a pattern keeps of its name, and that the name's box takes.
inline constexpr std::size_t kNameLimit = 16;

/// The name as the editor shows and stores it: at most kNameLimit bytes, never ending within a
/// character, with "?" in the place of bytes that are not UTF-8.
CString DisplayName(std::string_view stored);
