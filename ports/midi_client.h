#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/types.h"
#include "ports/midi_port.h"

/// This program at one of the machine's MIDI systems, with one output. Calls may hang when the
/// system dies under them: make them through a LimitedWorker. One call at a time.
class MidiClient {
public:
    /// `name` is what other programs see it under. Null, with words in `failure`, when the machine
    /// has no such system.
    static std::shared_ptr<MidiClient> Open(MidiSystem system, const CString& name,
                                            CString& failure);
    virtual ~MidiClient() = default;
    MidiClient(const MidiClient&) = delete;
    MidiClient& operator=(const MidiClient&) = delete;

    /// False from the moment on that the system has gone; the client is of no use then.
    virtual bool IsAlive() const = 0;
    /// Names of all that can be sent to, as MidiPort has them.
    virtual std::vector<CString> Names() = 0;
    /// Connects the output to the port of that name, instead of what it was connected to. False,
    /// with words in `failure`.
    virtual bool Connect(const CString& name, CString& failure) = 0;
    /// Makes the output a port of this program's own, under that name, for others to connect to.
    virtual bool OfferPort(const CString& name, CString& failure) = 0;
    /// Hands over one whole MIDI message. Comes back before it has gone out.
    virtual bool Send(const std::vector<std::uint8_t>& message, CString& failure) = 0;

protected:
    MidiClient() = default;
};
