#include <CLI/CLI.hpp>
#include <memory>

#include "cli/document_input.h"
#include "cli/options.h"
#include "cli/output.h"
#include "cli/verbs.h"

namespace {

struct CheckOptions {
    InputOptions input;
    RemarkOptions remarks;
};

ExitCode Check(const CheckOptions& options) {
    const Document document = LoadDocument(options.input);
    std::string text;
    for (const CString& line : document.report.Lines()) {
        text += line + "\n";
    }
    WriteResult(text);
    if (!document.report.IsEmpty()) {
        return ExitCode::corrected;
    }
    if (!options.remarks.quiet) {
        WriteWords(document.label + ": nothing to correct");
    }
    return ExitCode::done;
}

}  // namespace

void AddCheckVerb(CLI::App& program, Job& job) {
    CLI::App& verb = *program.add_subcommand(
        "check", "Print all that a load corrects or leaves out; exit with 4 if there is any");
    const auto options = std::make_shared<CheckOptions>();
    AddInputOptions(verb, options->input);
    AddRemarkOptions(verb, options->remarks);
    verb.callback([&job, options] { job = [options] { return Check(*options); }; });
}
