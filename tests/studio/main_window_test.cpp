#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>

#include "dialog/control_ids.h"
#include "platform/files.h"
#include "studio/main_window.h"
#include "tests/event/event_builders.h"
#include "tests/studio/desk.h"
#include "tests/support/ui_driver.h"

namespace {

class StudioWindow : public testing::Test {
protected:
    void SetUp() override { window.show(); }

    /// A key with Ctrl; no window manager here gives the focus back.
    void Key(Qt::Key key) {
        window.activateWindow();
        QCoreApplication::processEvents();
        QTest::keyClick(&window, key, Qt::ControlModifier);
    }
    /// The editor, when it comes: adds an event at `measure`, then clicks the button.
    void NextEditor(int measure, int button = kBtnOk) {
        desk.Next([=, this](QWidget&) {
            DialogDriver driver(*window.OpenDialog());
            driver.Fill(kEditMeasure, std::to_string(measure));
            driver.Click(kBtnAdd);
            driver.Click(button);
        });
    }
    /// Puts a pattern on the desk and opens it; gives its file.
    std::string Open(const std::string& name, int count) {
        WriteFileCommitted(desk / name, Stored(count));
        std::string reason;
        EXPECT_TRUE(window.Open(desk / name, reason)) << reason;
        return desk / name;
    }
    std::string Label(const char* name) {
        return window.findChild<QLabel*>(name)->text().toStdString();
    }
    /// The caption, the document's state, how many autosaves there are, and what the file holds.
    std::string State() {
        const Document& document = window.CurrentDocument();
        const bool isSaved = ReadWholeFile(document.File()) == document.StoredBytes();
        return window.windowTitle().toStdString() +
               (window.isWindowModified() ? " modified: " : " clean: ") + Label("State") + ", " +
               std::to_string(Autosaves().size()) + (isSaved ? " kept, in file" : " kept");
    }
    std::vector<std::string> Autosaves() const {
        std::vector<std::string> found;
        for (const auto& [file, bytes] : desk.Files()) {
            if (file.starts_with(desk / "data/") && file.ends_with(".3dp")) {
                found.push_back(file);
            }
        }
        return found;
    }

    Desk desk;
    CZurSMWMan link;
    MainWindow window{link};
};

}  // namespace

TEST_F(StudioWindow, ANewPatternLivesThroughACancelledNameAndReachesItsFile) {
    NextEditor(3);
    desk.File("");
    Key(Qt::Key_E);
    EXPECT_EQ(State(), "Untitled[*] - Orbix modified: modified, not saved, 1 kept");
    desk.Box("Untitled has been modified", "Cancel");
    Key(Qt::Key_Q);
    desk.Box("Untitled has been modified", "Save").File("");
    Key(Qt::Key_Q);
    EXPECT_TRUE(window.isVisible() && window.isWindowModified());
    desk.File(desk / "new name");
    Key(Qt::Key_S);
    EXPECT_EQ(State(), "new name.3dp[*] - Orbix clean: saved, 0 kept, in file");
    const std::string saved = window.CurrentDocument().StoredBytes();

    NextEditor(4, kBtnCancel);
    desk.Box("Current event data has been edited", "OK");
    Key(Qt::Key_E);
    EXPECT_EQ(window.CurrentDocument().StoredBytes(), saved);
    NextEditor(4);
    Key(Qt::Key_E);
    EXPECT_EQ(State(), "new name.3dp[*] - Orbix clean: saved, 0 kept, in file");
    Key(Qt::Key_Q);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(StudioWindow, EditingARangeLeavesTheRestOfThePattern) {
    WriteFileCommitted(desk / "a.3dp", Stored(9));
    MainWindow bound(link, StudioOptions::Range{120, 480});
    std::string reason;
    ASSERT_TRUE(bound.Open(desk / "a.3dp", reason)) << reason;
    desk.Next([&](QWidget&) {
        DialogDriver driver(*bound.OpenDialog());
        EXPECT_FALSE(driver.Enabled(kBtnOk)) << "nothing was left out, so nothing has changed";
        driver.ClickRow(kListEvents, 1);
        driver.Click(kBtnDelete);
        driver.Click(kBtnOk);
    });
    bound.EditEvents();
    std::vector<std::uint32_t> ticks;
    for (const _tagEvent3D& event : Table(bound.CurrentDocument().Events())) {
        ticks.push_back(event.tick);
    }
    EXPECT_EQ(ticks, (std::vector<std::uint32_t>{0, 0, 240, 360, 480, 600, 720, 840, 960}));
    EXPECT_EQ(ReadWholeFile(desk / "a.3dp"), bound.CurrentDocument().StoredBytes());
}

TEST_F(StudioWindow, AFailedSaveKeepsTheWorkUntilItIsSavedOrGivenUp) {
    std::filesystem::create_directory(desk / "folder");
    const std::string reason =
        Open("folder/a.3dp", 4) + ": cannot be written: No such file or directory";
    std::filesystem::remove_all(desk / "folder");
    NextEditor(5);
    desk.Next([this](QWidget& box) {
        EXPECT_EQ(Autosaves().size(), 1U) << "kept while it asks";
        ClickButton(box, "Try Again");
    });
    desk.Box(reason, "Cancel");
    Key(Qt::Key_E);
    EXPECT_EQ(State(), "a.3dp[*] - Orbix modified: modified, not saved, 1 kept");
    desk.Box(reason, "Save As...").File(desk / "b.3dp");
    Key(Qt::Key_S);
    EXPECT_EQ(State(), "b.3dp[*] - Orbix clean: saved, 0 kept, in file");

    NextEditor(6);
    std::filesystem::remove(desk / "b.3dp");
    std::filesystem::create_directory(desk / "b.3dp");
    desk.Box("Is a directory", "Cancel");
    Key(Qt::Key_E);
    desk.Box("has been modified", "Discard");
    Key(Qt::Key_Q);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(Autosaves().size(), 0U);
}

TEST_F(StudioWindow, AFileThatCannotBeOpenedLeavesTheDocument) {
    WriteFileCommitted(desk / "text.3dp", "no pattern at all");
    Open("a.3dp", 4);
    const std::string before = State() + window.CurrentDocument().StoredBytes();
    desk.Box("not a 3D pattern", "OK").Box("Is a directory", "OK").Box("Only one file", "OK");
    DropFiles(window, {desk / "text.3dp"});
    DropFiles(window, {desk.Folder()});
    DropFiles(window, {desk / "a.3dp", desk / "text.3dp"});
    desk.File("");
    Key(Qt::Key_O);
    EXPECT_EQ(State() + window.CurrentDocument().StoredBytes(), before);
}

TEST_F(StudioWindow, CorrectionsAreToldInFullAndMarkTheDocumentModified) {
    WriteFileCommitted(desk / "bad.3dp", Stored(4, 7));
    std::string text = "bad.3dp was corrected while it was opened:\n";
    for (const char index : {'1', '2', '3', '4', '5'}) {
        text += std::string("\nIndex=") + index + " : TimeSig. 99/4 out of range (Entry ignored)";
    }
    desk.Box(text + "\nand 2 more in the load report", "OK");
    DropFiles(window, {desk / "bad.3dp"});
    EXPECT_EQ(
        State(),
        "bad.3dp[*] - Orbix modified: modified, not saved; opening it took 7 corrections, 1 kept");
    EXPECT_EQ(
        Label("Name") + "|" + Label("Division") + "|" + Label("Events") + "|" + Label("Length"),
        "Song|480 ticks a quarter note|"
        "5 (ID 0: 1, ID 1: 1, ID 2: 1, ID 3: 1, time signatures: 1)|"
        "360 ticks, last event at 1:1:360");
    EXPECT_EQ(Label("File"), desk / "bad.3dp");
    const auto lines = window.findChild<QPlainTextEdit*>()->toPlainText();
    EXPECT_EQ(lines.count('\n'), 6);
    EXPECT_TRUE(lines.endsWith("Index=7 : TimeSig. 99/4 out of range (Entry ignored)"));
    ClickButton(window, "Copy All");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), lines);
    desk.File(desk / "report.txt");
    ClickButton(window, "Save Report...");
    EXPECT_EQ(ReadWholeFile(desk / "report.txt"), lines.toStdString() + "\n");
}

TEST_F(StudioWindow, RecentFilesAndFoldersOutliveTheProgram) {
    for (const int i : {0, 1, 2, 3, 4, 5, 6, 7, 6}) {
        Open(std::to_string(i) + ".3dp", i);
    }
    const std::string odd = Open("odd & \xFF.3dp", 1);
    window.close();

    MainWindow second(link);
    second.show();
    auto* recent = second.findChildren<QMenu*>().at(1);
    emit recent->aboutToShow();
    ASSERT_EQ(recent->actions().size(), 8);
    EXPECT_EQ(StudioSettings().RecentFiles().back(), desk / "1.3dp");
    recent->actions().at(0)->trigger();
    EXPECT_EQ(second.CurrentDocument().File(), odd);
    EXPECT_EQ(StudioSettings().LastFolder(StudioSettings::Folder::patterns), desk.Folder());

    using Folder = StudioSettings::Folder;
    StudioSettings().NoteFolder(Folder::csvLoad, "/load");
    StudioSettings().NoteFolder(Folder::csvSave, "/save");
    desk.Next([&](QWidget&) {
        EXPECT_EQ(window.OpenDialog()->GetInitialDirCsvLoad(), "/load");
        EXPECT_EQ(window.OpenDialog()->GetInitialDirCsvSave(), "/save");
        DialogDriver(*window.OpenDialog()).Click(kBtnCancel);
    });
    window.EditEvents();
    EXPECT_EQ(StudioSettings().LastFolder(Folder::csvSave), "/save");
    // One that is gone is told and forgotten.
    std::filesystem::remove(desk / "6.3dp");
    desk.Box("6.3dp: cannot be read: No such file", "OK");
    emit recent->aboutToShow();
    recent->actions().at(1)->trigger();
    EXPECT_EQ(second.CurrentDocument().File(), odd);
    emit recent->aboutToShow();
    EXPECT_EQ(recent->actions().size(), 7);
}

TEST_F(StudioWindow, ASnapshotOfTheEditorChangesNothingInIt) {
    Open("a.3dp", 6);
    HooksScope hooks;
    DWORD now = Hooks().tickCount();
    Hooks().tickCount = [&now] { return now; };
    const auto tick = [&] {
        now += MainWindow::kAutosaveMilliseconds;
        window.AutosaveTick();
    };
    desk.Next([&](QWidget&) {
        DialogDriver driver(*window.OpenDialog());
        tick();
        EXPECT_EQ(Autosaves().size(), 0U) << "nothing was changed yet";
        driver.Click(kBtnAdd);
        driver.Click(kBtnAdd);
        driver.Click(kBtnUndo);
        driver.ClickRow(kListEvents, 2);
        driver.ClickRow(kListEvents, 4, Qt::ControlModifier);
        const auto state = [&] {
            return std::tuple(driver.RowTexts(kListEvents), driver.SelectedRows(kListEvents),
                              window.OpenDialog()->GetModified(), QApplication::focusWidget(),
                              driver.Grab());  // The fields and buttons too.
        };
        const auto before = state();
        tick();
        EXPECT_EQ(state(), before);
        ASSERT_EQ(Autosaves().size(), 1U);
        const std::string work = Autosaves().front();
        std::string reason;
        EXPECT_EQ(Document::Open(work, reason)->Events().CountEvents(-1), 8) << reason;

        // Half-typed numbers are not read; the work waits for the focus to leave.
        driver.Click(kBtnAdd);
        const auto kept = ReadWholeFile(work);
        driver.Key(kEditMeasure, Qt::Key_Backspace);
        tick();
        EXPECT_EQ(ReadWholeFile(work), kept);
        driver.Click(kBtnAdd);
        tick();
        EXPECT_NE(ReadWholeFile(work), kept);
        driver.Click(kBtnCancel);
    });
    desk.Box("Current event data has been edited", "OK");
    Key(Qt::Key_E);
    EXPECT_EQ(Autosaves().size(), 0U) << "the work was given up";
}
