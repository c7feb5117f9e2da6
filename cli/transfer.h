#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ports/output_choice.h"

/// What is sent, where to, and how.
struct Transfer {
    std::vector<std::string> messages;
    OutputChoice target;
    /// Silence behind each message, milliseconds.
    std::uint32_t gap = 0;
    /// No progress on the terminal.
    bool quiet = false;
};

/// Plays the messages out to the target at the speed of a MIDI wire, and comes back when the last
/// one has left. Ctrl+C ends the program at once, with ExitCode::notSent. Raises Failure (notSent)
/// with the reason when not all went out.
void RunTransfer(const Transfer& transfer);
