#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

#include "link/device.h"
#include "ports/limited_worker.h"
#include "ports/midi_client.h"
#include "ports/midi_port.h"

/// A device behind a MIDI port: another program's or a device's input, found by its name whenever
/// it is needed, or a port of this program's own that others connect to. A block is one whole MIDI
/// message. A MIDI system that hangs is given up after two seconds a call.
class MidiOutput : public Device {
public:
    enum class Kind { other, own };

    MidiOutput(Kind kind, MidiPort port) : kind_(kind), port_(std::move(port)) {}
    ~MidiOutput() override;

    /// 0 closes the port, after what was sent has gone out; any other value opens it, or finds it
    /// again after it was gone.
    bool PrepareOutput(std::uint32_t value) override;
    std::int32_t WriteBlock(const void* data, std::uint32_t length) override;
    CString FailureText() const override { return failure_; }

private:
    bool NeedsOpening() const;
    bool OpenPort();
    void ClosePort();
    bool Fail(const CString& words);

    Kind kind_;
    MidiPort port_;
    CString failure_;
    LimitedWorker worker_{std::chrono::milliseconds(2000)};
    std::shared_ptr<MidiClient> client_;
    DWORD lastUse_ = 0;  // by GetTickCount
};
