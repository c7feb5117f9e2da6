#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "event/left_out.h"
#include "params/pattern_form.h"
#include "platform/files.h"
#include "tests/dialog/session_steps.h"

// Sessions at the editor: tests/data/dialog/README.md tells how they are written.

namespace {

namespace fs = std::filesystem;

CQelCPB_3DPattern PatternNamed(const std::string& name) {
    if (name == "Bare") {
        return WithTimeSigs(PatternOf({Position(0, 0), Position(1, 480)}), {});
    }
    return name == "Late" ? WithTimeSigs(PatternOf(Song()), {{}, {0, 2, 2, 0, 3, 4}})
                          : PatternOf(Song());
}

// What a pattern holds: its name, its events and its time signatures.
std::string Contents(CQelCPB_3DPattern& pattern) {
    std::vector<t_tSigRec> records;
    st_paramTimeSigRecords reference{&records};
    EXPECT_TRUE(pattern.GetParam(2914, &reference, kSizeReference));
    const HooksScope scope;
    Hooks().messageBox = [](const CString&, UINT) { return IDOK; };
    C3DEventData store;
    C3DReport report;
    store.LoadFromPattern(&pattern, report);
    return PatternName(pattern) + ", " + std::to_string(store.CountEvents(-1)) + " events, " +
           std::to_string(records.size()) + " time signatures";
}

bool Holds(const Lines& lines, const std::string& line) {
    return std::ranges::find(lines, line) != lines.end();
}

// Rows that are gone, their images aside, then all lines that are new, rows with their number; in
// one line what controls have become or are no longer.
std::string Changes(const Lines& before, const Lines& now) {
    std::string changes, marks;
    for (const std::string& line : before) {
        const bool stays = std::ranges::any_of(now, [&](const std::string& other) {
            return other.ends_with(line.substr(line.find(' ')));
        });
        if (line.starts_with('~')) {
            marks += Holds(now, line) ? "" : " -" + line.substr(1);
        } else if (!stays && std::isdigit(line.front()) != 0) {
            changes += "  gone: " + line + "\n";
        }
    }
    for (std::size_t row = 0; row < now.size(); ++row) {
        const std::string& line = now[row];
        if (Holds(before, line)) {
            continue;
        }
        if (line.starts_with('~')) {
            marks += " +" + line.substr(1);
        } else {
            const bool isRow = std::isdigit(line.front()) != 0;
            changes += "  " + (isRow ? std::to_string(row) + ": " : "") + line + "\n";
        }
    }
    return changes + (marks.empty() ? "" : " " + marks + "\n");
}

class Session {
public:
    explicit Session(std::istream& script) {
        Editor song(PatternOf(Song()));
        song.Run([&] { usual_ = song.State(); });
        for (std::string line; std::getline(script, line);) {
            if (!line.starts_with(' ')) {
                script_.push_back(line);
            }
        }
    }

    /// Gives the script with what happened.
    std::string Play() {
        while (next_ < script_.size()) {
            if (const std::string line = Take(); !line.empty()) {
                Open(line);
            }
        }
        return text_;
    }

private:
    // The next line, without the mark of a command; nothing of a remark.
    std::string Take() {
        const std::string& line = script_[next_++];
        text_ += line + "\n";
        return line.starts_with("> ") ? line.substr(2) : "";
    }
    // A text of several lines takes one, parted by bars.
    void Say(std::string line) {
        std::erase(line, '\r');
        std::ranges::replace(line, '\n', '|');
        text_ += "  " + line + "\n";
    }

    void Open(const std::string& line) {
        std::string verb, name;
        unsigned long start = 0, end = 0;
        std::istringstream(line) >> verb >> name >> start >> end;
        if (verb == "open") {
            editor_.reset();  // Else its end puts the hooks back that the next one has set.
            editor_ = name == "nothing" ? std::make_unique<Editor>()
                      : end == 0        ? std::make_unique<Editor>(PatternNamed(name))
                                        : std::make_unique<Editor>(PatternNamed(name), start, end);
        }
        const std::string source = WritePatternBytes(editor_->source);
        Hooks().messageBox = [this](const CString& text, UINT style) {
            Say("box " + std::to_string(style) + ": " + text);
            return std::exchange(answer_, IDOK);
        };
        Hooks().popupMenu = [this](HWND, const std::vector<MenuItem>& items) {
            for (const MenuItem& item : items) {
                Say("menu " + std::to_string(item.command) + ": " + item.text);
            }
            return static_cast<UINT>(std::exchange(answer_, IDOK));
        };
        const int result = editor_->Run([this] { Follow(); });
        const std::string outcome = result == IDOK       ? "OK"
                                    : result == IDCANCEL ? "Cancel"
                                                         : "still open";
        Say(outcome + (editor_->dialog.GetModified() ? ", modified: " : ", unmodified: ") +
            Contents(*editor_->dialog.Get3DPatternForTool()));
        EXPECT_EQ(WritePatternBytes(editor_->source), source) << "the host's own is not touched";
        EXPECT_EQ(editor_->dialog.GetInitialDirCsvLoad(), "/load");
    }

    // To the end of the session, an empty line.
    void Follow() {
        text_ += Changes(usual_, editor_->State());
        while (editor_->IsOpen() && next_ < script_.size() && !script_[next_].empty()) {
            Do(Take());
        }
    }

    void Do(const std::string& line) {
        const Lines before = editor_->State();
        std::istringstream steps(line);
        for (std::string step; std::getline(steps >> std::ws, step, ',');) {
            Step(step);
        }
        if (editor_->IsOpen()) {
            text_ += Changes(before, editor_->State());
        }
    }

    void Step(const std::string& step) {
        if (step == "show") {
            text_ += Changes({}, editor_->State());
        } else if (step == "focus") {
            Say("focus: " + FocusName());
        } else if (step.starts_with("answer ")) {
            answer_ = std::stoi(step.substr(7));
        } else {
            DoStep(*editor_, step);
        }
    }

    Lines script_;
    Lines usual_;  // Of an editor that opens on the song.
    std::size_t next_ = 0;
    std::string text_;
    int answer_ = IDOK;  // To the next box or menu; then it is this again.
    std::unique_ptr<Editor> editor_;
};

// What can be dropped; locked.csv may not be read, broken.csv holds no events.
void LayOutFiles(const fs::path& folder) {
    fs::current_path(folder);
    for (const char* name : {"take.csv", "take.txt", "locked.csv"}) {
        WriteFileCommitted(name, kTake);
    }
    WriteFileCommitted("broken.csv", "x");
    fs::create_directory("folder.csv");
    fs::permissions("locked.csv", fs::perms::none);
}

TEST(Transcripts, AreWhatHappens) {
    for (const auto& entry : fs::directory_iterator(ORBIX_TEST_DATA "/dialog")) {
        if (entry.path().extension() != ".txt") {
            continue;
        }
        const TemporaryFolder folder;
        LayOutFiles(folder / "");
        const std::string told = ReadWholeFile(entry.path()).value_or("");
        std::istringstream script(told);
        const std::string happened = Session(script).Play();
        if (std::getenv("ORBIX_RETELL") != nullptr) {
            WriteFileCommitted(entry.path(), happened);
        }
        EXPECT_EQ(happened, told) << entry.path();
    }
}

}  // namespace
