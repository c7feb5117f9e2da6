#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/output.h"
#include "cli/verbs.h"
#include "ports/port_finder.h"

namespace {

struct PortsOptions {
    bool quiet = false;
    bool json = false;
};

std::string ListText(const PortFinder::Found& found) {
    std::string text;
    for (const MidiPort& port : found.ports) {
        text.append(MidiSystemName(port.system)).append("  ").append(port.name).append("\n");
    }
    return text;
}

std::string JsonText(const PortFinder::Found& found) {
    auto list = nlohmann::ordered_json::array();
    for (const MidiPort& port : found.ports) {
        list.push_back({{"system", MidiSystemName(port.system)}, {"name", port.name}});
    }
    return list.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

ExitCode Ports(const PortsOptions& options) {
    const PortFinder::Found found = PortFinder().Look();
    WriteResult(options.json ? JsonText(found) : ListText(found));
    if (!options.quiet) {
        for (const CString& remark : found.remarks) {
            WriteWords(remark);
        }
    }
    return ExitCode::done;
}

}  // namespace

void AddPortsVerb(CLI::App& program, Job& job) {
    CLI::App& verb = *program.add_subcommand("ports", "List the MIDI ports that send can play to");
    const auto options = std::make_shared<PortsOptions>();
    verb.add_flag("-q,--quiet", options->quiet, "Don't say which MIDI systems can't be used");
    verb.add_flag("--json", options->json, "Print a JSON list instead");
    verb.callback([&job, options] { job = [options] { return Ports(*options); }; });
}
