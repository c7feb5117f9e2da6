#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "sequence/zur_sequence.h"
#include "tests/sequence/streams.h"

inline CZurSeqEvent* NewEvent(const std::string& hex, std::uint32_t delta = 0) {
    const std::string bytes = Bytes(hex);
    return new CZurSeqEvent(delta, static_cast<std::uint32_t>(bytes.size()), Data(bytes));
}

/// Events given as "delta bytes; delta bytes", the delta in decimal.
inline CZurSeqTrack TrackOf(const std::string& text) {
    CZurSeqTrack track;
    std::istringstream all(text);
    for (std::string one; std::getline(all, one, ';');) {
        std::istringstream in(one);
        std::uint32_t delta = 0;
        in >> delta;
        std::getline(in, one);
        track.InsertEvent(0, NewEvent(one, delta));
    }
    return track;
}

/// A format 1 sequence over tracks given as text.
inline CZurSequence SequenceOf(std::int16_t division, const std::vector<std::string>& tracks) {
    CZurSequence sequence(1, division);
    for (const std::string& text : tracks)
        sequence.InsertTrack(0, new CZurSeqTrack(TrackOf(text)));
    return sequence;
}

inline bool ByStatus(const CZurSeqEvent* first, const CZurSeqEvent* second) {
    return *first->GetData() < *second->GetData();
}

/// A track of the sequence, null when it has none of that number.
inline CZurSeqTrack* Track(const CZurSequence& sequence, std::int32_t number) {
    CZurSeqTrack* track = nullptr;
    sequence.GetTrack(number, track);
    return track;
}

/// The events in the form that `TrackOf` takes.
inline std::string Text(const CZurSeqTrack& track) {
    std::string text;
    CZurSeqEvent* event = nullptr;
    for (std::uint32_t number = 1; track.GetEvent(number, event); ++number) {
        const auto* const data = reinterpret_cast<const char*>(event->GetData());
        text += (number > 1 ? "; " : "") + std::to_string(event->GetDelta()) + ' ' +
                Hex({data, data ? event->GetLength() : 0});
    }
    return text;
}

/// All tracks, a bar between.
inline std::string Text(const CZurSequence& sequence) {
    std::string text;
    for (std::int32_t number = 1; number <= sequence.GetTrackCount(); ++number)
        text += (number > 1 ? " | " : "") + Text(*Track(sequence, number));
    return text;
}
