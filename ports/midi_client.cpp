#include "ports/midi_client.h"

#include <RtMidi.h>
#include <unistd.h>

#include <algorithm>
#include <mutex>
#include <utility>

#include "ports/jack_watch.h"

namespace {

constexpr char kOutputName[] = "out";
constexpr char kSequencerNode[] = "/dev/snd/seq";

class RtMidiClient : public MidiClient {
public:
    RtMidiClient(MidiSystem system, const CString& name, std::unique_ptr<JackWatch> watch)
        : system_(system),
          watch_(std::move(watch)),
          output_(std::make_unique<RtMidiOut>(
              system == MidiSystem::alsa ? RtMidi::LINUX_ALSA : RtMidi::UNIX_JACK, name)) {
        // With a callback RtMidi reports here instead of throwing and writing to stderr.
        output_->setErrorCallback(
            [](RtMidiError::Type, const std::string& words, void* self) {
                static_cast<RtMidiClient*>(self)->words_ = words;
            },
            this);
        if (system == MidiSystem::jack) {
            const std::lock_guard guard(registryMutex);
            registry.push_back(this);
        }
    }

    ~RtMidiClient() override {
        if (system_ == MidiSystem::alsa) {
            return;
        }
        const std::lock_guard guard(registryMutex);
        std::erase(registry, this);
        output_.reset();
        watch_.reset();
    }

    /// A new JACK client frees all that the process still has of a server that has died, behind
    /// their owners' backs; so they are let go first. False when a call still stands in one.
    static bool ReleaseDead() {
        const std::lock_guard guard(registryMutex);
        return std::all_of(registry.begin(), registry.end(), [](RtMidiClient* client) {
            const std::unique_lock use(client->use_, std::try_to_lock);
            if (use.owns_lock() && !client->HasSystem()) {
                client->output_.reset();
                client->watch_.reset();
            }
            return use.owns_lock();
        });
    }

    bool IsAlive() const override {
        const std::lock_guard guard(use_);
        return HasSystem();
    }

    std::vector<CString> Names() override {
        const std::lock_guard guard(use_);
        return NamesNow();
    }

    bool Connect(const CString& name, CString& failure) override {
        return Attempt(
            [&] {
                output_->closePort();
                const std::vector<CString> names = NamesNow();
                const auto found = std::find(names.begin(), names.end(), name);
                if (found == names.end()) {
                    words_ = "the port is not connected";
                } else {
                    output_->openPort(static_cast<unsigned>(found - names.begin()), kOutputName);
                }
            },
            failure);
    }

    bool OfferPort(const CString& name, CString& failure) override {
        return Attempt([&] { output_->openVirtualPort(name); }, failure);
    }

    bool Send(const std::vector<std::uint8_t>& message, CString& failure) override {
        return Attempt([&] { output_->sendMessage(&message); }, failure);
    }

private:
    bool HasSystem() const {
        return system_ == MidiSystem::alsa || (watch_ != nullptr && watch_->IsAlive());
    }

    std::vector<CString> NamesNow() {
        std::vector<CString> names;
        for (unsigned number = 0; HasSystem() && number < output_->getPortCount(); ++number) {
            names.push_back(output_->getPortName(number));
        }
        return system_ == MidiSystem::alsa ? StableNames(names) : names;
    }

    template <typename Action>
    bool Attempt(Action action, CString& failure) {
        const std::lock_guard guard(use_);
        if (!HasSystem()) {
            failure = "the JACK server has ended";
            return false;
        }
        words_.clear();
        action();
        failure = words_;
        return words_.empty();
    }

    // JACK's clients alone: the lock is held while one closes, which may take for ever with a
    // server that hangs, and ALSA must not wait for that.
    static inline std::mutex registryMutex;
    static inline std::vector<RtMidiClient*> registry;

    mutable std::mutex use_;  // a call may be left standing in here
    MidiSystem system_;
    std::unique_ptr<JackWatch> watch_;
    std::string words_;
    std::unique_ptr<RtMidiOut> output_;
};

}  // namespace

std::shared_ptr<MidiClient> MidiClient::Open(MidiSystem system, const CString& name,
                                             CString& failure) {
    std::unique_ptr<JackWatch> watch;
    if (system == MidiSystem::jack) {
        if (!RtMidiClient::ReleaseDead()) {
            failure = "does not answer";
            return nullptr;
        }
        watch = JackWatch::Open(failure);
        if (watch == nullptr) {
            return nullptr;
        }
    } else if (::access(kSequencerNode, R_OK | W_OK) != 0) {
        // Asked for without looking, the library writes to stderr before it fails.
        failure = CString("no ALSA sequencer: ") + kSequencerNode + " cannot be opened";
        return nullptr;
    }
    try {
        return std::make_shared<RtMidiClient>(system, name, std::move(watch));
    } catch (const RtMidiError& error) {
        failure = error.getMessage();
        return nullptr;
    }
}
