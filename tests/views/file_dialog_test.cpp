#include <gtest/gtest.h>

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "platform/files.h"
#include "tests/event/event_builders.h"
#include "tests/support/ui_driver.h"
#include "views/file_dialog_ex.h"

namespace {

constexpr char kCsv[] = "3D Event CSV File (*.csv)|*.csv||";
constexpr char kTwoTypes[] = "CSV|*.csv|Text|*.txt;*.log *.?x||";
constexpr DWORD kSave = 0x200006, kOpen = 0x201004;

TEST(FileDialogEx, GivesANameTheExtensionOfItsType) {
    struct Row {
        const char *name, *accepted, *retyped;
        DWORD type = 1;
    };
    for (const Row& row : {Row{"take", "take.csv", "take.csv"},
                           {"take.txt", "take.txt.csv", "take.csv"},
                           {"take.c", "take.c", "take.c"},
                           {"take.CS", "take.CS", "take.CS"},
                           {"take.", "take.", "take."},
                           {"", "", ""},
                           {"take.LOG", "take.LOG", "take.LOG", 2},
                           {"take.ax", "take.ax.txt", "take.txt", 2},
                           {"take.ax", "take.ax", "take.ax", 3}}) {
        CFileDialogEx dialog(TRUE, "csv", nullptr, kOpen, kTwoTypes, nullptr);
        dialog.m_ofn.nFilterIndex = row.type;
        for (const BOOL replace : {FALSE, TRUE}) {
            const CString expected = replace != FALSE ? row.retyped : row.accepted;
            CString name = row.name;
            EXPECT_EQ(dialog.ApplyExtension(name, replace), expected != row.name) << row.name;
            EXPECT_EQ(name, expected);
        }
    }
    const std::string longName = std::string(255, 'n') + "\xC3\xA9\xE2\x82\xAC";
    EXPECT_EQ(CFileDialogEx(TRUE, "csv", longName.c_str(), 0, kCsv, nullptr).GetFileName(),
              longName.substr(0, 257));
}

TEST(FileDialogEx, WithoutAWindowItLooksAndChangesNothing) {
    CFileDialogEx dialog(TRUE, "csv", nullptr, kOpen, kCsv, nullptr);
    EXPECT_EQ(dialog.OnFileNameOK(), TRUE);
    dialog.m_ofn.lpstrFile = "take";
    EXPECT_EQ(dialog.OnFileNameOK(), FALSE);
    EXPECT_EQ(dialog.GetFileName(), "take");
    EXPECT_EQ(dialog.SetPathTooLongMessage(nullptr), FALSE);
    EXPECT_EQ(dialog.SetPathTooLongMessage(""), FALSE);
    EXPECT_EQ(dialog.SetPathTooLongMessage(std::string(65535, 'x').c_str()), TRUE);
    EXPECT_EQ(dialog.SetPathTooLongMessage(std::string(65536, 'x').c_str()), FALSE);
}

// What the user enters in a folder with take.csv, sub/ and folder.csv/, the box that comes, and
// the path that comes back ("" when the dialog stays).
TEST(FileDialogEx, TakesWhatTheUserEnters) {
    struct Row {
        DWORD flags;
        const char *name, *path;
        std::string box = "";
        int answer = 0;
    };
    const TemporaryFolder folder;
    const std::string replace = "\"take.csv\" is there already.\nReplace it?";
    WriteFileCommitted(folder / "take.csv", "old");
    std::filesystem::create_directory(folder / "sub");
    std::filesystem::create_directory(folder / "folder.csv");
    for (const Row& row :
         {Row{kSave, "take", "take.csv", replace, IDYES},
          {kSave, "take", "", replace, IDNO},
          {kSave, "take.CSV", "take.CSV"},
          {kSave, "\xC3\xA9 \xE2\x82\xAC.txt", "\xC3\xA9 \xE2\x82\xAC.txt.csv"},
          {kSave, "take.", "take."},
          {kSave, "sub/new", "sub/new.csv"},
          {kSave, "none/new", "", "There is no folder \"" + folder / "none" + "\"."},
          {kSave, "", ""},
          {kSave, "sub", ""},
          {kSave, "folder", ""},
          {kOpen, "take", "take.csv"},
          {kOpen, "gone", "", "There is no file \"gone.csv\" in this folder."}}) {
        MessageBoxScript boxes;
        if (!row.box.empty()) {
            boxes.Expect(row.box, row.answer == 0 ? 0x30 : 0x134, row.answer);
        }
        const bool taken = *row.path != '\0';
        CFileDialogEx dialog(row.flags == kOpen, "csv", nullptr, row.flags, kCsv, nullptr);
        dialog.m_ofn.lpstrInitialDir = folder / "";
        SetCurrentFolder("/");
        WithFileDialog(
            [&] { EXPECT_EQ(dialog.DoModal(), taken ? IDOK : IDCANCEL); },
            [&](QFileDialog& shown) { EXPECT_EQ(EnterName(shown, row.name), taken) << row.name; });
        const CString path = folder / row.path;
        EXPECT_EQ(dialog.GetPathName(), taken ? path : "");
        EXPECT_EQ(*CurrentFolder(), taken ? path.substr(0, path.rfind('/')) : "/");
    }
    EXPECT_EQ(ReadWholeFile(folder / "take.csv"), "old");
}

TEST(FileDialogEx, RefusesAPathOf261BytesWithABoxOfItsTitle) {
    const TemporaryFolder folder;
    CFileDialogEx dialog(FALSE, "csv", nullptr, kSave, kCsv, nullptr);
    dialog.m_ofn.lpstrInitialDir = folder / "";
    dialog.SetPathTooLongMessage("too long");
    const std::string name(260 - (folder / ".csv").size(), 'n');
    WithFileDialog([&] { EXPECT_EQ(dialog.DoModal(), IDOK); },
                   [&](QFileDialog& shown) {
                       std::string box;
                       QTimer::singleShot(0, [&box] {
                           auto& shownBox =
                               dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget());
                           box = (shownBox.windowTitle() + ": " + shownBox.text()).toStdString();
                           shownBox.close();
                       });
                       EXPECT_FALSE(EnterName(shown, name + "n"));
                       EXPECT_EQ(box, "Save As: too long");
                       EXPECT_TRUE(EnterName(shown, name));
                   });
    EXPECT_EQ(dialog.GetPathName().size(), 260U);
}

TEST(FileDialogEx, AnotherTypeChangesTheName) {
    CFileDialogEx dialog(FALSE, "csv", nullptr, kSave, kTwoTypes, nullptr);
    const auto script = [](QFileDialog& shown) {
        auto& field = *shown.findChild<QLineEdit*>("fileNameEdit");
        field.setText("take.log");
        for (const auto& [key, name] : {std::pair{Qt::Key_Down, "take.log"},
                                        {Qt::Key_Up, "take.csv"},
                                        {Qt::Key_Down, "take.txt"}}) {
            shown.findChild<QComboBox*>("fileTypeCombo")->setFocus();
            QTest::keyClick(shown.windowHandle(), key);
            EXPECT_EQ(field.text(), name);
        }
    };
    EXPECT_TRUE(WithFileDialog([&] { dialog.DoModal(); }, script));
}

}  // namespace
