#pragma once

// What the classes of a Standard MIDI File raise: bare integers (exception objects of type int).
// A caller of `CZurSequence::Load` or of a stream constructor of the sequence sees -101 to -107.

inline constexpr int kSeqEndOfStream = -1;        ///< a byte was asked for behind the stream's end
inline constexpr int kSeqBadEvent = -100;         ///< an event could not be filled
inline constexpr int kSeqBadTrackEvents = -101;   ///< reading a track's events failed
inline constexpr int kSeqNoTrackTag = -102;       ///< a track chunk does not begin with "MTrk"
inline constexpr int kSeqNoFileTag = -103;        ///< the file does not begin with "MThd"
inline constexpr int kSeqBadHeaderLength = -104;  ///< the header length is not 6
inline constexpr int kSeqBadFormat = -105;        ///< the format is neither 0 nor 1
inline constexpr int kSeqBadTrackCount = -106;    ///< the number of tracks does not fit the format
inline constexpr int kSeqBadDivision = -107;      ///< the division counts time code, not ticks
