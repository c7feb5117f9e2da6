#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QUrl>
#include <QWindow>
#include <csignal>

#include "platform/files.h"
#include "platform/qt/widget_access.h"
#include "tests/dialog/editor.h"

namespace {

namespace fs = std::filesystem;

constexpr char kReplace[] = "Current event data will be replaced?";
const std::string kTake =
    "Division,480\r\n3D ID,Meas,Beat,Tick,Distance,Azimuth,Elevation,TimeSig.\r\n"
    ",1,1,0,,,,4_4\r\n";

// Files are opened with the rights of nobody in particular, also when the superuser runs this.
void Drop(Editor& editor, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    QWindow* window = WidgetOfWindow(editor.dialog.m_hWnd)->windowHandle();
    QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &enter);
    QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &drop);
    ASSERT_EQ(seteuid(getuid() == 0 ? 65534 : getuid()), 0);
    editor.driver->Settle();
    ASSERT_EQ(seteuid(getuid()), 0);
}

// Presses the key and enters the name; true when the file dialog has taken it.
bool ByKey(Editor& editor, Qt::Key key, const std::string& name) {
    bool taken = false;
    WithFileDialog([&] { editor.driver->Key(kListEvents, key, Qt::ControlModifier); },
                   [&](QFileDialog& dialog) { taken = EnterName(dialog, name); });
    return taken;
}

TEST(Files, ADropThatIsRefusedLeavesEverything) {
    const TemporaryFolder folder;
    for (const char* name : {"take.csv", "take.txt", "locked.csv"}) {
        WriteFileCommitted(folder / name, kTake);
    }
    WriteFileCommitted(folder / "broken.csv", "x");
    fs::create_directory(folder / "folder.csv");
    fs::permissions(folder / "locked.csv", fs::perms::none);
    const std::string longest(260 - (folder / ".csv").size(), 'n');
    struct Row {
        Lines names;
        int answer;  // to the question, 0 when it doesn't come
        const char* error;
    };
    for (const Row& row :
         {Row{{"take.csv", "broken.csv"}, 0, "Error: Multi File Open Not Supported"},
          {{"folder.csv"}, 0, "Error: Directory Open Not Supported"},
          {{"take.txt"}, 0, "Error: File Extension Not Supported"},
          {{longest + "n.csv"}, 0, "Error: File path is too long"},
          {{longest + ".csv"}, IDOK, "Error: File open"},
          {{"gone.csv"}, IDOK, "Error: File open"},
          {{"locked.csv"}, IDOK, "Error: File open"},
          {{"broken.csv"}, IDOK, "Error: File format"},
          {{"broken.csv"}, IDCANCEL, ""}}) {
        Editor editor(PatternOf(Song()));
        if (row.answer != 0) {
            editor.boxes.Expect(kReplace, kQuestionBox, row.answer);
        }
        if (*row.error != '\0') {
            editor.boxes.Expect(row.error, kErrorBox, IDOK);
        }
        editor.Run([&] {
            editor.ClickRow(2);
            const Lines before = editor.State();
            QList<QUrl> urls;
            for (const std::string& name : row.names) {
                urls.append(QUrl::fromLocalFile(QString::fromStdString(folder / name)));
            }
            Drop(editor, urls);
            EXPECT_EQ(editor.State(), before);
        });
        EXPECT_EQ(editor.dialog.GetInitialDirCsvLoad(), "/load");
    }
}

TEST(Files, LoadReplacesTheTableAndReportsBefore) {
    const TemporaryFolder folder;
    std::string text = kTake, report;
    for (int i = 1; i <= 6; ++i) {
        text += "7,2,1,0,1000,0,0\r\n";
        report +=
            i > 5 ? "and more..." : "Index=" + std::to_string(i) + " : ID Changed (7)->(0)\r\n";
    }
    WriteFileCommitted(folder / "\xC3\xA9 take.csv", text);
    WriteFileCommitted(folder / "broken.csv", "x");
    Editor editor(PatternOf(Song()));
    Lines boxes, rowsAtBox;
    std::string cursor;
    Hooks().messageBox = [&](const CString& box, UINT style) {
        boxes.push_back(std::to_string(style) + " " + box);
        rowsAtBox = editor.Rows();
        return IDOK;
    };
    editor.Run([&] {
        editor.ClickRow(5);
        editor.Click(kBtnDelete);
        editor.ClickRow(3);
        const Lines before = editor.Rows();
        Hooks().waitCursor = [&cursor](bool on) { cursor += on ? "on " : "off "; };
        WithFileDialog([&] { editor.Click(kBtnCsvLoad); },
                       [&](QFileDialog& dialog) {
                           EXPECT_FALSE(EnterName(dialog, folder / std::string(251, 'n')));
                           EXPECT_TRUE(EnterName(dialog, folder / "\xC3\xA9 take"));
                       });
        EXPECT_EQ(boxes, (Lines{"48 Error: File path is too long", std::string("33 ") + kReplace,
                                "48 " + report}));
        EXPECT_EQ(rowsAtBox, before);
        EXPECT_EQ(cursor, "on off ");
        EXPECT_EQ(editor.Rows().size(), 7U);
        EXPECT_EQ(editor.Fields(), "1:1:0 ID1 4/4") << "3D Position, on a time signature";
        EXPECT_EQ(editor.Buttons(), "OK Update Delete ");
        EXPECT_EQ(editor.dialog.GetInitialDirCsvLoad() + "/", folder / "");

        const Lines loaded = editor.State();
        fs::create_directory(folder / "sub");
        fs::rename(folder / "broken.csv", folder / "sub/broken.csv");
        EXPECT_TRUE(ByKey(editor, Qt::Key_O, "sub/broken"));
        EXPECT_EQ(boxes.back(), "16 Error: File format");
        EXPECT_EQ(editor.State(), loaded);
    });
    EXPECT_EQ(editor.dialog.GetInitialDirCsvLoad(), folder / "sub");
    EXPECT_EQ(editor.dialog.GetInitialDirCsvSave(), "/save");
}

TEST(Files, LoadAsksAboutTheTableBeforeItLooksAtTheName) {
    Editor editor(PatternOf(Song()));
    editor.boxes.Expect(kReplace, kQuestionBox, IDOK)
        .Expect("Error: File Extension Not Supported", kErrorBox, IDOK);
    editor.Run([&] {
        EXPECT_EQ(editor.dialog.Load3DFile(nullptr), 0);
        EXPECT_EQ(editor.dialog.Load3DFile(""), 0);
        EXPECT_EQ(editor.dialog.Load3DFile("take.txt"), 0);
    });
}

TEST(Files, SaveWritesTheTableOrSaysWhyNot) {
    signal(SIGXFSZ, SIG_IGN);
    const TemporaryFolder folder;
    const std::string song = kTake +
                             "0,1,1,0,1000,0,0\r\n2,1,2,0,1500,-90,30\r\n,2,1,0,,,,3_4\r\n"
                             "1,2,1,0,1000,0,0\r\n2,3,1,0,1000,0,0\r\n";
    Editor editor(PatternOf(Song()));
    const UINT question = 0x134;
    editor.boxes.Expect("\"take.csv\" is there already.\nReplace it?", question, IDYES)
        .Expect("Error: Disk Space not Enough", kErrorBox, IDOK)
        .Expect("\"take.csv\" is there already.\nReplace it?", question, IDYES)
        .Expect("Error: File open", kErrorBox, IDOK)
        .Expect("There is no folder \"" + (folder / "going") + "\".", kReportBox, IDOK)
        .Expect("Error: File Extension Not Supported", kErrorBox, IDOK);
    editor.Run([&] {
        editor.ClickRow(2);
        const Lines before = editor.State();
        EXPECT_TRUE(ByKey(editor, Qt::Key_S, folder / "take"));
        EXPECT_EQ(ReadWholeFile(folder / "take.csv"), song);

        WriteFileCommitted(folder / "take.csv", "old");
        rlimit limit{}, small{};
        getrlimit(RLIMIT_FSIZE, &limit);
        small = {song.size() - 1, limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        EXPECT_TRUE(ByKey(editor, Qt::Key_S, "take"));
        setrlimit(RLIMIT_FSIZE, &limit);

        fs::permissions(folder / "take.csv", fs::perms(0444));
        ASSERT_EQ(seteuid(getuid() == 0 ? 65534 : getuid()), 0);
        EXPECT_TRUE(ByKey(editor, Qt::Key_S, "take"));
        ASSERT_EQ(seteuid(getuid()), 0);
        EXPECT_EQ(ReadWholeFile(folder / "take.csv"), "old");

        const std::string longest = "/tmp/" + std::string(251, 'n');  // 260 bytes with ".csv"
        EXPECT_TRUE(ByKey(editor, Qt::Key_S, longest));
        EXPECT_EQ(ReadWholeFile(longest + ".csv"), song);
        fs::remove(longest + ".csv");

        fs::create_directory(folder / "going");
        WithFileDialog([&] { editor.driver->Key(kListEvents, Qt::Key_S, Qt::ControlModifier); },
                       [&](QFileDialog& dialog) {
                           EXPECT_FALSE(EnterName(dialog, folder / "going"));
                           fs::remove(folder / "going");
                           EXPECT_FALSE(EnterName(dialog, "late"));
                       });
        EXPECT_TRUE(ByKey(editor, Qt::Key_S, folder / "dot."));
        EXPECT_EQ(editor.State(), before);
    });
    EXPECT_EQ(editor.dialog.GetInitialDirCsvSave() + "/", folder / "");
    EXPECT_EQ(editor.dialog.GetInitialDirCsvLoad(), "/load");
}

TEST(Files, AnEmptyTableIsNotSavedAndLoadsWithoutAQuestion) {
    const TemporaryFolder folder;
    CQelCPB_3DPattern pattern = PatternOf({});
    std::vector<t_tSigRec> none;
    st_paramTimeSigRecords records{&none};
    ASSERT_TRUE(pattern.SetParam(2914, &records, kSizeReference));
    WriteFileCommitted(folder / "take.csv", kTake);
    Editor editor(pattern);
    editor.Run([&] {
        EXPECT_FALSE(editor.driver->Enabled(kBtnCsvSave));
        EXPECT_FALSE(ByKey(editor, Qt::Key_S, folder / "new"));
        Drop(editor, {QUrl::fromLocalFile(QString::fromStdString(folder / "take.csv"))});
        EXPECT_EQ(editor.Rows(), Lines{"1* 4 / 4 1 1 0 - - - -"});
        EXPECT_TRUE(editor.driver->Enabled(kBtnCsvSave));
    });
}

TEST(Files, NothingHappensDuringADrag) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        RECT plane = editor.dialog.GetDlgItem(kPlaneAbove)->GetWindowRect();
        editor.dialog.ScreenToClient(plane);
        const QPoint dot(plane.left + Width(plane) / 2, plane.top + 16);
        editor.driver->MousePress(dot);
        editor.driver->MouseMove(dot + QPoint(40, 40));
        Drop(editor, {QUrl("file:///one"), QUrl("file:///two")});
        EXPECT_FALSE(ByKey(editor, Qt::Key_O, ""));
        EXPECT_FALSE(ByKey(editor, Qt::Key_S, ""));
        editor.driver->MouseRelease(dot);
    });
}

}  // namespace
