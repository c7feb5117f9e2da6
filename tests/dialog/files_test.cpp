#include <gtest/gtest.h>

#include <QFileDialog>

#include "platform/files.h"
#include "tests/dialog/editor.h"
#include "tests/support/file_limit.h"

namespace {

namespace fs = std::filesystem;

constexpr char kReplace[] = "Current event data will be replaced?";
// Presses the key and enters the name; true when the file dialog has taken it.
bool ByKey(Editor& editor, Qt::Key key, const std::string& name) {
    bool taken = false;
    WithFileDialog([&] { editor.driver->Key(kListEvents, key, Qt::ControlModifier); },
                   [&](QFileDialog& dialog) { taken = EnterName(dialog, name); });
    return taken;
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
    fs::create_directory(folder / "sub");
    WriteFileCommitted(folder / "sub/broken.csv", "x");
    Editor editor(PatternOf(Song()));
    Lines boxes, rowsAtBox;
    std::string cursor;
    Hooks().messageBox = [&](const CString& box, UINT style) {
        boxes.push_back(std::to_string(style) + " " + box);
        if (box == report) {
            editor.dialog.SetCurrentPointFromCallback(0, 0);  // No event is in view yet.
        }
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
        EXPECT_FALSE(editor.driver->Enabled(kBtnUndo));
        EXPECT_TRUE(editor.driver->Enabled(kBtnOk));
        EXPECT_EQ(editor.dialog.GetInitialDirCsvLoad() + "/", folder / "");

        const Lines loaded = editor.State();
        EXPECT_TRUE(ByKey(editor, Qt::Key_O, "sub/broken"));
        EXPECT_EQ(boxes.back(), "16 Error: File format");
        EXPECT_EQ(editor.dialog.Load3DFile("") + editor.dialog.Load3DFile("take.txt"), 0);
        EXPECT_EQ(Lines(boxes.end() - 2, boxes.end()),
                  (Lines{std::string("33 ") + kReplace, "16 Error: File Extension Not Supported"}));
        EXPECT_EQ(editor.State(), loaded);
    });
    EXPECT_EQ(editor.dialog.GetInitialDirCsvLoad(), folder / "sub");
    EXPECT_EQ(editor.dialog.GetInitialDirCsvSave(), "/save");
}

TEST(Files, SaveWritesTheTableOrSaysWhyNot) {
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
        .Expect("Error: File Extension Not Supported", kErrorBox, IDOK);
    editor.Run([&] {
        editor.ClickRow(2);
        const Lines before = editor.State();
        EXPECT_TRUE(ByKey(editor, Qt::Key_S, folder / "take"));
        EXPECT_EQ(ReadWholeFile(folder / "take.csv"), song);

        WriteFileCommitted(folder / "take.csv", "old");
        {
            const FileLimit limit(song.size() - 1);
            EXPECT_TRUE(ByKey(editor, Qt::Key_S, "take"));
        }

        fs::permissions(folder / "take.csv", fs::perms(0444));
        ASSERT_EQ(seteuid(getuid() == 0 ? 65534 : getuid()), 0);
        EXPECT_TRUE(ByKey(editor, Qt::Key_S, "take"));
        ASSERT_EQ(seteuid(getuid()), 0);
        EXPECT_EQ(ReadWholeFile(folder / "take.csv"), "old");

        EXPECT_TRUE(ByKey(editor, Qt::Key_S, folder / "dot."));
        EXPECT_EQ(editor.State(), before);
    });
    EXPECT_EQ(editor.dialog.GetInitialDirCsvSave() + "/", folder / "");
    EXPECT_EQ(editor.dialog.GetInitialDirCsvLoad(), "/load");
}

}  // namespace
