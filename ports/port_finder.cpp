#include "ports/port_finder.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kLimit(500);

struct Answer {
    std::shared_ptr<MidiClient> client;
    std::vector<CString> names;
    CString failure;
};

Answer AskSystem(MidiSystem system, std::shared_ptr<MidiClient> client) {
    Answer answer;
    answer.client = std::move(client);
    if (answer.client == nullptr || !answer.client->IsAlive()) {
        answer.client = MidiClient::Open(system, "Orbix ports", answer.failure);
    }
    if (answer.client != nullptr) {
        answer.names = answer.client->Names();
    }
    return answer;
}

}  // namespace

PortFinder::PortFinder() {
    for (const MidiSystem system : {MidiSystem::alsa, MidiSystem::jack}) {
        sides_.push_back({system, std::make_unique<LimitedWorker>(kLimit), nullptr});
    }
}

PortFinder::~PortFinder() {
    for (Side& side : sides_) {
        if (side.client != nullptr) {
            side.worker->Run([client = std::move(side.client)]() mutable { client.reset(); });
        }
    }
}

bool PortFinder::Found::Has(MidiSystem system) const {
    return std::ranges::find(systems, system) != systems.end();
}

PortFinder::Found PortFinder::Look() {
    Found found;
    for (Side& side : sides_) {
        LookAt(side, found);
    }
    return found;
}

void PortFinder::LookAt(Side& side, Found& found) {
    // The client goes along, so that it is also let go over there: that may hang, too.
    auto answer =
        side.worker->Ask([system = side.system, client = std::move(side.client)]() mutable {
            return AskSystem(system, std::move(client));
        });
    if (!answer) {
        found.remarks.push_back(MidiSystemName(side.system) + CString(": does not answer"));
        return;
    }
    side.client = std::move(answer->client);
    for (const CString& name : answer->names) {
        found.ports.push_back({side.system, name});
    }
    if (side.client != nullptr) {
        found.systems.push_back(side.system);
    } else {
        found.remarks.push_back(MidiSystemName(side.system) + (": " + answer->failure));
    }
}
