#pragma once

#include <string>
#include <string_view>

#include "cli/exit_codes.h"
#include "cli/options.h"
#include "event/report.h"

/// Writes a result to the standard output, all of it. Raises Failure (failed) when it could not go
/// out: a full disk, a closed pipe.
void WriteResult(std::string_view bytes);

/// Writes words to stderr with the program's name before them and a line end behind.
void WriteWords(std::string_view words);

/// Writes a load's remarks to stderr, a line each with the file's name, unless told to be quiet.
/// What the verb then ends with: corrected when there are any and the verb is strict, else done.
ExitCode ReportRemarks(const std::string& label, const C3DReport& report,
                       const RemarkOptions& remarks);

/// Raises Failure (failed) when a file to be written stands already and may not be replaced, or is
/// no plain file. Standard output passes.
void CheckTarget(const std::string& path, bool overwrite);

/// Writes a whole file, or the standard output for "-". The file is there whole or stays as it
/// was. Raises Failure (failed).
void WriteTarget(const std::string& path, std::string_view bytes);
