#pragma once

#include <sstream>
#include <string>

#include "sequence/zur_sequence.h"
#include "tests/sequence/bytes.h"

inline CZurSeqEvent* NewEvent(const std::string& hex, std::uint32_t delta = 0) {
    const ByteVector bytes = Hex(hex);
    return new CZurSeqEvent(delta, static_cast<std::uint32_t>(bytes.size()), bytes.data());
}

/// Appends events given as "delta bytes; delta bytes", the delta in decimal.
inline void Fill(CZurSeqTrack& track, const std::string& text) {
    std::istringstream all(text);
    for (std::string one; std::getline(all, one, ';');) {
        std::istringstream in(one);
        std::uint32_t delta = 0;
        in >> delta;
        std::getline(in, one);
        track.InsertEvent(0, NewEvent(one, delta));
    }
}

inline CZurSeqTrack TrackOf(const std::string& text) {
    CZurSeqTrack track;
    Fill(track, text);
    return track;
}

/// A format 1 sequence over tracks given as text.
inline CZurSequence SequenceOf(std::int16_t division, const std::vector<std::string>& tracks) {
    CZurSequence sequence(1, division);
    for (const std::string& text : tracks)
        sequence.InsertTrack(0, new CZurSeqTrack(TrackOf(text)));
    return sequence;
}

/// "delta:bytes" of each event, with blanks between.
inline std::string Text(const CZurSeqTrack& track) {
    std::ostringstream out;
    CZurSeqEvent* event = nullptr;
    for (std::uint32_t number = 1; track.GetEvent(number, event); ++number) {
        out << (number > 1 ? " " : "") << std::dec << event->GetDelta() << ':' << std::hex
            << std::uppercase;
        for (std::uint32_t i = 0; i < event->GetLength(); ++i)
            out << (event->GetData()[i] < 16 ? "0" : "") << int{event->GetData()[i]};
    }
    return out.str();
}

inline std::string TrackText(const CZurSequence& sequence, std::int32_t number) {
    CZurSeqTrack* track = nullptr;
    return sequence.GetTrack(number, track) ? Text(*track) : "none";
}
