#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

/// Bytes from hexadecimal pairs, white space between them as one likes: Bytes("00 FF 2F").
inline std::string Bytes(std::string_view pairs) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string bytes;
    bool half = false;
    for (const char digit : pairs) {
        const std::size_t value = kDigits.find(digit);
        if (value == std::string_view::npos) {
            continue;
        }
        if (half) {
            bytes.back() = static_cast<char>(static_cast<std::size_t>(bytes.back()) << 4U | value);
        } else {
            bytes.push_back(static_cast<char>(value));
        }
        half = !half;
    }
    return bytes;
}

/// The other way, for messages a person can read: "00 FF 2F".
inline std::string Hex(std::string_view bytes) {
    std::string pairs;
    for (const char byte : bytes) {
        char pair[4];
        std::snprintf(pair, sizeof pair, "%02X ", static_cast<unsigned char>(byte));
        pairs += pair;
    }
    if (!pairs.empty()) {
        pairs.pop_back();
    }
    return pairs;
}

inline const std::uint8_t* Data(const std::string& bytes) {
    return reinterpret_cast<const std::uint8_t*>(bytes.data());
}
