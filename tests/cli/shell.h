#pragma once

#include <ostream>
#include <set>
#include <string>

#include "tests/support/temporary_folder.h"

/// What a command line left behind.
struct Outcome {
    int code = 0;  ///< exit code, 128 and more for a signal
    std::string out;
    std::string err;

    bool operator==(const Outcome&) const = default;
    friend std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
        return stream << "exit " << outcome.code << "\nstdout: " << outcome.out
                      << "\nstderr: " << outcome.err;
    }
};

/// A fresh folder and a shell inside it, with the program of this build found as `orbix` and the
/// examples at `$EXAMPLES`, MIDI files at `$SMF`. There is little memory, so that a length that is
/// believed shows.
class Shell {
public:
    Shell();

    Outcome Run(const std::string& line, const std::string& input = "") const;
    /// Names of the files in the folder.
    std::set<std::string> Names() const;

private:
    TemporaryFolder folder_;
};

std::string ReadBytes(const std::string& path);
