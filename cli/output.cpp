#include "cli/output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "platform/files.h"

void WriteResult(std::string_view bytes) {
    errno = 0;
    const std::size_t written = std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    if (std::fflush(stdout) != 0 || written != bytes.size()) {
        throw Failure(ExitCode::failed,
                      std::string("standard output: cannot be written: ") + std::strerror(errno));
    }
}

void WriteWords(std::string_view words) {
    std::fprintf(stderr, "orbix: %.*s\n", static_cast<int>(words.size()), words.data());
}

ExitCode ReportRemarks(const std::string& label, const C3DReport& report,
                       const RemarkOptions& remarks) {
    if (!remarks.quiet) {
        const std::string prefix = label + ": ";
        for (const CString& line : report.Lines()) {
            WriteWords(prefix + line);
        }
    }
    return remarks.strict && !report.IsEmpty() ? ExitCode::corrected : ExitCode::done;
}

void CheckTarget(const std::string& path, bool overwrite) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (IsStandardStream(path) || !std::filesystem::exists(status)) {
        return;
    }
    // A device or a pipe can't be replaced by a rename, and would be destroyed by it.
    if (!std::filesystem::is_regular_file(status)) {
        throw Failure(
            ExitCode::failed,
            path + ": cannot be written: expected a plain file, or - for standard output");
    }
    if (!overwrite) {
        throw Failure(ExitCode::failed, path + ": exists already; -f replaces it");
    }
}

void WriteTarget(const std::string& path, std::string_view bytes) {
    if (IsStandardStream(path)) {
        WriteResult(bytes);
        return;
    }
    CString reason;
    if (!WriteFileCommitted(path, bytes, &reason)) {
        throw Failure(ExitCode::failed, path + ": cannot be written: " + reason);
    }
}
