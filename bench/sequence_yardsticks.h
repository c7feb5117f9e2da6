#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "sequence/strstream.h"

// The two yardsticks of the file benchmarks: what no reader can beat, and what a reader written
// down word for word costs. Both expect a good file.

/// Counts the events of a file in memory and keeps nothing.
inline std::size_t WalkFile(const std::vector<std::uint8_t>& file) {
    const std::uint8_t* at = file.data() + 14;
    const std::uint8_t* const end = file.data() + file.size();
    const auto quantity = [&at] {
        std::uint32_t value = 0;
        do
            value = value << 7 | (*at & 0x7FU);
        while (*at++ & 0x80U);
        return value;
    };
    std::size_t events = 0;
    while (at < end) {
        const std::uint8_t* const chunk = at + 8;
        const std::uint8_t* const chunkEnd =
            chunk + (at[4] << 24 | at[5] << 16 | at[6] << 8 | at[7]);
        unsigned status = 0;
        for (at = chunk; at < chunkEnd; ++events) {
            quantity();
            if (*at & 0x80U)
                status = *at++;
            if (status >= 0xF0) {
                at += status == 0xFF;
                const std::uint32_t size = quantity();
                at += size;
            } else {
                at += status >> 5 == 6 ? 1 : 2;
            }
        }
    }
    return events;
}

/// Takes every byte by `eof` and `get` and gives every event a heap block.
class LiteralFile {
public:
    explicit LiteralFile(std::strstream& stream) : m_stream(stream) {
        m_stream.seekg(14);
        while (m_stream.peek() != std::char_traits<char>::eof())
            ReadTrack();
    }
    void Write(std::strstream& out) const {
        for (const Event& event : m_events) {
            std::uint32_t work = event.delta & 0x7FU;
            for (std::uint32_t value = event.delta; value >>= 7;)
                work = work << 8 | 0x80U | (value & 0x7FU);
            out.put(static_cast<char>(work));
            for (; work & 0x80U; out.put(static_cast<char>(work)))
                work >>= 8;
            out.write(reinterpret_cast<const char*>(event.data.get()), event.length);
        }
    }

private:
    struct Event {
        std::uint32_t delta;
        std::uint32_t length;
        std::unique_ptr<std::uint8_t[]> data;
    };

    unsigned Byte() {
        if (m_stream.eof())
            throw -1;
        return static_cast<std::uint8_t>(m_stream.get());
    }
    std::uint32_t Quantity() {
        std::uint32_t value = 0;
        unsigned byte = 0x80;
        while (byte & 0x80U) {
            byte = Byte();
            value = value << 7 | (byte & 0x7FU);
        }
        return value;
    }
    void ReadTrack() {
        m_stream.ignore(4);
        std::int64_t length = 0;
        for (int i = 0; i < 4; ++i)
            length = length << 8 | Byte();
        const std::int64_t end = m_stream.tellg() + length;
        for (unsigned status = 0; m_stream.tellg() < end;)
            status = ReadEvent(status);
    }
    unsigned ReadEvent(unsigned status) {
        Event event{Quantity(), 0, nullptr};
        if (Byte() & 0x80U) {
            m_stream.unget();
            status = Byte();
        } else {
            m_stream.unget();
        }
        const unsigned head = status == 0xFF ? 2 : 1;
        const unsigned type = status == 0xFF ? Byte() : 0;
        const std::uint32_t size = status >= 0xF0 ? Quantity() : status >> 5 == 6 ? 1 : 2;
        const std::uint32_t encoded = status < 0xF0 ? 0 : size < 128 ? 1 : size < 16384 ? 2 : 3;
        event.length = head + encoded + size;
        event.data = std::make_unique<std::uint8_t[]>(event.length);
        event.data[0] = static_cast<std::uint8_t>(status);
        if (head == 2)
            event.data[1] = static_cast<std::uint8_t>(type);
        for (std::uint32_t i = 0; i < encoded; ++i)
            event.data[head + i] = static_cast<std::uint8_t>(
                (size >> 7 * (encoded - 1 - i) & 0x7FU) | (i + 1 < encoded ? 0x80U : 0U));
        std::uint8_t* const payload = event.data.get() + head + encoded;
        if (status >= 0xF0)
            m_stream.read(reinterpret_cast<char*>(payload), size);
        else
            for (std::uint32_t i = 0; i < size; ++i)
                payload[i] = static_cast<std::uint8_t>(Byte());
        m_events.push_back(std::move(event));
        return status;
    }

    std::strstream& m_stream;
    std::vector<Event> m_events;
};
