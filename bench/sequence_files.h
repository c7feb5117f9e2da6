#pragma once

#include <cstdint>
#include <random>
#include <vector>

/// What a made Standard MIDI File is like.
struct MadeFile {
    std::size_t bytes;       ///< about; the file is a little longer
    int tracks;              ///< 1 gives format 0
    int systemExclusiveMax;  ///< longest system exclusive payload
    std::uint32_t seed;
};

/// Makes files that look like real ones: mostly notes with running status, then controllers, pitch
/// bends and programs, a few texts, and now and then a system exclusive message.
class FileMaker {
public:
    explicit FileMaker(const MadeFile& file) : m_file(file), m_random(file.seed) {}

    std::vector<std::uint8_t> Make() {
        Append({'M', 'T', 'h', 'd', 0, 0, 0, 6, 0});
        Append({static_cast<std::uint8_t>(m_file.tracks > 1), 0});
        Append({static_cast<std::uint8_t>(m_file.tracks), 1, 0xE0});
        for (int track = 0; track < m_file.tracks; ++track)
            AddTrack(track);
        return std::move(m_bytes);
    }

private:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }
    void Append(std::initializer_list<unsigned> bytes) {
        for (const unsigned byte : bytes)
            m_bytes.push_back(static_cast<std::uint8_t>(byte));
    }
    void Quantity(std::uint32_t value) {
        for (int shift = 21; shift > 0; shift -= 7)
            if (value >> shift)
                Append({0x80 | (value >> shift & 0x7F)});
        Append({value & 0x7F});
    }
    void Status(unsigned status) {
        if (status != m_status)
            Append({status});
        m_status = status;
    }
    void Payload(std::initializer_list<unsigned> head, unsigned size) {
        Append(head);
        Quantity(size);
        for (; size > 0; --size)
            Append({0x20 + Below(0x5E)});
        m_status = 0;
    }
    void Notes(unsigned channel) {
        for (unsigned left = 4 + Below(24); left > 0; --left) {
            const unsigned key = 36 + Below(60);
            Quantity(Below(4) ? 0 : Below(240));
            Status(0x90 | channel);
            Append({key, 1 + Below(127)});
            Quantity(Below(3) ? Below(100) : 120 + Below(900));
            Append({key, 0});
        }
    }
    void Controllers(unsigned channel) {
        for (unsigned left = 2 + Below(30); left > 0; --left) {
            Quantity(Below(20));
            Status((Below(3) ? 0xB0U : 0xE0U) | channel);
            Append({Below(128), Below(128)});
        }
    }
    void Rest(unsigned channel) {
        Quantity(Below(500));
        const unsigned kind = Below(10);
        if (kind < 4) {
            Status(0xC0 | channel);
            Append({Below(128)});
        } else if (kind < 9 || m_file.systemExclusiveMax == 0) {
            Payload({0xFF, 1 + Below(7)}, 3 + Below(30));
        } else {
            Payload({0xF0}, 5 + Below(static_cast<unsigned>(m_file.systemExclusiveMax)));
        }
    }
    void AddTrack(int track) {
        Append({'M', 'T', 'r', 'k', 0, 0, 0, 0});
        const std::size_t start = m_bytes.size();
        const std::size_t share = m_file.bytes / static_cast<std::size_t>(m_file.tracks);
        const auto channel = static_cast<unsigned>(track) % 16;
        m_status = 0;
        while (m_bytes.size() - start < share) {
            const unsigned kind = Below(20);
            if (kind < 15)
                Notes(channel);
            else if (kind < 19)
                Controllers(channel);
            else
                Rest(channel);
        }
        Append({0, 0xFF, 0x2F, 0});
        const std::size_t length = m_bytes.size() - start;
        for (std::size_t i = 0; i < 4; ++i)
            m_bytes[start - 4 + i] = static_cast<std::uint8_t>(length >> (24 - 8 * i));
    }

    MadeFile m_file;
    std::mt19937 m_random;
    std::vector<std::uint8_t> m_bytes;
    unsigned m_status = 0;
};
