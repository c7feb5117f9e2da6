#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "sequence/strstream.h"
#include "tests/support/bytes.h"

inline void Put(std::strstream& stream, const std::string& bytes) {
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// Everything written into a stream that grew by writing.
inline std::string Written(std::strstream& stream) {
    std::string bytes(stream.str(), static_cast<std::size_t>(stream.pcount()));
    stream.freeze(false);
    return bytes;
}

/// What an object's `Write` or `Dump` puts into a stream.
template <typename Object>
std::string BytesOf(const Object& object) {
    std::strstream stream;
    object.Write(stream);
    return Written(stream);
}

template <typename Object>
std::string DumpOf(const Object& object) {
    std::strstream stream;
    object.Dump(stream);
    return Written(stream);
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

/// Shows `bytes` to `check` in the three shapes that an in-memory stream comes in.
template <typename Check>
void InEveryShape(const std::string& bytes, Check check) {
    {
        SCOPED_TRACE("over a caller's buffer");
        std::string room = bytes + '\0';  // of length 0 the stream would look for a closing zero
        std::strstream stream(room.data(), static_cast<int>(bytes.size()));
        stream.seekp(static_cast<std::streamoff>(bytes.size()));
        check(stream);
    }
    for (const std::size_t before : {0U, 37U}) {
        SCOPED_TRACE(before ? "partly read" : "grown by writing");
        std::strstream stream;
        Put(stream, std::string(before, 'x'));
        stream.ignore(static_cast<std::streamsize>(before));
        Put(stream, bytes);
        check(stream);
    }
}
