#pragma once

#include <string>
#include <string_view>

#include "sequence/seq_codes.h"
#include "sequence/seq_event.h"
#include "tests/sequence/streams.h"

/// The oracle: takes the tracks of a Standard MIDI File with a good header apart event by event.
class PlainReader {
public:
    explicit PlainReader(std::string_view bytes) : m_rest(bytes) {
        Word(10, 0);
        const auto tracks = static_cast<std::int16_t>(Word(2, 0));
        Word(2, 0);
        code = CodeOf([this, tracks] {
            for (int track = 0; track < tracks; ++track)
                ReadTrack("Track:" + std::to_string(track) + '\r');
        });
    }

    int code = 0;
    std::string text;  ///< what a sequence dumps of the tracks

    std::size_t BytesLeft() const { return m_rest.size(); }

private:
    std::uint32_t Word(std::size_t count, int refusal) {
        if (m_rest.size() < count)
            throw refusal;
        std::uint32_t value = 0;
        for (const char byte : m_rest.substr(0, count))
            value = value << 8 | static_cast<std::uint8_t>(byte);
        m_rest.remove_prefix(count);
        return value;
    }
    void ReadTrack(const std::string& title) {
        if (Word(4, kSeqNoTrackTag) != 0x4D54726B)
            throw kSeqNoTrackTag;
        const std::uint32_t length = Word(4, kSeqBadTrackEvents);
        text += title;
        std::strstream stream;
        Put(stream, std::string(m_rest));
        std::uint8_t status = 0;
        std::int64_t place = 0;  // -1 behind an event that met the end a byte early
        while (place >= 0 && place < length) {
            CZurSeqEvent event;
            if (CodeOf([&] { event.Read(stream, status); }) != 0 || !event.GetData())
                throw kSeqBadTrackEvents;
            status = *event.GetData();
            text += DumpOf(event);
            place = stream.tellg();
        }
        m_rest.remove_prefix(place < 0 ? m_rest.size() : static_cast<std::size_t>(place));
    }

    std::string_view m_rest;
};
