#include "ports/midi_port.h"

#include <algorithm>
#include <map>

namespace {

constexpr char kDigits[] = "0123456789";

// "Client:Port 24:0" without its last word, when that is a pair of numbers.
CString WithoutNumbers(const CString& name) {
    const std::size_t space = name.rfind(' ');
    const std::size_t colon = name.rfind(':');
    const bool isPair = space != CString::npos && colon != CString::npos && colon > space + 1 &&
                        colon + 1 < name.size() &&
                        name.find_first_not_of(kDigits, space + 1) == colon &&
                        name.find_first_not_of(kDigits, colon + 1) == CString::npos;
    return isPair ? name.substr(0, space) : name;
}

}  // namespace

const char* MidiSystemName(MidiSystem system) {
    return system == MidiSystem::alsa ? "ALSA" : "JACK";
}

std::vector<CString> StableNames(std::span<const CString> systemNames) {
    std::map<CString, int> seen;
    std::vector<CString> names;
    for (const CString& systemName : systemNames) {
        const CString name = WithoutNumbers(systemName);
        const int number = ++seen[name];
        names.push_back(number == 1 ? name : name + " (" + std::to_string(number) + ")");
    }
    return names;
}

const MidiPort* FindPort(std::span<const MidiPort> ports, const CString& name) {
    const auto first = [&](auto&& matches) -> const MidiPort* {
        const auto found = std::find_if(ports.begin(), ports.end(),
                                        [&](const MidiPort& port) { return matches(port.name); });
        return found == ports.end() ? nullptr : &*found;
    };
    if (name.empty()) {
        return nullptr;
    }
    const MidiPort* port = first([&](const CString& each) { return each == name; });
    if (port == nullptr) {
        port = first([&](const CString& each) { return each.starts_with(name); });
    }
    if (port == nullptr) {
        port = first([&](const CString& each) { return each.find(name) != CString::npos; });
    }
    return port;
}

PortBook::Entry& PortBook::EntryOf(const MidiPort& port) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return entry.port == port; });
    return found != entries_.end() ? *found : entries_.emplace_back(Entry{port, false});
}

void PortBook::Update(std::span<const MidiPort> present) {
    for (Entry& entry : entries_) {
        entry.connected = false;
    }
    for (const MidiPort& port : present) {
        EntryOf(port).connected = true;
    }
}

void PortBook::Remember(const MidiPort& port) {
    EntryOf(port);
}
