#include "patch/hex_text.h"

#include <charconv>
#include <string_view>

namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

// The number that the whole of `text` is.
template <typename Number>
std::optional<Number> WholeNumber(std::string_view text, int base) {
    Number number = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, number, base);
    return error == std::errc() && end == last ? std::optional(number) : std::nullopt;
}

}  // namespace

CString HexText(std::span<const std::uint8_t> bytes) {
    CString text;
    for (const std::uint8_t byte : bytes) {
        text += text.empty() ? "" : " ";
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 0x0FU];
    }
    return text;
}

std::optional<std::vector<std::uint8_t>> ParseHex(const CString& text) {
    std::vector<std::uint8_t> bytes;
    std::size_t place = text.find_first_not_of(' ');
    while (place != CString::npos) {
        const std::string_view pair = std::string_view(text).substr(place, 2);
        const auto byte = WholeNumber<std::uint8_t>(pair, 16);
        if (!byte || pair.size() != 2) {
            return std::nullopt;
        }
        bytes.push_back(*byte);
        place = text.find_first_not_of(' ', place + 2);
    }
    return bytes;
}

std::optional<std::uint32_t> ParseNumber(const CString& text) {
    const bool isHex = text.starts_with("0x") || text.starts_with("0X");
    return WholeNumber<std::uint32_t>(std::string_view(text).substr(isHex ? 2 : 0),
                                      isHex ? 16 : 10);
}

CString PlainText(std::span<const std::uint8_t> bytes) {
    CString text;
    for (const std::uint8_t byte : bytes) {
        text += byte >= 0x20 && byte < 0x7F ? static_cast<char>(byte) : '.';
    }
    return text;
}
