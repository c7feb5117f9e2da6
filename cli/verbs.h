#pragma once

#include <functional>

#include "cli/exit_codes.h"

namespace CLI {
class App;
}

/// What the command line asks for, ready to run once.
using Job = std::function<ExitCode()>;

// Each adds its verb to the program's arguments; when the verb is chosen, `job` becomes what is to
// be done. A job may raise Failure.

void AddInfoVerb(CLI::App& program, Job& job);
void AddShowVerb(CLI::App& program, Job& job);
void AddCheckVerb(CLI::App& program, Job& job);
void AddConvertVerb(CLI::App& program, Job& job);
void AddMidiVerb(CLI::App& program, Job& job);
void AddPortsVerb(CLI::App& program, Job& job);
void AddSendVerb(CLI::App& program, Job& job);
