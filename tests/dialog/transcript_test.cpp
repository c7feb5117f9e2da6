#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QKeySequence>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

#include "event/left_out.h"
#include "params/pattern_form.h"
#include "platform/files.h"
#include "platform/qt/widget_access.h"
#include "tests/dialog/editor.h"

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

int Number(const Lines& words, std::size_t at = 1) {
    return std::stoi(words.at(at));
}

void Press(const std::string& name) {
    const QKeyCombination keys = QKeySequence(QString::fromStdString(name))[0];
    QTest::keyClick(QApplication::activeModalWidget()->windowHandle(), keys.key(),
                    keys.keyboardModifiers());
}

// What a screen reader calls the control that has the focus.
std::string FocusName() {
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? "" : focus->accessibleName().toStdString();
}

void TabTo(const std::string& name) {
    for (int presses = 0; presses < 60; ++presses) {
        Press("Tab");
        if (FocusName() == name) {
            return;
        }
    }
    throw std::runtime_error("Tab never comes to " + name);
}

// The keys go to the patch dialog, once that is shown.
void Patch(Editor& editor, const Lines& words) {
    const QWidget* frame = QApplication::activeModalWidget();
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (QApplication::activeModalWidget() != frame) {
            poll.stop();
            std::for_each(words.begin() + 1, words.end(), Press);
        }
    });
    poll.start(1);
    editor.Click(kBtnPatch);
}

// Files of the current folder; a name of digits is of a path with that many bytes. They are opened
// with the rights of nobody in particular, also when the superuser runs this.
void Drop(Editor& editor, const Lines& words) {
    Lines paths;
    for (auto word = words.begin() + 1; word != words.end(); ++word) {
        paths.push_back(fs::absolute(*word));
        if (const int length = std::atoi(word->c_str()); length > 0) {
            paths.back().insert(paths.back().size() - word->size(),
                                static_cast<std::size_t>(length) - paths.back().size(), 'n');
        }
    }
    DropFiles(*WidgetOfWindow(editor.dialog.m_hWnd)->windowHandle(), paths);
    ASSERT_EQ(seteuid(getuid() == 0 ? 65534 : getuid()), 0);
    editor.driver->Settle();
    ASSERT_EQ(seteuid(getuid()), 0);
}

void SetControl(Editor& editor, int id, const std::string& value) {
    if (dynamic_cast<QComboBox*>(&editor.driver->Widget(id)) != nullptr) {
        editor.ChooseRow(id, std::stoi(value));
    } else {
        editor.Fill(id, value);
    }
}

QPoint OnPlane(Editor& editor, const Lines& words) {
    return editor.driver->PointOf(kPlaneAbove) + QPoint(Number(words, 1), Number(words, 2));
}

const std::map<std::string, void (*)(Editor&, const Lines&)> kSteps{
    {"row", [](auto& e, auto& w) { e.ClickRow(Number(w)); }},
    {"shift-row", [](auto& e, auto& w) { e.ClickRow(Number(w), Qt::ShiftModifier); }},
    {"ctrl-row", [](auto& e, auto& w) { e.ClickRow(Number(w), Qt::ControlModifier); }},
    {"right-row", [](auto& e, auto& w) { e.ClickRow(Number(w), {}, Qt::RightButton); }},
    {"double-row", [](auto& e, auto& w) { e.driver->DoubleClickRow(kListEvents, Number(w)); }},
    {"time", [](auto& e, auto& w) { e.FillTime(w.at(1), w.at(2), w.at(3)); }},
    {"press", [](auto&, auto& w) { std::for_each(w.begin() + 1, w.end(), Press); }},
    {"hold", [](auto& e, auto& w) { e.driver->MousePress(OnPlane(e, w)); }},
    {"move", [](auto& e, auto& w) { e.driver->MouseMove(OnPlane(e, w)); }},
    {"release", [](auto& e, auto& w) { e.driver->MouseRelease(OnPlane(e, w)); }},
    {"close", [](auto& e, auto&) { WidgetOfWindow(e.dialog.m_hWnd)->close(); }},
    {"patch", Patch},
    {"drop", Drop},
};

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
        if (const std::size_t on = step.find(" on "); on != std::string::npos) {
            editor_->driver->Widget(ControlNamed(step.substr(on + 4))).setFocus();
            return Step(step.substr(0, on));
        }
        std::istringstream stream(step);
        const Lines words(std::istream_iterator<std::string>(stream), {});
        const std::size_t equals = step.find(" = ");
        if (const auto known = kSteps.find(words.at(0)); known != kSteps.end()) {
            known->second(*editor_, words);
        } else if (words[0] == "answer") {
            answer_ = Number(words);
        } else if (words[0] == "tab") {
            TabTo(step.substr(4));
        } else if (words[0] == "focus") {
            Say("focus: " + FocusName());
        } else if (words[0] == "show") {
            text_ += Changes({}, editor_->State());
        } else if (equals != std::string::npos) {
            SetControl(*editor_, ControlNamed(step.substr(0, equals)), step.substr(equals + 3));
        } else {
            editor_->Click(ControlNamed(step));
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
