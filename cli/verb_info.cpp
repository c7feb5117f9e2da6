#include <CLI/CLI.hpp>
#include <array>
#include <memory>

#include "cli/document_input.h"
#include "cli/options.h"
#include "cli/output.h"
#include "cli/verbs.h"
#include "event/table_text.h"

namespace {

struct InfoOptions {
    InputOptions input;
    RemarkOptions remarks;
};

// A name comes from a file; what would steer a terminal is not let through.
std::string Printable(std::string text) {
    for (char& letter : text) {
        if (static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F) {
            letter = '?';
        }
    }
    return text;
}

const char* KindText(FileKind kind) {
    switch (kind) {
        case FileKind::pattern:
            return "3D pattern";
        case FileKind::csv:
            return "CSV event table";
        case FileKind::midi:
            return "Standard MIDI File";
        case FileKind::messages:
            return "device messages";
    }
    return "";
}

std::string InfoText(const Document& document) {
    const std::array<std::array<std::string, 2>, 6> rows = {{
        {"File", document.label},
        {"Kind", KindText(document.kind)},
        {"Name", Printable(document.name)},
        {"Division", std::to_string(document.store.Division())},
        {"Events", CountsText(document.store)},
        {"Length", LengthText(document.store)},
    }};
    std::string text;
    for (const auto& [caption, value] : rows) {
        text.append(caption).append(":").append(9 - caption.size(), ' ');
        text.append(value).append("\n");
    }
    return text;
}

ExitCode Info(const InfoOptions& options) {
    const Document document = LoadDocument(options.input);
    WriteResult(InfoText(document));
    return ReportRemarks(document.label, document.report, options.remarks);
}

}  // namespace

void AddInfoVerb(CLI::App& program, Job& job) {
    CLI::App& verb = *program.add_subcommand(
        "info", "Say what a file is: name, division, events of each ID, length");
    const auto options = std::make_shared<InfoOptions>();
    AddInputOptions(verb, options->input);
    AddRemarkOptions(verb, options->remarks);
    verb.callback([&job, options] { job = [options] { return Info(*options); }; });
}
