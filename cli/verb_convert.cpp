#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdlib>
#include <memory>

#include "cli/device_messages.h"
#include "cli/document_input.h"
#include "cli/options.h"
#include "cli/output.h"
#include "cli/verbs.h"
#include "event/csv_line.h"
#include "midi/midi_file.h"
#include "midi/pattern_midi.h"
#include "params/pattern_form.h"

namespace {

constexpr double kMicroseconds = 60000000;  // a minute
// A tempo event holds 24 bits of microseconds per quarter note.
constexpr double kSlowest = 4;
constexpr double kFastest = 60000;

struct ConvertOptions {
    InputOptions input;
    RemarkOptions remarks;
    std::string output;
    std::optional<FileKind> outputKind;
    std::int16_t format = 0;
    double tempo = 120;
    bool overwrite = false;
    bool dryRun = false;
};

std::string MidiFileBytes(const Document& document, const CQelCPB_3DPattern& pattern,
                          const ConvertOptions& options) {
    std::string refusal;
    const PatternMidiLayout layout{options.format,
                                   static_cast<std::uint32_t>(kMicroseconds / options.tempo)};
    const auto sequence = SequenceFromPattern(pattern, layout, refusal);
    if (!sequence) {
        throw Failure(ExitCode::refused, document.label + ": fits no MIDI file: " + refusal);
    }
    return WriteMidiBytes(*sequence).value();
}

// What no reader takes is not written.
std::string CsvBytes(const Document& document) {
    const std::uint32_t division = document.store.Division();
    if (!IsCsvDivisionNumber(division)) {
        throw Failure(ExitCode::refused, document.label + ": fits no CSV file: division " +
                                             std::to_string(division) + " is not in 12 to 960");
    }
    if (document.store.CountEvents(-1) == 0) {
        throw Failure(ExitCode::refused,
                      document.label + ": fits no CSV file: no time signature and no position");
    }
    return document.store.CsvText();
}

std::string MessageBytes(const C3DEventData& store) {
    std::string bytes;
    for (const std::string& message : DeviceMessagesOf(store)) {
        bytes += message;
    }
    return bytes;
}

std::string OutputBytes(const Document& document, FileKind kind, const ConvertOptions& options) {
    if (kind == FileKind::csv) {
        return CsvBytes(document);
    }
    if (kind == FileKind::messages) {
        return MessageBytes(document.store);
    }
    const auto pattern = CopyPattern(*document.pattern);
    document.store.StoreToPattern(pattern.get(), document.name);
    return kind == FileKind::midi ? MidiFileBytes(document, *pattern, options)
                                  : WritePatternBytes(*pattern);
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
    const std::string bytes = OutputBytes(document, kind, options);
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

// A range lets through what no comparison holds for.
std::string NumberFault(const std::string& text) {
    return std::isnan(std::strtod(text.c_str(), nullptr)) ? "expected a number" : "";
}

void AddOutputOptions(CLI::App& verb, ConvertOptions& options) {
    verb.add_option(
            "OUT", options.output,
            "The file to write (.3dp, .csv, .mid, or .syx for the\ndevice's messages), - for "
            "stdout")
        ->required()
        ->type_name("");
    AddKindOption(verb, "--to", options.outputKind,
                  "What the output is, whatever its name says; needed with -");
    verb.add_option("--name", options.input.name,
                    "Name of the pattern that is written, at most 16 bytes. Else a pattern\n"
                    "keeps its own, and what has none lends the stem of its name, cut to fit")
        ->check(CLI::Validator(NameFault, "", "name"))
        ->type_name("TEXT");
    verb.add_option("--format", options.format,
                    "Of a MIDI file: 0, one track, or 1, a conductor track and one an ID")
        ->check(CLI::IsMember({0, 1}))
        ->type_name("0|1");
    verb.add_option("--tempo", options.tempo, "Of a MIDI file, in beats a minute: 120 else")
        ->check(CLI::Range(kSlowest, kFastest))
        ->check(NumberFault)
        ->type_name("BPM");
    verb.add_flag("-f,--force", options.overwrite, "Replace OUT when it exists");
    verb.add_flag("-n,--dry-run", options.dryRun, "Do everything but writing");
}

}  // namespace

void AddConvertVerb(CLI::App& program, Job& job) {
    CLI::App& verb = *program.add_subcommand(
        "convert", "Turn a pattern, a CSV event table and a MIDI file into each other");
    const auto options = std::make_shared<ConvertOptions>();
    AddInputOptions(verb, options->input, "IN");
    AddOutputOptions(verb, *options);
    AddRemarkOptions(verb, options->remarks);
    verb.callback([&job, options] { job = [options] { return Convert(*options); }; });
}
