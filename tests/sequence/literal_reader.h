#pragma once

#include <string>

#include "tests/sequence/streams.h"

/// The oracle: a reader of Standard MIDI Files that takes byte after byte from a vector and makes
/// the text that a sequence dumps.
class LiteralReader {
public:
    explicit LiteralReader(const std::string& bytes) : m_bytes(bytes) {}

    int Read() {
        return CodeOf([this] { ReadFile(); });
    }
    const std::string& Text() const { return m_text; }

private:
    unsigned Byte() {
        if (m_ended)
            throw -1;
        m_ended = m_at == m_bytes.size();
        return m_ended ? 0xFF : static_cast<std::uint8_t>(m_bytes[m_at++]);
    }
    std::uint32_t VarLen() {
        std::uint32_t value = 0;
        unsigned byte = 0x80;
        while (byte & 0x80) {
            byte = Byte();
            value = value * 128 + byte % 128;
        }
        if (value > 0x0FFFFFFF)
            throw -1;
        return value;
    }
    std::int64_t Word(std::size_t count, int code) {
        if (m_ended || m_bytes.size() - m_at < count)
            throw code;
        std::int64_t value = 0;
        while (count-- > 0)
            value = value * 256 + Byte();
        return value;
    }
    void ReadPayload(std::string& event) {
        const std::uint32_t size = VarLen();
        for (int shift = 21; shift >= 0; shift -= 7)
            if (size >> shift || shift == 0)
                event += static_cast<char>((size >> shift) % 128 + (shift ? 128 : 0));
        if (size > m_bytes.size() - m_at)
            throw -1;
        event.append(m_bytes, m_at, size);
        m_at += size;
    }
    unsigned ReadEvent(unsigned status) {
        const std::uint32_t delta = VarLen();
        if (m_at == m_bytes.size())
            throw -1;
        if (m_bytes[m_at] & 0x80)
            status = Byte();
        if (status < 0x80)
            throw -100;
        std::string event(1, static_cast<char>(status));
        const unsigned kind = status / 16;
        if (kind < 0xF || status == 0xFF)
            event += static_cast<char>(Byte());
        if (kind < 0xF && kind != 0xC && kind != 0xD)
            event += static_cast<char>(Byte());
        if (kind == 0xF)
            ReadPayload(event);
        m_text += std::to_string(delta) + "\t\t" + Hex(event) + " \r";
        return status;
    }
    void ReadTrack() {
        if (Word(4, -102) != 0x4D54726B)
            throw -102;
        const std::int64_t length = Word(4, -101);
        const std::int64_t end = static_cast<std::int64_t>(m_at) + length;
        unsigned status = 0;
        while (length > 0 && !m_ended && static_cast<std::int64_t>(m_at) < end)
            if (CodeOf([&] { status = ReadEvent(status); }) != 0)
                throw -101;
    }
    void ReadFile() {
        if (Word(4, -103) != 0x4D546864)
            throw -103;
        if (Word(4, -104) != 6)
            throw -104;
        const std::int64_t format = Word(2, -105);
        if (format > 1)
            throw -105;
        const auto tracks = static_cast<std::int16_t>(Word(2, -106));
        if (format == 0 ? tracks != 1 : tracks == 0)
            throw -106;
        const std::int64_t division = Word(2, -107);
        if (division >= 0x8000)
            throw -107;
        m_text = "Format:" + std::to_string(format) +
                 "\rResolution:" + std::to_string(division ? division : 480) + '\r';
        for (int track = 0; track < tracks; ++track) {
            m_text += "Track:" + std::to_string(track) + '\r';
            ReadTrack();
        }
    }

    const std::string& m_bytes;
    std::size_t m_at = 0;
    bool m_ended = false;
    std::string m_text;
};
