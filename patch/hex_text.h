#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/types.h"

/// Bytes as a user reads and types them.

/// "0A FF": two upper-case digits a byte, with spaces between.
CString HexText(std::span<const std::uint8_t> bytes);

/// The bytes of a text of hexadecimal digits, two a byte in either case; spaces may stand between
/// bytes. Nothing when it is anything else.
std::optional<std::vector<std::uint8_t>> ParseHex(const CString& text);

/// A 32-bit number, decimal or hexadecimal behind "0x". Nothing when it is anything else.
std::optional<std::uint32_t> ParseNumber(const CString& text);

/// Characters of 7-bit text as they are, a dot for every other byte.
CString PlainText(std::span<const std::uint8_t> bytes);
