#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/types.h"

/// Microseconds that one byte takes on a MIDI wire: ten bits at 31,250 baud.
inline constexpr unsigned kWireMicroseconds = 320;

/// How a playback meets its surroundings.
struct PlaybackHooks {
    /// Gives a message to the device; false ends the playback.
    std::function<bool(const std::string& message)> send;
    /// Told after each message, with how many have gone out; may be empty.
    std::function<void(std::size_t sent)> progress;
};

/// Plays messages out one after the other, no faster than the wire takes them and with `gap`
/// milliseconds of silence behind each but the last, and waits at the end until the wire has
/// taken the last one. Gives the number of messages that went out. Rests on the clock of the
/// platform's hooks.
std::size_t PlayOut(const std::vector<std::string>& messages, DWORD gap,
                    const PlaybackHooks& hooks);
