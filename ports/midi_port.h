#pragma once

#include <span>
#include <vector>

#include "platform/types.h"

/// A MIDI system of the machine.
enum class MidiSystem { alsa, jack };

/// "ALSA" or "JACK".
const char* MidiSystemName(MidiSystem system);

/// A place that takes MIDI messages: another program's or a device's input.
struct MidiPort {
    MidiSystem system = MidiSystem::alsa;
    /// As users see it, UTF-8. The numbers that ALSA appends (" 24:0") are left out: a device that
    /// is plugged in again may get others. Ports of one name have " (2)" and so on behind it.
    CString name;

    bool operator==(const MidiPort&) const = default;
};

/// The names of ALSA's ports as MidiPort has them, in the same order.
std::vector<CString> StableNames(std::span<const CString> systemNames);

/// The port that a user means by `name`: the one of that very name, else the first whose name
/// begins with it, else the first that has it inside. Null when there is none, or no name.
const MidiPort* FindPort(std::span<const MidiPort> ports, const CString& name);

/// Ports that have been seen, those that are gone included: what a menu shows, so that a device
/// which was pulled keeps its place and is found again when it is back.
class PortBook {
public:
    struct Entry {
        MidiPort port;
        bool connected = false;
    };

    /// Takes over what is there now; the others stay as disconnected. New ones come last.
    void Update(std::span<const MidiPort> present);
    /// Makes sure that a port has a place, present or not.
    void Remember(const MidiPort& port);

    const std::vector<Entry>& Entries() const { return entries_; }

private:
    Entry& EntryOf(const MidiPort& port);

    std::vector<Entry> entries_;
};
