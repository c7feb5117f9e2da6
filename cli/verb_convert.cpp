#include <CLI/CLI.hpp>
#include <memory>

#include "cli/document_input.h"
#include "cli/options.h"
#include "cli/output.h"
#include "cli/verbs.h"
#include "params/pattern_form.h"

namespace {

struct ConvertOptions {
    InputOptions input;
    RemarkOptions remarks;
    std::string output;
    std::optional<FileKind> outputKind;
    std::optional<std::string> name;
    bool overwrite = false;
    bool dryRun = false;
};

std::string PatternBytes(const Document& document, const std::string& name) {
    CQelCPB_3DPattern pattern(*document.pattern);
    document.store.StoreToPattern(&pattern, name);
    return WritePatternBytes(pattern);
}

void WriteDryWords(const ConvertOptions& options, std::size_t size) {
    if (!options.remarks.quiet) {
        const std::string label =
            IsStandardStream(options.output) ? "standard output" : options.output;
        WriteWords(label + ": would get " + std::to_string(size) + " bytes");
    }
}

ExitCode Convert(const ConvertOptions& options) {
    const FileKind kind = KindOf(options.output, options.outputKind, "--to");
    const Document document = LoadDocument(options.input);
    const std::string bytes = kind == FileKind::csv
                                  ? document.store.CsvText()
                                  : PatternBytes(document, options.name.value_or(document.name));
    CheckTarget(options.output, options.overwrite);
    if (options.dryRun) {
        WriteDryWords(options, bytes.size());
    } else {
        WriteTarget(options.output, bytes);
    }
    return ReportRemarks(document.label, document.report, options.remarks);
}

std::string NameFault(const std::string& name) {
    return name.size() <= kMaxNameBytes
               ? ""
               : "expected at most " + std::to_string(kMaxNameBytes) + " bytes";
}

void AddOutputOptions(CLI::App& verb, ConvertOptions& options) {
    verb.add_option("OUT", options.output, "The file to write (.3dp or .csv), - for stdout")
        ->required()
        ->type_name("");
    AddKindOption(verb, "--to", options.outputKind,
                  "What the output is, whatever its name says; needed with -");
    verb.add_option("--name", options.name,
                    "Name of the pattern that is written, at most 16 bytes. Else a pattern\n"
                    "keeps its own and a CSV file lends the stem of its name, cut to fit")
        ->check(CLI::Validator(NameFault, "", "name"))
        ->type_name("TEXT");
    verb.add_flag("-f,--force", options.overwrite, "Replace OUT when it exists");
    verb.add_flag("-n,--dry-run", options.dryRun, "Do everything but writing");
}

}  // namespace

void AddConvertVerb(CLI::App& program, Job& job) {
    CLI::App& verb =
        *program.add_subcommand("convert", "Turn a pattern into a CSV event table, or back");
    const auto options = std::make_shared<ConvertOptions>();
    AddInputOptions(verb, options->input, "IN");
    AddOutputOptions(verb, *options);
    AddRemarkOptions(verb, options->remarks);
    verb.callback([&job, options] { job = [options] { return Convert(*options); }; });
}
