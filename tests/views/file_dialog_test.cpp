#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "platform/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/ui_driver.h"
#include "tests/views/table.h"
#include "views/file_dialog_ex.h"

namespace {

constexpr char kCsv[] = "3D Event CSV File (*.csv)|*.csv||";
constexpr char kTwoTypes[] = "CSV|*.csv|Text|*.txt;*.log *.?x||";
constexpr DWORD kSave = 0x200006, kOpen = 0x201004;

TEST(FileDialogEx, GivesANameTheExtensionOfItsType) {
    ExpectTable("extensions.txt", [](std::istream& row) {
        CFileDialogEx dialog(TRUE, "csv", nullptr, kOpen, kTwoTypes, nullptr);
        std::string name, changed;
        row >> name >> dialog.m_ofn.nFilterIndex;
        for (const BOOL replace : {FALSE, TRUE}) {
            CString given = name;
            const BOOL answer = dialog.ApplyExtension(given, replace);
            EXPECT_EQ(answer, given != name);
            changed += given + " ";
        }
        return changed;
    });
    const std::string longName = std::string(255, 'n') + "\xC3\xA9\xE2\x82\xAC";
    CFileDialogEx dialog(TRUE, "csv", longName.c_str(), kOpen, kCsv, nullptr);
    EXPECT_EQ(dialog.GetFileName(), longName.substr(0, 257));
    CString none;
    EXPECT_EQ(dialog.ApplyExtension(none, TRUE), FALSE);
    // Without a window it looks and changes nothing.
    dialog.m_ofn.lpstrFile = "";
    EXPECT_EQ(dialog.OnFileNameOK(), TRUE);
    dialog.m_ofn.lpstrFile = "take";
    EXPECT_EQ(dialog.OnFileNameOK(), FALSE);
    EXPECT_EQ(dialog.GetFileName(), "take");
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
    CFileDialogEx dialog(FALSE, "csv", nullptr, kSave, kTwoTypes, nullptr);
    dialog.m_ofn.lpstrInitialDir = folder / "";
    EXPECT_EQ(dialog.SetPathTooLongMessage(std::string(65535, 'x').c_str()), TRUE);
    EXPECT_EQ(dialog.SetPathTooLongMessage("too long"), TRUE);
    EXPECT_EQ(dialog.SetPathTooLongMessage(nullptr), FALSE);
    EXPECT_EQ(dialog.SetPathTooLongMessage(""), FALSE);
    EXPECT_EQ(dialog.SetPathTooLongMessage(std::string(65536, 'x').c_str()), FALSE);
    const std::string name(260 - (folder / ".csv").size(), 'n');
    const auto script = [&](QFileDialog& shown) {
        // Another type changes the name.
        auto& field = *shown.findChild<QLineEdit*>("fileNameEdit");
        field.setText("take.log");
        for (const auto& [key, typed] : {std::pair(Qt::Key_Down, "take.log"),
                                         {Qt::Key_Up, "take.csv"},
                                         {Qt::Key_Down, "take.txt"},
                                         {Qt::Key_Up, "take.csv"}}) {
            shown.findChild<QComboBox*>("fileTypeCombo")->setFocus();
            QTest::keyClick(shown.windowHandle(), key);
            EXPECT_EQ(field.text(), typed);
        }
        std::string box;
        QTimer::singleShot(0, [&box] {
            auto& shownBox = dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget());
            box = (shownBox.windowTitle() + ": " + shownBox.text()).toStdString();
            shownBox.close();
        });
        EXPECT_FALSE(EnterName(shown, name + "n"));
        EXPECT_EQ(box, "Save As: too long");
        EXPECT_TRUE(EnterName(shown, name));
    };
    WithFileDialog([&] { EXPECT_EQ(dialog.DoModal(), IDOK); }, script);
    EXPECT_EQ(dialog.GetPathName().size(), 260U);
}

}  // namespace
