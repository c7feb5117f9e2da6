#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <map>

#include "cli/exit_codes.h"
#include "platform/files.h"

namespace {

const std::map<std::string, FileKind>& Kinds() {
    static const std::map<std::string, FileKind> kinds = {{"3dp", FileKind::pattern},
                                                          {"csv", FileKind::csv},
                                                          {"mid", FileKind::midi},
                                                          {"syx", FileKind::messages}};
    return kinds;
}

}  // namespace

void GroupVerbs(CLI::App& program) {
    for (CLI::App* verb : program.get_subcommands({})) {
        verb->group("Verbs");
    }
}

bool IsStandardStream(const std::string& path) {
    return path == "-";
}

void AddKindOption(CLI::App& verb, const std::string& name, std::optional<FileKind>& kind,
                   const std::string& help) {
    verb.add_option_function<std::string>(
            name, [&kind](const std::string& word) { kind = Kinds().at(word); }, help)
        ->check(CLI::IsMember(Kinds()))
        ->type_name("KIND");
}

void AddInputOptions(CLI::App& verb, InputOptions& input, const std::string& metavar) {
    verb.add_option(metavar, input.path,
                    "A pattern (.3dp), an event table (.csv) or a MIDI file (.mid), - for stdin")
        ->required()
        ->type_name("");
    AddKindOption(verb, "--from", input.kind,
                  "What the input is, whatever its name says; needed with -");
    verb.add_option("--division", input.division,
                    "Ticks per quarter note of a CSV file that has no division line")
        ->check(CLI::IsMember({480, 960}))
        ->type_name("TICKS");
}

void AddRemarkOptions(CLI::App& verb, RemarkOptions& remarks) {
    verb.add_flag("-q,--quiet", remarks.quiet, "No words on stderr but those on a failure");
    verb.add_flag("--strict", remarks.strict,
                  "Exit with 4 when something was corrected or left out");
}

FileKind KindOf(const std::string& path, const std::optional<FileKind>& chosen,
                const std::string& option) {
    if (chosen) {
        return *chosen;
    }
    if (IsStandardStream(path)) {
        throw Failure(ExitCode::usage, "a standard stream needs " + option + " 3dp, csv or mid");
    }
    const std::string extension = LowerExtension(path);
    const auto kind = extension.empty() ? Kinds().end() : Kinds().find(extension.substr(1));
    if (kind == Kinds().end()) {
        throw Failure(ExitCode::usage,
                      path + ": expected a name that ends in .3dp, .csv or .mid, or " + option +
                          " 3dp, csv or mid");
    }
    return kind->second;
}
