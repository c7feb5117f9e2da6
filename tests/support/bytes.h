#pragma once

#include <cctype>
#include <cstdint>
#include <string>
#include <string_view>

/// Bytes from hexadecimal pairs, white space between them as one likes: Bytes("00 FF 2F").
inline std::string Bytes(std::string_view pairs) {
    std::string digits(pairs);
    std::erase_if(digits, [](unsigned char digit) { return std::isxdigit(digit) == 0; });
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        bytes.push_back(static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16)));
    }
    return bytes;
}

/// The other way, for messages a person can read: "00 FF 2F".
inline std::string Hex(std::string_view bytes) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string pairs;
    for (const char each : bytes) {
        const auto byte = static_cast<unsigned char>(each);
        pairs += pairs.empty() ? "" : " ";
        pairs += {kDigits[byte >> 4U], kDigits[byte & 15U]};
    }
    return pairs;
}

inline const std::uint8_t* Data(const std::string& bytes) {
    return reinterpret_cast<const std::uint8_t*>(bytes.data());
}
