#pragma once

#include <atomic>
#include <memory>

#include "platform/types.h"

/// Tells whether the JACK server still lives. A MIDI client can't: sending to a server that has
/// died succeeds until its buffer is full and then never comes back. So a client without ports
/// stands beside it, which the server's end is told to. Calls may hang with the server.
class JackWatch {
public:
    /// Null, with words in `failure`, when no server answers; none is started.
    static std::unique_ptr<JackWatch> Open(CString& failure);
    ~JackWatch();
    JackWatch(const JackWatch&) = delete;
    JackWatch& operator=(const JackWatch&) = delete;

    bool IsAlive() const { return alive_; }

private:
    JackWatch() = default;

    void* client_ = nullptr;
    std::atomic<bool> alive_ = true;
};
