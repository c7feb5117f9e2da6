#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <vector>

#include "shell.h"

namespace {

namespace fs = std::filesystem;

// A transcript is what a terminal shows: a line behind "$ " is run, then come its results, its
// words on stderr behind "! " and an exit code other than 0 behind "? ". Lines with "# " are
// remarks. All lines of one transcript run in one folder. A new case needs no C++.
std::string Replay(const std::string& transcript) {
    const Shell shell;
    std::string shown;
    std::istringstream lines(transcript);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("# ")) {
            shown += line + "\n";
        } else if (line.starts_with("$ ")) {
            const Outcome outcome = shell.Run(line.substr(2));
            shown += line + "\n" + outcome.out;
            std::istringstream words(outcome.err);
            for (std::string word; std::getline(words, word);) {
                shown += "! " + word + "\n";
            }
            shown += outcome.code == 0 ? "" : "? " + std::to_string(outcome.code) + "\n";
        }
    }
    return shown;
}

std::vector<std::string> Transcripts() {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(ORBIX_TRANSCRIPTS)) {
        names.push_back(entry.path().stem().string());
    }
    return names;
}

class Transcript : public testing::TestWithParam<std::string> {};

TEST_P(Transcript, ShowsTheSame) {
    const std::string expected = ReadBytes(ORBIX_TRANSCRIPTS "/" + GetParam() + ".txt");
    ASSERT_FALSE(expected.empty());
    EXPECT_EQ(Replay(expected), expected);
}

INSTANTIATE_TEST_SUITE_P(Cli, Transcript, testing::ValuesIn(Transcripts()),
                         [](const auto& info) { return info.param; });

}  // namespace
