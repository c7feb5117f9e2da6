#pragma once

#include <stdexcept>
#include <string>

/// How the program ends.
enum class ExitCode {
    done = 0,
    failed = 1,     ///< a file could not be opened or written, no space, output closed
    usage = 2,      ///< the command line can't be understood
    refused = 3,    ///< the input is not what it should be; nothing was written
    corrected = 4,  ///< done, but something was put right or left out
    notSent = 5,    ///< no such port, or not everything went out to the device
};

/// Ends the program from anywhere inside a verb: main writes the words to stderr and exits with
/// the code. The words name the file, the place in it and what was expected there.
class Failure : public std::runtime_error {
public:
    Failure(ExitCode code, const std::string& words) : std::runtime_error(words), code_(code) {}

    ExitCode Code() const { return code_; }

private:
    ExitCode code_;
};
