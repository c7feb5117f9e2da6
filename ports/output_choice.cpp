#include "ports/output_choice.h"

#include <filesystem>
#include <string_view>
#include <utility>

#include "link/byte_sink.h"
#include "ports/midi_output.h"

namespace {

using Kind = OutputChoice::Kind;

struct Form {
    std::string_view prefix;
    Kind kind;
    MidiSystem system;
};

constexpr Form kForms[] = {
    {"alsa:", Kind::port, MidiSystem::alsa},        {"jack:", Kind::port, MidiSystem::jack},
    {"own-alsa:", Kind::ownPort, MidiSystem::alsa}, {"own-jack:", Kind::ownPort, MidiSystem::jack},
    {"path:", Kind::path, MidiSystem::alsa},
};

}  // namespace

CString TextOf(const OutputChoice& choice) {
    for (const Form& form : kForms) {
        if (form.kind == choice.kind && (form.kind == Kind::path || form.system == choice.system)) {
            return CString(form.prefix) + choice.name;
        }
    }
    return {};
}

std::optional<OutputChoice> ChoiceOf(const CString& text) {
    for (const Form& form : kForms) {
        if (text.starts_with(form.prefix) && text.size() > form.prefix.size()) {
            return OutputChoice{form.kind, form.system, text.substr(form.prefix.size())};
        }
    }
    return std::nullopt;
}

std::unique_ptr<Device> MakeDevice(const OutputChoice& choice) {
    if (choice.kind == Kind::path) {
        return std::make_unique<ByteSink>(choice.name);
    }
    const auto kind = choice.kind == Kind::port ? MidiOutput::Kind::other : MidiOutput::Kind::own;
    return std::make_unique<MidiOutput>(kind, MidiPort{choice.system, choice.name});
}

CString LinkName(const OutputChoice& choice) {
    if (choice.kind == Kind::ownPort) {
        return {};
    }
    if (choice.kind == Kind::path) {
        std::error_code error;
        // Of a name that is not there yet the second step alone would leave a relative one.
        std::filesystem::path whole = std::filesystem::absolute(choice.name, error);
        if (!error) {
            whole = std::filesystem::weakly_canonical(whole, error);
        }
        // No path leads to a pipe behind /dev/stdout, so nobody else can open it.
        return error ? CString() : "path:" + whole.string();
    }
    return TextOf(choice);
}
