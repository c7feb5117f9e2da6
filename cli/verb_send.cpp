#include <CLI/CLI.hpp>
#include <memory>
#include <optional>

#include "cli/device_messages.h"
#include "cli/document_input.h"
#include "cli/options.h"
#include "cli/output.h"
#include "cli/transfer.h"
#include "cli/verbs.h"
#include "params/device_placement.h"
#include "ports/port_finder.h"

namespace {

constexpr std::uint32_t kDefaultDistance = 1000;
constexpr std::uint32_t kMostGap = 60'000;

struct SendOptions {
    InputOptions input;
    RemarkOptions remarks;
    std::string port;
    std::string path;
    std::string ownPort;
    std::uint32_t gap = 0;
    std::optional<int> id;
    std::optional<std::uint32_t> distance;
    std::optional<int> azimuth;
    std::optional<int> elevation;

    bool HasPlacement() const { return id || distance || azimuth || elevation; }
    DevicePlacement Placement() const {
        return {static_cast<std::uint8_t>(id.value_or(0)), distance.value_or(kDefaultDistance),
                azimuth.value_or(0), elevation.value_or(0)};
    }
};

OutputChoice NamedPort(const std::string& name) {
    const PortFinder::Found found = PortFinder().Look();
    if (const MidiPort* port = FindPort(found.ports, name)) {
        return {OutputChoice::Kind::port, port->system, port->name};
    }
    std::string words = "no port is named " + name + "; orbix ports lists them";
    for (const CString& remark : found.remarks) {
        words.append("\n").append(remark);
    }
    throw Failure(ExitCode::notSent, words);
}

// The sequencer of the machine itself comes before a sound server on top of it.
OutputChoice OwnPort(const std::string& name) {
    const PortFinder::Found found = PortFinder().Look();
    for (const MidiSystem system : {MidiSystem::alsa, MidiSystem::jack}) {
        if (found.Has(system)) {
            return {OutputChoice::Kind::ownPort, system, name};
        }
    }
    throw Failure(ExitCode::notSent, "no MIDI system can be used; orbix ports says why");
}

OutputChoice TargetOf(const SendOptions& options) {
    if (!options.path.empty()) {
        return {OutputChoice::Kind::path, MidiSystem::alsa,
                IsStandardStream(options.path) ? "/dev/stdout" : options.path};
    }
    return options.port.empty() ? OwnPort(options.ownPort) : NamedPort(options.port);
}

ExitCode Send(const SendOptions& options) {
    if (options.input.path.empty() != options.HasPlacement()) {
        throw Failure(ExitCode::usage,
                      "expected either FILE or one or more of --id, --distance, --azimuth, "
                      "--elevation; see --help");
    }
    Transfer transfer;
    transfer.gap = options.gap;
    transfer.quiet = options.remarks.quiet;
    ExitCode code = ExitCode::done;
    if (options.HasPlacement()) {
        transfer.messages = {DeviceMessageOf(options.Placement()).value()};
    } else {
        const Document document = LoadDocument(options.input);
        transfer.messages = DeviceMessagesOf(document.store);
        code = ReportRemarks(document.label, document.report, options.remarks);
    }
    transfer.target = TargetOf(options);
    RunTransfer(transfer);
    return code;
}

// Angles travel in steps of three degrees.
CLI::Validator Angle(int lowest, int highest) {
    return {[=](const std::string& text) {
                int angle = 0;
                const bool fits = CLI::detail::lexical_cast(text, angle) && angle >= lowest &&
                                  angle <= highest && angle % 3 == 0;
                return fits ? std::string()
                            : "expected a multiple of 3 from " + std::to_string(lowest) + " to " +
                                  std::to_string(highest);
            },
            "DEGREES", "angle"};
}

std::string TargetFault(const std::string& name) {
    return name.empty() ? "expected a name" : "";
}

void AddTargetOptions(CLI::App& verb, SendOptions& options) {
    CLI::Option_group& group = *verb.add_option_group("Target", "Where to");
    group
        .add_option("--port", options.port,
                    "A MIDI port: its name, else the first that begins with\n"
                    "NAME, else the first that has it inside")
        ->check(TargetFault)
        ->type_name("NAME");
    group
        .add_option("--out", options.path,
                    "A file (written on at its end), a named pipe or a raw\n"
                    "MIDI node, - for stdout")
        ->check(TargetFault)
        ->type_name("PATH");
    group.add_option("--own-port", options.ownPort, "A port of its own, for others to connect to")
        ->check(TargetFault)
        ->type_name("NAME");
    group.require_option(1);
}

void AddPlacementOptions(CLI::App& verb, SendOptions& options) {
    verb.add_option("--id", options.id, "Instead of FILE one message: the 3D ID, else 0")
        ->check(CLI::Range(0, 3))
        ->type_name("0-3");
    verb.add_option("--distance", options.distance, "Its distance in millimetres, else 1000")
        ->check(CLI::Range(0, 12750))
        ->type_name("MM");
    verb.add_option("--azimuth", options.azimuth, "Its azimuth, -180 to 177, else 0")
        ->check(Angle(-180, 177))
        ->type_name("DEGREES");
    verb.add_option("--elevation", options.elevation, "Its elevation, -90 to 90, else 0")
        ->check(Angle(-90, 90))
        ->type_name("DEGREES");
}

}  // namespace

void AddSendVerb(CLI::App& program, Job& job) {
    CLI::App& verb = *program.add_subcommand(
        "send", "Play a pattern's positions, or one position, out to the device");
    const auto options = std::make_shared<SendOptions>();
    AddInputOptions(verb, options->input);
    verb.get_option("FILE")->required(false);
    AddTargetOptions(verb, *options);
    AddPlacementOptions(verb, *options);
    verb.add_option("--gap", options->gap, "Silence behind each message, on top of wire speed")
        ->check(CLI::Range(0U, kMostGap))
        ->type_name("MS");
    AddRemarkOptions(verb, options->remarks);
    verb.callback([&job, options] { job = [options] { return Send(*options); }; });
}
