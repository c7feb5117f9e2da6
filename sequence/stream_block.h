#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "sequence/strstream.h"

/// Reads a stream in blocks, so that bytes can be looked at in memory. What was taken in and not
/// used goes back with `PutBack`, and the stream is then as if it had been read byte by byte. The
/// stream must be good and able to seek.
class StreamBlock {
public:
    /// Bytes behind `End` that may be looked at: all 0.
    static constexpr std::size_t kSlack = 16;

    explicit StreamBlock(std::strstream& stream) : m_buffer(*stream.std::ios::rdbuf()) {}

    const std::uint8_t* At() const { return m_at; }
    const std::uint8_t* End() const { return m_end; }
    void MoveTo(const std::uint8_t* at) { m_at = at; }

    /// Takes in more bytes behind the unused ones, up to `wanted` in all. False when that gave
    /// none.
    bool Fill(std::uint64_t wanted) {
        const auto rest = static_cast<std::size_t>(m_end - m_at);
        const std::size_t full = std::min<std::uint64_t>(wanted, kBlock);
        if (full <= rest)
            return false;
        std::memmove(m_bytes.data(), m_at, rest);
        const std::streamsize got = m_buffer.sgetn(reinterpret_cast<char*>(m_bytes.data() + rest),
                                                   static_cast<std::streamsize>(full - rest));
        m_at = m_bytes.data();
        m_end = m_at + rest + got;
        std::memset(m_bytes.data() + rest + got, 0, kSlack);
        return got > 0;
    }

    void PutBack() {
        if (m_at != m_end)
            m_buffer.pubseekoff(m_at - m_end, std::ios::cur, std::ios::in);
        m_at = m_end;
    }

private:
    static constexpr std::size_t kBlock = 16384;

    std::streambuf& m_buffer;
    std::array<std::uint8_t, kBlock + kSlack> m_bytes;  // filled before it is looked at
    const std::uint8_t* m_at = m_bytes.data();
    const std::uint8_t* m_end = m_bytes.data();
};
