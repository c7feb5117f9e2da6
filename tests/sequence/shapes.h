#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "tests/sequence/bytes.h"

/// Shows `bytes` to `check` in the three shapes that an in-memory stream comes in.
template <typename Check>
void InEveryShape(const ByteVector& bytes, Check check) {
    {
        SCOPED_TRACE("over a caller's buffer");
        ByteVector room = bytes;
        room.push_back(0);  // a length of 0 would make the stream look for a closing zero
        std::strstream stream(reinterpret_cast<char*>(room.data()), static_cast<int>(bytes.size()),
                              std::ios::in | std::ios::out);
        stream.seekp(static_cast<std::streamoff>(bytes.size()));
        check(stream);
    }
    {
        SCOPED_TRACE("grown by writing");
        std::strstream stream;
        Put(stream, bytes);
        check(stream);
    }
    {
        SCOPED_TRACE("partly read");
        std::strstream stream;
        Put(stream, ByteVector(37, 0xAA));
        stream.ignore(37);
        Put(stream, bytes);
        check(stream);
    }
}
