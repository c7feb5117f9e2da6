#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "sequence/strstream.h"

using ByteVector = std::vector<std::uint8_t>;

/// Bytes from hexadecimal text with blanks: Hex("00 FF 2F 00").
inline ByteVector Hex(const std::string& text) {
    std::istringstream in(text);
    ByteVector bytes;
    for (unsigned value = 0; in >> std::hex >> value;)
        bytes.push_back(static_cast<std::uint8_t>(value));
    return bytes;
}

inline void Put(std::strstream& stream, const ByteVector& bytes) {
    stream.write(reinterpret_cast<const char*>(bytes.data()),
                 static_cast<std::streamsize>(bytes.size()));
}

/// Everything written into a stream that grew by writing.
inline ByteVector Written(std::strstream& stream) {
    const char* const text = stream.str();
    ByteVector bytes(text, text + stream.pcount());
    stream.freeze(false);
    return bytes;
}

/// What an object's `Write` or `Dump` puts into a stream.
template <typename Object>
ByteVector BytesOf(const Object& object) {
    std::strstream stream;
    object.Write(stream);
    return Written(stream);
}

template <typename Object>
std::string DumpOf(const Object& object) {
    std::strstream stream;
    object.Dump(stream);
    const ByteVector bytes = Written(stream);
    return {bytes.begin(), bytes.end()};
}

/// Gives the code that `action` raises, 0 when it raises none.
template <typename Action>
int CodeOf(Action action) {
    try {
        action();
    } catch (int code) {
        return code;
    }
    return 0;
}
