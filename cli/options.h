#pragma once

#include <optional>
#include <string>

namespace CLI {
class App;
}

/// What a file holds: a pattern's serialized block tree, an event table as text, a Standard MIDI
/// File, or device messages back to back, which can only be written.
enum class FileKind { pattern, csv, midi, messages };

/// Where a verb takes its document from.
struct InputOptions {
    /// UTF-8; "-" is the standard input.
    std::string path;
    /// Stands in for the name's extension.
    std::optional<FileKind> kind;
    /// 480 or 960, for a CSV text that doesn't name its division.
    std::optional<int> division;
    /// Stands in for the pattern's name.
    std::optional<std::string> name;
};

/// How much a verb says and how it takes remarks.
struct RemarkOptions {
    /// Only failures reach stderr.
    bool quiet = false;
    /// Remarks turn the exit code into ExitCode::corrected.
    bool strict = false;
};

/// Heads the list of an application's verbs in its help.
void GroupVerbs(CLI::App& program);

/// "-", which stands for the standard input or output.
bool IsStandardStream(const std::string& path);

/// Adds FILE (under `metavar`), --from and --division.
void AddInputOptions(CLI::App& verb, InputOptions& input, const std::string& metavar = "FILE");
/// Adds an option that names a kind of file.
void AddKindOption(CLI::App& verb, const std::string& name, std::optional<FileKind>& kind,
                   const std::string& help);
/// Adds -q and --strict.
void AddRemarkOptions(CLI::App& verb, RemarkOptions& remarks);

/// The kind that was chosen, else the one that the extension tells. Raises Failure (usage), with
/// `option` as the way out, when neither says.
FileKind KindOf(const std::string& path, const std::optional<FileKind>& chosen,
                const std::string& option);
