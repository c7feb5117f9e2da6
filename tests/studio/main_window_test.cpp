#include <gtest/gtest.h>

#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QUrl>

#include "dialog/control_ids.h"
#include "params/pattern_form.h"
#include "studio/main_window.h"
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
            driver.Key(kEditMeasure, Qt::Key_Home);
            driver.Key(Qt::Key_End, Qt::ShiftModifier);
            driver.Type(kEditMeasure, std::to_string(measure));
            driver.Click(kBtnAdd);
            driver.Click(button);
        });
    }
    void Open(const std::string& file) {
        std::string reason;
        ASSERT_TRUE(window.Open(file, reason)) << reason;
    }
    void Drop(const std::vector<std::string>& files) {
        QMimeData data;
        QList<QUrl> urls;
        for (const std::string& file : files) {
            urls.append(QUrl::fromLocalFile(QString::fromStdString(file)));
        }
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &enter);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &drop);
    }
    /// The caption, the summary and the bytes that a save would write.
    std::string State() {
        std::string state = window.windowTitle().toStdString() +
                            (window.isWindowModified() ? " modified\n" : " clean\n");
        for (const char* value : {"Name", "File", "State", "Division", "Events", "Length"}) {
            state += window.findChild<QLabel*>(value)->text().toStdString() + "\n";
        }
        return state + window.CurrentDocument().StoredBytes();
    }
    int Autosaves() const {
        return static_cast<int>(FindFiles(desk.Folder() / "data", ".3dp").size());
    }
    static std::vector<std::string> FindFiles(const std::filesystem::path& folder,
                                              const std::string& extension) {
        std::vector<std::string> files;
        std::error_code none;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, none)) {
            if (entry.path().extension() == extension) {
                files.push_back(entry.path().string());
            }
        }
        return files;
    }

    Desk desk;
    CZurSMWMan link;
    MainWindow window{link};
};

}  // namespace

TEST_F(StudioWindow, ANewPatternLivesThroughACancelledNameAndReachesItsFile) {
    const std::string file = desk / "new name.3dp";
    NextEditor(3);
    desk.File("");
    Key(Qt::Key_E);
    EXPECT_EQ(State().substr(0, State().find("480")),
              "Untitled[*] - Orbix modified\nNew Pattern\nnone\nmodified, not saved\n");
    EXPECT_EQ(window.CurrentDocument().Events().CountEvents(0), 1);
    EXPECT_EQ(Autosaves(), 1);

    desk.Box("Untitled has been modified", "Cancel");
    Key(Qt::Key_Q);
    desk.Box("Untitled has been modified", "Save").File("");
    Key(Qt::Key_Q);
    EXPECT_TRUE(window.isVisible() && window.isWindowModified());

    desk.File(file.substr(0, file.size() - 4));
    Key(Qt::Key_S);
    EXPECT_EQ(State().substr(0, State().find("480")),
              "new name.3dp[*] - Orbix clean\nNew Pattern\n" + file + "\nsaved\n");
    EXPECT_EQ(Bytes(file), window.CurrentDocument().StoredBytes());
    EXPECT_EQ(Autosaves(), 0);

    const std::string saved = Bytes(file);
    NextEditor(4, kBtnCancel);
    desk.Box("Current event data has been edited", "OK");
    Key(Qt::Key_E);
    EXPECT_FALSE(window.isWindowModified());
    NextEditor(4);
    Key(Qt::Key_E);
    EXPECT_NE(Bytes(file), saved);
    EXPECT_FALSE(window.isWindowModified());
    Key(Qt::Key_Q);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(StudioWindow, EditingARangeLeavesTheRestOfThePattern) {
    PutBytes(desk / "a.3dp", WritePatternBytes(Positions(9)));
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
    for (int i = 0; i < bound.CurrentDocument().Events().CountEvents(-1); ++i) {
        ticks.push_back(bound.CurrentDocument().Events().EventAt(i).tick);
    }
    EXPECT_EQ(ticks, (std::vector<std::uint32_t>{0, 0, 240, 360, 480, 600, 720, 840, 960}));
    EXPECT_EQ(Bytes(desk / "a.3dp"), bound.CurrentDocument().StoredBytes());
}

TEST_F(StudioWindow, AFailedSaveKeepsTheWorkUntilItIsSavedOrGivenUp) {
    std::filesystem::create_directory(desk / "folder");
    const std::string file = desk / "folder/a.3dp";
    PutBytes(file, WritePatternBytes(Positions(4)));
    Open(file);
    std::filesystem::remove_all(desk / "folder");
    const std::string reason = file + ": cannot be written: No such file or directory";
    NextEditor(5);
    desk.Box(reason, "Try Again").Box(reason, "Cancel");
    Key(Qt::Key_E);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(Autosaves(), 1);
    desk.Box(reason, "Save As...").File(desk / "b.3dp");
    Key(Qt::Key_S);
    EXPECT_EQ(window.CurrentDocument().File(), desk / "b.3dp");
    EXPECT_EQ(Bytes(desk / "b.3dp"), window.CurrentDocument().StoredBytes());

    NextEditor(6);
    std::filesystem::remove(desk / "b.3dp");
    std::filesystem::create_directory(desk / "b.3dp");
    desk.Box("Is a directory", "Cancel");
    Key(Qt::Key_E);
    desk.Box("has been modified", "Discard");
    Key(Qt::Key_Q);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(Autosaves(), 0);
}

TEST_F(StudioWindow, AFileThatCannotBeOpenedLeavesTheDocument) {
    PutBytes(desk / "a.3dp", WritePatternBytes(Positions(4)));
    PutBytes(desk / "text.3dp", "no pattern at all");
    Open(desk / "a.3dp");
    const std::string before = State();
    desk.Box("not a 3D pattern", "OK").Box("Is a directory", "OK").Box("Only one file", "OK");
    Drop({desk / "text.3dp"});
    Drop({desk.Folder().string()});
    Drop({desk / "a.3dp", desk / "text.3dp"});
    desk.File("");
    Key(Qt::Key_O);
    EXPECT_EQ(State(), before);
}

TEST_F(StudioWindow, CorrectionsAreToldInFullAndMarkTheDocumentModified) {
    PutBytes(desk / "bad.3dp", WritePatternBytes(Positions(4, 7)));
    desk.Box(
        "bad.3dp was corrected while it was opened:\n\n"
        "Index=1 : TimeSig. 99/4 out of range (Entry ignored)\n",
        "OK");
    Drop({desk / "bad.3dp"});
    EXPECT_NE(State().find("modified, not saved; opening it took 7 corrections"),
              std::string::npos);
    const auto lines = window.findChild<QPlainTextEdit*>()->toPlainText();
    EXPECT_EQ(lines.count('\n'), 6);
    EXPECT_TRUE(lines.endsWith("Index=7 : TimeSig. 99/4 out of range (Entry ignored)"));
    ClickButton(window, "Copy All");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), lines);
    desk.File(desk / "report.txt");
    ClickButton(window, "Save Report...");
    EXPECT_EQ(Bytes(desk / "report.txt"), lines.toStdString() + "\n");
}

TEST_F(StudioWindow, RecentFilesAndFoldersOutliveTheProgram) {
    const std::string odd = desk / "odd & \xFF.3dp";
    for (int i = 0; i < 9; ++i) {
        PutBytes(desk / (std::to_string(i) + ".3dp"), WritePatternBytes(Positions(i)));
        Open(desk / (std::to_string(i) + ".3dp"));
    }
    PutBytes(odd, WritePatternBytes(Positions(1)));
    Open(odd);
    window.close();

    MainWindow second(link);
    second.show();
    auto* recent = second.findChildren<QMenu*>().at(1);
    emit recent->aboutToShow();
    ASSERT_EQ(recent->actions().size(), 8);
    recent->actions().at(0)->trigger();
    EXPECT_EQ(second.CurrentDocument().File(), odd);
    EXPECT_EQ(StudioSettings().LastFolder(StudioSettings::Folder::patterns),
              desk.Folder().string());

    StudioSettings().NoteFolder(StudioSettings::Folder::csvLoad, "/load");
    StudioSettings().NoteFolder(StudioSettings::Folder::csvSave, "/save");
    desk.Next([&](QWidget&) {
        DialogDriver driver(*window.OpenDialog());
        EXPECT_EQ(window.OpenDialog()->GetInitialDirCsvLoad(), "/load");
        EXPECT_EQ(window.OpenDialog()->GetInitialDirCsvSave(), "/save");
        driver.Click(kBtnCancel);
    });
    window.EditEvents();
    EXPECT_EQ(StudioSettings().LastFolder(StudioSettings::Folder::csvSave), "/save");
    // One that is gone is told and forgotten.
    std::filesystem::remove(desk / "8.3dp");
    desk.Box("8.3dp: cannot be read: No such file", "OK");
    emit recent->aboutToShow();
    recent->actions().at(1)->trigger();
    EXPECT_EQ(second.CurrentDocument().File(), odd);
    emit recent->aboutToShow();
    EXPECT_EQ(recent->actions().size(), 7);
}

TEST_F(StudioWindow, ASnapshotOfTheEditorChangesNothingInIt) {
    PutBytes(desk / "a.3dp", WritePatternBytes(Positions(6)));
    Open(desk / "a.3dp");
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
        EXPECT_EQ(Autosaves(), 0) << "nothing was changed yet";
        driver.Click(kBtnAdd);
        driver.Click(kBtnAdd);
        driver.Click(kBtnUndo);
        driver.ClickRow(kListEvents, 2);
        driver.ClickRow(kListEvents, 4, Qt::ControlModifier);
        const auto state = [&] {
            return std::tuple(driver.RowTexts(kListEvents), driver.SelectedRows(kListEvents),
                              driver.Text(kEditMeasure), driver.Text(kEditTick),
                              driver.Enabled(kBtnUndo), driver.Enabled(kBtnRedo),
                              window.OpenDialog()->GetModified(), QApplication::focusWidget(),
                              driver.Grab());
        };
        const auto before = state();
        tick();
        EXPECT_EQ(state(), before);
        ASSERT_EQ(Autosaves(), 1);
        const std::string work = FindFiles(desk.Folder() / "data", ".3dp").front();
        std::string reason;
        EXPECT_EQ(Document::Open(work, reason)->Events().CountEvents(-1), 8) << reason;

        // Half-typed numbers are not read; the work waits for the focus to leave.
        driver.Click(kBtnAdd);
        const std::string kept = Bytes(work);
        driver.Key(kEditMeasure, Qt::Key_Backspace);
        tick();
        EXPECT_EQ(Bytes(work), kept);
        driver.Click(kBtnAdd);
        tick();
        EXPECT_NE(Bytes(work), kept);
        driver.Click(kBtnCancel);
    });
    desk.Box("Current event data has been edited", "OK");
    Key(Qt::Key_E);
    EXPECT_EQ(Autosaves(), 0) << "the work was given up";
}
