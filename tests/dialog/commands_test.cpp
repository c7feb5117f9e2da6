#include <gtest/gtest.h>

#include <QSlider>

#include "platform/hooks.h"
#include "platform/qt/widget_access.h"
#include "tests/dialog/editor.h"

namespace {

TEST(Commands, ThePagesGiveAndTakeThePosition) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        const auto sliders =
            WidgetOfWindow(editor.dialog.m_hWnd)->findChildren<QSlider*>();  // Row by row.
        ASSERT_EQ(sliders.size(), 6);
        sliders[1]->setFocus();
        editor.driver->Key(Qt::Key_Left);
        EXPECT_EQ(sliders[3]->value(), 255 - 1);
        editor.Click(kBtnAdd);
        EXPECT_EQ(editor.Rows()[2], "0* - 1 1 0 0 1.00 -3 0");
        editor.ClickRow(3);  // 1.5 m at -90, 30: X -1.3, Y 0.75.
        const int expected[] = {30, 30, 40, 255 - 26, 255 + 15, 255};
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(sliders[i]->value(), expected[i]) << i;
        }
        editor.driver->ClickTab(kTabPages, 1);
        sliders[5]->setFocus();
        editor.driver->Key(Qt::Key_Home);
        EXPECT_EQ(sliders[0]->value(), 30);
        editor.driver->Key(Qt::Key_Tab);
        editor.driver->Key(Qt::Key_Tab);
        editor.driver->Key(Qt::Key_Space);  // "Set", behind the ">" button.
        EXPECT_EQ(sliders[0]->value(), 255);
        editor.Click(kBtnUpdate);
        EXPECT_EQ(editor.Rows()[3], "4* - 1 2 0 2 12.75 -174 3");
    });
}

TEST(Commands, The257thEventOfAnIdIsRefused) {
    std::vector<_tagEvent3D> events{TimeSig(0, 4, 4)};
    for (std::uint32_t i = 0; i < 256; ++i) {
        events.push_back(Position(1, i));
    }
    Editor editor(PatternOf(events));
    const char message[] = "Error: Over Event ID=(1) Count Limit";
    editor.boxes.Expect(message, kErrorBox, IDOK).Expect(message, kErrorBox, IDOK);
    editor.Run([&] {
        editor.ClickRow(9);
        const Lines before = editor.State();
        editor.Click(kBtnAdd);
        editor.Click(kBtnUpdate);  // Even in place: the fields carry no uid.
        EXPECT_EQ(editor.State(), before);
        editor.dialog.SetCurrentMoveFromCallback(1, 8, Position(0, 0, 500));  // A drag's does.
        EXPECT_EQ(editor.Rows()[9], "0* - 1 1 8 1 0.50 0 0");
    });
}

TEST(Commands, AHostMaySetAnotherTableBehindAnOpenMenu) {
    Editor editor(PatternOf(Song()));
    CQelCPB_3DPattern other = PatternOf({TimeSig(0, 3, 4), Position(1, 240)});
    Hooks().popupMenu = [&](HWND, const std::vector<MenuItem>& items) {
        editor.dialog.Reset3DManagerByTool3DPattern(&other);
        return items.at(1).command;
    };
    editor.Run([&] {
        editor.ClickRow(1, Qt::NoModifier, Qt::RightButton);
        EXPECT_EQ(editor.Rows(), (Lines{"1* 3 / 4 1 1 0 - - - -", "2 - 1 1 240 1 1.00 0 0"}));
    });
}

}  // namespace
