#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "patch/patch_dialog.h"
#include "tests/dialog/editor.h"
#include "tests/support/bytes.h"

namespace {

struct NotingDevice : Device {
    bool PrepareOutput(std::uint32_t) override { return true; }
    std::int32_t WriteBlock(const void* data, std::uint32_t length) override {
        blocks.push_back(Hex({static_cast<const char*>(data), length}));
        return -1;  // Nobody looks at it.
    }
    Lines blocks;
};

// An editor whose host gives a device and, if one is wanted, a block.
struct DeviceEditor {
    explicit DeviceEditor(CZurParamBlock* block)
        : dialog(nullptr, &source, block, nullptr, manager, nullptr, 0, 0, 0, true, "", "") {}
    ~DeviceEditor() { ownership.GiveUp(); }
    int Run(const std::function<void(DialogDriver&)>& script) { return RunDialog(dialog, script); }

    CQelCPB_3DPattern source = PatternOf(Song());
    CSingleLock mainLock, stateLock, busy;
    CEvent release, held;
    NotingDevice device;
    CDeviceOwnership ownership{&mainLock, &stateLock, &release, &held, nullptr, nullptr, nullptr};
    CZurSMWMan manager{&ownership, &device, nullptr, &busy};
    COrbixMainDlg dialog;
};

TEST(Send, GivesTheFieldsToTheDeviceAndChangesNothing) {
    DeviceEditor editor(nullptr);
    editor.Run([&](DialogDriver& driver) {
        const auto rows = driver.RowTexts(kListEvents);
        driver.Click(kBtnSend);
        driver.ClickRow(kListEvents, 2);  // ID 2, 1.5 m, -90, 30
        driver.Key(kComboId, Qt::Key_End);
        driver.Click(kRadioTimeSig);
        driver.Click(kBtnSend);
        RECT plane = editor.dialog.GetDlgItem(kPlaneAbove)->GetWindowRect();
        editor.dialog.ScreenToClient(plane);
        const QPoint dot(plane.left + Width(plane) / 2, plane.top + 16);
        driver.MousePress(dot);
        driver.MouseMove(dot + QPoint(0, 20));
        driver.Key(kBtnSend, Qt::Key_Space);  // Not while a dot is held.
        driver.Key(kBtnPatch, Qt::Key_Space);
        driver.Key(Qt::Key_Escape);
        EXPECT_EQ(driver.RowTexts(kListEvents), rows);
        EXPECT_FALSE(driver.Enabled(kBtnOk));
        EXPECT_FALSE(driver.Enabled(kBtnUndo));
    });
    EXPECT_EQ(editor.device.blocks,
              (Lines{"F0 43 79 08 7F 29 00 00 00 07 68 40 40 00 00 00 00 F7",
                     "F0 43 79 08 7F 29 03 00 00 0B 5C 22 4A 00 00 00 00 F7"}));
    EXPECT_FALSE(editor.dialog.GetModified());
}

// The answer that a user gives in the patch dialog: keys, from the identifier on.
struct PatchCase {
    const char* name;
    bool hasBlock;
    std::vector<Qt::Key> keys;
    bool modified;
    const char* bytes;  // Of the host's block afterwards.
};

void PrintTo(const PatchCase& test, std::ostream* out) {
    *out << test.name;
}

class Patch : public testing::TestWithParam<PatchCase> {};

TEST_P(Patch, ResultIsTheHostsWhenAccepted) {
    const PatchCase& test = GetParam();
    const MessageBoxScript noBoxes;
    CZurParamBlock block(2900, "\x01\x02\x03", 3);
    DeviceEditor editor(test.hasBlock ? &block : nullptr);
    editor.Run([&](DialogDriver& driver) {
        const QWidget* frame = QApplication::activeModalWidget();
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            if (QWidget* patch = QApplication::activeModalWidget(); patch != frame) {
                poll.stop();
                for (const Qt::Key key : test.keys) {
                    QTest::keyClick(patch->windowHandle(), key,
                                    key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
                }
            }
        });
        poll.start(1);
        driver.Click(kBtnPatch);
        EXPECT_EQ(driver.Enabled(kBtnOk), test.modified);
    });
    EXPECT_EQ(editor.dialog.GetModified(), test.modified);
    std::string bytes(block.GetLength(), '\0');
    block.GetData(bytes.data(), block.GetLength());
    EXPECT_EQ(std::to_string(block.GetID()) + ": " + Hex(bytes), test.bytes);
}

// Shift+Tab goes from the identifier to Cancel, then to OK.
const std::vector<Qt::Key> kAccept{Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Space};
const std::vector<Qt::Key> kAppendOneAccept{Qt::Key_1, Qt::Key_Return, Qt::Key_Backtab,
                                            Qt::Key_Backtab, Qt::Key_Space};

INSTANTIATE_TEST_SUITE_P(
    Device, Patch,
    testing::Values(PatchCase{"changed", true, kAppendOneAccept, true, "29001: 01 02 03"},
                    PatchCase{"unchanged", true, kAccept, true, "2900: 01 02 03"},
                    PatchCase{"given up", true, {Qt::Key_Escape}, false, "2900: 01 02 03"},
                    PatchCase{"no block, none made", false, kAccept, true, "2900: 01 02 03"},
                    PatchCase{"no block to take the one made", false, kAppendOneAccept, true,
                              "2900: 01 02 03"}),
    [](const auto& info) { return std::to_string(info.index); });

}  // namespace
