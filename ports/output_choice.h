#pragma once

#include <memory>
#include <optional>

#include "link/device.h"
#include "platform/types.h"
#include "ports/midi_port.h"

/// What a user chose to send to.
struct OutputChoice {
    enum class Kind {
        port,     ///< A MIDI port that is there, or will be again.
        ownPort,  ///< A port of this program's own, for others to connect to.
        path,     ///< A file, a named pipe or a raw MIDI node.
    };
    Kind kind = Kind::port;
    MidiSystem system = MidiSystem::alsa;  ///< Not of a path.
    CString name;                          ///< The port's name, or the path.

    bool operator==(const OutputChoice&) const = default;
};

/// The choice as one line for a settings file, and back: "alsa:NAME", "jack:NAME",
/// "own-alsa:NAME", "own-jack:NAME" or "path:PATH". Nothing for any other line.
CString TextOf(const OutputChoice& choice);
std::optional<OutputChoice> ChoiceOf(const CString& text);

/// The device behind the choice. Nothing is opened yet, so it can't fail.
std::unique_ptr<Device> MakeDevice(const OutputChoice& choice);

/// A name for LocalLink that tells the device from all others of the machine; "" for one that no
/// other program can have: a port of one's own, a pipe on standard output.
CString LinkName(const OutputChoice& choice);
