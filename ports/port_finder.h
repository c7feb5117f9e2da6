#pragma once

#include <memory>
#include <vector>

#include "platform/types.h"
#include "ports/limited_worker.h"
#include "ports/midi_client.h"
#include "ports/midi_port.h"

/// Looks up what MIDI messages can be sent to. Stays a client of each MIDI system that answers, so
/// that looking again costs little. A system that hangs is waited for at most half a second a
/// look. One thread at a time.
class PortFinder {
public:
    struct Found {
        std::vector<MidiPort> ports;
        /// The MIDI systems that can be used.
        std::vector<MidiSystem> systems;
        /// A line for each of the others, with the reason.
        std::vector<CString> remarks;

        bool Has(MidiSystem system) const;
    };

    PortFinder();
    /// Waits as a look does for a system that hangs.
    ~PortFinder();
    Found Look();

private:
    struct Side {
        MidiSystem system;
        std::unique_ptr<LimitedWorker> worker;
        std::shared_ptr<MidiClient> client;
    };
    static void LookAt(Side& side, Found& found);

    std::vector<Side> sides_;
};
