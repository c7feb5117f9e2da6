#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "params/device_message.h"

// What both directions know of the events of a pattern's file.

using EventBytes = std::vector<std::uint8_t>;

inline constexpr std::uint8_t kMetaText = 0x01;
inline constexpr std::uint8_t kMetaTrackName = 0x03;
inline constexpr std::uint8_t kMetaEndOfTrack = 0x2F;
inline constexpr std::uint8_t kMetaTempo = 0x51;
inline constexpr std::uint8_t kMetaTimeSignature = 0x58;

/// Meaning of a file without a tempo event: 120 beats a minute, in microseconds.
inline constexpr std::uint32_t kDefaultTempo = 500000;
/// 3D IDs 0 to 3 have a track each in format 1.
inline constexpr int kIdTracks = 4;

/// FF, type, length, payload. The payload is shorter than `kLargestVarLen`.
EventBytes MetaEvent(std::uint8_t type, std::string_view payload);
EventBytes TempoEvent(std::uint32_t tempo);
/// The track name of the track of a 3D ID: "3D ID 0".
EventBytes IdTrackName(int id);
/// The device message as an event has it: F0, the length of what follows, what follows.
EventBytes MessageEvent(const DeviceMessage& message);
