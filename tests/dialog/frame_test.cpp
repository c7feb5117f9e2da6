#include <gtest/gtest.h>

#include <QTreeView>

#include "dialog/pattern_name.h"
#include "tests/dialog/editor.h"

namespace {

constexpr QColor kMagenta(255, 0, 255);

TEST(Frame, OnlyOneEditorIsOpenAtATime) {
    Editor second;
    Editor first;
    first.boxes.Expect("Error: Orbix Already Opened", kErrorBox, IDOK);
    first.Run([&] {
        EXPECT_EQ(second.Run([] { ADD_FAILURE() << "a second editor is open"; }), -1);
        EXPECT_EQ(second.dialog.m_hWnd, nullptr);
    });
    EXPECT_EQ(second.Run([&] { second.Click(kBtnCancel); }), IDCANCEL);
}

TEST(Frame, TheCurrentDotStandsOutAndADragIsPaintedWhole) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        DialogDriver& driver = *editor.driver;
        const QPoint middle = driver.PointOf(kPlaneAbove);
        const QPoint dot = middle - QPoint(0, 107);
        const QPoint half = middle + QPoint(40, 0);
        editor.ClickRow(1);
        EXPECT_EQ(driver.Grab().pixelColor(dot), kMagenta);
        driver.MousePress(dot);
        driver.MouseMove(half);
        driver.Key(kChkIndexView, Qt::Key_Space);
        driver.MouseMove(half + QPoint(0, 30));
        driver.MouseMove(half);
        const QImage frame = driver.Grab();
        editor.dialog.Invalidate();
        EXPECT_EQ(driver.Grab(), frame);
        driver.Key(Qt::Key_Escape);
        driver.MouseRelease(half);
        driver.Key(kComboZoom, Qt::Key_Up);
        EXPECT_EQ(driver.Grab().pixelColor(middle - QPoint(0, 107 / 2)), kMagenta)
            << "still current";
    });
}

TEST(Frame, RangeRowsStandOut) {
    Editor editor(PatternOf({TimeSig(0, 4, 4)}), 960, 4800);
    editor.Run([&] {
        auto& view = dynamic_cast<QTreeView&>(editor.driver->Widget(kListEvents));
        const QRect row = view.visualRect(view.model()->index(1, 1));
        const QPoint inside = view.viewport()->mapTo(view.window(), row.topRight() - QPoint(4, -4));
        EXPECT_EQ(editor.driver->Grab().pixelColor(inside), QColor(240, 230, 170));
    });
}

TEST(PatternName, IsCutAtACharacterAndKeepsNoBrokenBytes) {
    EXPECT_EQ(DisplayName("12345678901234567890"), "1234567890123456");
    EXPECT_EQ(DisplayName("123456789012345\xC3\xA9"), "123456789012345");
    EXPECT_EQ(DisplayName("\x83\x5C\xE2\x82"), "?\\??");
    EXPECT_EQ(DisplayName("\xE2\x82\xAC\xF0\x9D\x84\x9E\xED\xA0\x80\xC0\x80"),
              "\xE2\x82\xAC\xF0\x9D\x84\x9E?????");
}

}  // namespace
