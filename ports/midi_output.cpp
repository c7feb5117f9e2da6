#include "ports/midi_output.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/hooks.h"

namespace {

// Neither system tells a sender that the other side left and came back, which cuts the connection.
// Nobody does that within a second.
constexpr DWORD kTrustedMilliseconds = 1000;

// A sound server hands a message on within the cycle it was written in, and a client that leaves in
// the middle of it can take the message along; the longest cycles in use take 93 ms.
constexpr DWORD kHandedOnMilliseconds = 100;

struct Outcome {
    std::shared_ptr<MidiClient> client;
    bool done = false;
    CString failure;
};

constexpr char kHangs[] = "the MIDI system does not answer";

}  // namespace

MidiOutput::~MidiOutput() {
    ClosePort();
}

bool MidiOutput::Fail(const CString& words) {
    failure_ = words;
    return false;
}

bool MidiOutput::NeedsOpening() const {
    return client_ == nullptr || !client_->IsAlive() ||
           (kind_ == Kind::other && GetTickCount() - lastUse_ > kTrustedMilliseconds);
}

bool MidiOutput::PrepareOutput(std::uint32_t value) {
    if (value == 0) {
        ClosePort();
        return true;
    }
    return !NeedsOpening() || OpenPort();
}

bool MidiOutput::OpenPort() {
    auto outcome = worker_.Ask([kind = kind_, port = port_, client = std::move(client_)]() mutable {
        Outcome result;
        result.client = std::move(client);
        if (result.client == nullptr || !result.client->IsAlive()) {
            result.client = MidiClient::Open(port.system, "Orbix", result.failure);
        }
        result.done = result.client != nullptr &&
                      (kind == Kind::own ? result.client->OfferPort(port.name, result.failure)
                                         : result.client->Connect(port.name, result.failure));
        return result;
    });
    if (!outcome) {
        return Fail(kHangs);
    }
    if (!outcome->done) {
        const CString words = outcome->failure;
        worker_.Run([client = std::move(outcome->client)]() mutable { client.reset(); });
        return Fail(words);
    }
    client_ = std::move(outcome->client);
    lastUse_ = GetTickCount();
    return true;
}

void MidiOutput::ClosePort() {
    if (client_ != nullptr) {
        const DWORD passed = std::min(GetTickCount() - lastUse_, kHandedOnMilliseconds);
        worker_.Run([client = std::move(client_), rest = kHandedOnMilliseconds - passed]() mutable {
            Sleep(rest);
            client.reset();
        });
        client_.reset();
    }
}

std::int32_t MidiOutput::WriteBlock(const void* data, std::uint32_t length) {
    if (length > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max()) ||
        !PrepareOutput(1)) {
        return -1;
    }
    const auto* const bytes = static_cast<const std::uint8_t*>(data);
    const auto outcome =
        worker_.Ask([client = client_, message = std::vector<std::uint8_t>(bytes, bytes + length)] {
            Outcome result;
            result.done = client->Send(message, result.failure);
            return result;
        });
    if (!outcome || !outcome->done) {
        if (!outcome) {
            client_.reset();
        }
        Fail(outcome ? outcome->failure : CString(kHangs));
        return -1;
    }
    failure_.clear();
    lastUse_ = GetTickCount();
    return static_cast<std::int32_t>(length);
}
