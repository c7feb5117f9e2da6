#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <new>
#include <sstream>
#include <string>
#include <vector>

#include "cli/exit_codes.h"
#include "cli/output.h"
#include "cli/verbs.h"

namespace {

constexpr const char* kFooter =
    "Results go to stdout, words to stderr; - stands for stdin and stdout.\n"
    "Exit codes: 0 done, 1 could not open or write, 2 wrong usage, 3 input refused,\n"
    "4 (check, --strict) done, but something was corrected or left out,\n"
    "5 (send) no such port, or not everything went out.";

std::string UsageWords(const CLI::App* program, const CLI::Error& error) {
    const CLI::App* last = program;
    while (!last->get_subcommands().empty()) {
        last = last->get_subcommands().front();
    }
    std::string words = error.what();
    if (error.get_name() == "RequiredError" && last->get_require_subcommand_min() > 0) {
        const std::vector<std::string> unknown = program->remaining(true);
        words = unknown.empty() ? "expected a verb" : "no verb is named " + unknown.front();
    }
    return "orbix: " + words + "; see --help\n";
}

// Help and version are results, all else is wrong usage.
ExitCode AnswerParse(const CLI::App& program, const CLI::ParseError& error) {
    std::ostringstream result;
    std::ostringstream words;
    const bool isResult = program.exit(error, result, words) == 0;
    WriteResult(result.str());
    std::fputs(words.str().c_str(), stderr);
    return isResult ? ExitCode::done : ExitCode::usage;
}

ExitCode Run(int count, char** arguments) {
    CLI::App program{"Looks at and converts 3D sound-position patterns.", "orbix"};
    program.set_version_flag("--version", "orbix " ORBIX_VERSION);
    program.require_subcommand(1);
    program.footer(kFooter);
    program.failure_message(UsageWords);
    program.get_formatter()->label("SUBCOMMAND", "VERB");
    Job job;
    AddInfoVerb(program, job);
    AddShowVerb(program, job);
    AddCheckVerb(program, job);
    AddConvertVerb(program, job);
    AddMidiVerb(program, job);
    AddPortsVerb(program, job);
    AddSendVerb(program, job);
    GroupVerbs(program);
    try {
        program.parse(count, arguments);
    } catch (const CLI::ParseError& error) {
        return AnswerParse(program, error);
    }
    return job();
}

ExitCode RunToCode(int count, char** arguments) {
    try {
        return Run(count, arguments);
    } catch (const Failure& failure) {
        WriteWords(failure.what());
        return failure.Code();
    } catch (const std::bad_alloc&) {
        WriteWords("out of memory");
    } catch (const std::exception& error) {
        WriteWords(error.what());
    }
    return ExitCode::failed;
}

}  // namespace

int main(int count, char** arguments) {
    // A closed pipe and a file over its size limit are failed writes, with words and an exit code.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    return static_cast<int>(RunToCode(count, arguments));
}
