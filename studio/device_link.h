#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "link/local_link.h"
#include "ports/output_choice.h"

/// The program's way to the device: the link that the editor sends through, with the output that
/// the user chose behind it. One thread, but for `onSent`.
class DeviceLink {
public:
    /// One attempt to send.
    struct Sent {
        std::string bytes;
        bool taken = false;
        std::string reason;  ///< Why it was not taken.
    };

    DeviceLink();
    ~DeviceLink();
    DeviceLink(const DeviceLink&) = delete;
    DeviceLink& operator=(const DeviceLink&) = delete;

    /// Nothing means no device. A port of this program's own is opened at once, so that others can
    /// connect to it; all else when something is sent.
    void Choose(const std::optional<OutputChoice>& choice);
    const std::optional<OutputChoice>& Choice() const { return choice_; }

    /// The same object for the link's life.
    CZurSMWMan& Manager() { return link_.Manager(); }

    /// Told of every attempt, on the thread that sends. Set it before anybody does.
    std::function<void(const Sent&)> onSent;

private:
    void Tell(const void* data, std::uint32_t length, std::int32_t result) const;

    std::optional<OutputChoice> choice_;
    std::unique_ptr<Device> device_;
    LocalLink link_;
};
