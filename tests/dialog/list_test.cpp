#include <gtest/gtest.h>

#include <QTreeView>

#include "tests/dialog/editor.h"

namespace {

// Image and ID (column 5) of each row.
Lines ImagesAndIds(Editor& editor) {
    const auto& list = *editor.dialog.GetDlgItemAs<CListCtrl>(kListEvents);
    Lines rows;
    for (int row = 0; row < list.GetItemCount(); ++row) {
        rows.push_back(std::to_string(list.GetItemImage(row)) + " " + list.GetItemText(row, 5));
    }
    return rows;
}

TEST(List, ShowsAllColumnsAndSpeaksInSentences) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        auto& view = dynamic_cast<QTreeView&>(editor.driver->Widget(kListEvents));
        ASSERT_EQ(view.model()->columnCount(), 9);
        EXPECT_GE(view.viewport()->width() - 16, view.columnViewportPosition(8) + 45);
        const auto spoken = [&](int row) {
            return view.model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
        };
        EXPECT_EQ(spoken(2),
                  "measure 1, beat 2, tick 0, ID 2, 1.50 metres, azimuth -90, elevation 30");
        EXPECT_EQ(spoken(3), "measure 2, beat 1, tick 0, time signature 3 / 4");
    });
}

TEST(List, TheFilterTakesIdsOutOfViewAndNeverTimeSignatures) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        const Lines all = ImagesAndIds(editor);
        EXPECT_FALSE(editor.driver->Enabled(kChkId2));
        editor.ClickRow(2);
        editor.Click(kChkIdAll);
        EXPECT_FALSE(editor.driver->Checked(kChkIdAll));
        EXPECT_EQ(ImagesAndIds(editor), (Lines{"3 -", "2 0", "4 2", "3 -", "2 1", "2 2"}));
        editor.Click(kChkId2);  // The current event goes; the first in view takes its place.
        EXPECT_EQ(ImagesAndIds(editor), (Lines{"1 -", "2 0", "3 -", "2 1"}));
        EXPECT_EQ(editor.Fields(), "1:1:0 ID2 4/4 timesig");
        editor.Click(kChkId0);
        editor.Click(kChkId1);
        editor.Click(kChkId3);
        EXPECT_EQ(ImagesAndIds(editor), (Lines{"1 -", "3 -"}));
        editor.Click(kChkIdAll);
        EXPECT_EQ(ImagesAndIds(editor), all);
        EXPECT_FALSE(editor.driver->Enabled(kChkId0));
        EXPECT_FALSE(editor.driver->Checked(kChkId0));
        EXPECT_FALSE(editor.dialog.GetModified());
    });
}

TEST(List, SeveralSelectedRowsLeaveTheCurrentEvent) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        editor.ClickRow(1);
        const std::string fields = editor.Fields();
        editor.ClickRow(5, Qt::ShiftModifier);
        EXPECT_EQ(editor.driver->SelectedRows(kListEvents), (std::vector<int>{1, 2, 3, 4, 5}));
        EXPECT_EQ(editor.Fields(), fields);
        EXPECT_EQ(ImagesAndIds(editor), (Lines{"3 -", "0 0", "4 2", "3 -", "2 1", "2 2"}));
        editor.ClickRow(4);
        EXPECT_EQ(editor.Fields(), "2:1:0 ID1 3/4");
        EXPECT_EQ(ImagesAndIds(editor), (Lines{"3 -", "2 0", "4 2", "3 -", "0 1", "2 2"}));

        editor.ClickRow(5, Qt::ControlModifier);  // Not chosen when the current mark leaves it.
        editor.dialog.SetCurrentPointFromCallback(0, 0);
        EXPECT_EQ(editor.driver->SelectedRows(kListEvents), (std::vector<int>{1, 5}));
        EXPECT_EQ(ImagesAndIds(editor), (Lines{"3 -", "0 0", "4 2", "3 -", "2 1", "2 2"}));
    });
}

TEST(List, ShowAndHideTouchSelectedPositionsOnly) {
    Editor editor(PatternOf(Song()));
    UINT answer = 2;
    std::vector<std::string> offered;
    editor.Run([&] {
        Hooks().popupMenu = [&](HWND, const std::vector<MenuItem>& items) {
            offered.clear();
            for (const MenuItem& item : items) {
                offered.push_back(std::to_string(item.command) + " " + item.text);
            }
            return answer;
        };
        const auto rightClick = [&](int row) {
            editor.driver->ClickRow(kListEvents, row, Qt::NoModifier, Qt::RightButton);
        };
        editor.ClickRow(1);
        editor.ClickRow(4, Qt::ShiftModifier);
        rightClick(3);
        EXPECT_EQ(offered, (std::vector<std::string>{"1 Show Graph", "2 Hide Graph"}));
        EXPECT_EQ(ImagesAndIds(editor), (Lines{"3 -", "1 0", "4 2", "3 -", "3 1", "2 2"}));
        EXPECT_EQ(editor.driver->SelectedRows(kListEvents), (std::vector<int>{1, 2, 3, 4}));
        answer = 0;  // Closed without a choice.
        rightClick(3);
        answer = 1;
        rightClick(4);
        EXPECT_EQ(ImagesAndIds(editor), (Lines{"3 -", "0 0", "4 2", "3 -", "2 1", "2 2"}));

        editor.driver->DoubleClickRow(kListEvents, 5);
        EXPECT_EQ(ImagesAndIds(editor)[5], "1 2");
        editor.driver->DoubleClickRow(kListEvents, 5);
        EXPECT_EQ(ImagesAndIds(editor)[5], "0 2");
        editor.driver->DoubleClickRow(kListEvents, 5);
        editor.driver->DoubleClickRow(kListEvents, 3);
        EXPECT_EQ(ImagesAndIds(editor), (Lines{"3 -", "2 0", "4 2", "1 -", "2 1", "3 2"}));
        offered.clear();
        rightClick(0);
        EXPECT_TRUE(offered.empty());
        EXPECT_EQ(editor.Buttons(), "Update Delete ");

        editor.ClickRow(5);  // An Update from the fields shows the event again.
        editor.Click(kBtnUpdate);
        EXPECT_EQ(ImagesAndIds(editor)[5], "0 2");
    });
}

TEST(List, RowsBeyondTheZoomComeBackWhenItGrows) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        editor.ClickRow(5);
        editor.driver->Key(kComboZoom, Qt::Key_Up);
        EXPECT_EQ(ImagesAndIds(editor), (Lines{"3 -", "2 0", "2 2", "3 -", "2 1", "0 2"}));
        RECT plane = editor.dialog.GetDlgItem(kPlaneAbove)->GetWindowRect();
        editor.dialog.ScreenToClient(plane);
        const QPoint middle(plane.left + Width(plane) / 2, plane.top + Height(plane) / 2);
        const QPoint dot = middle - QPoint(0, (Height(plane) / 2 - 16) / 2);
        EXPECT_EQ(editor.driver->Grab().pixelColor(dot), QColor(255, 0, 255)) << "still current";
        editor.ChooseRow(kComboZoom, 7);
        EXPECT_EQ(ImagesAndIds(editor), (Lines{"3 -", "4 0", "4 2", "3 -", "4 1", "4 2"}));
        EXPECT_EQ(editor.driver->SelectedRows(kListEvents), std::vector<int>{5});
    });
}

TEST(List, RangeRowsStandOutInAnEmptyTableToo) {
    Editor editor(PatternOf({TimeSig(0, 4, 4)}), 960, 4800);
    editor.Run([&] {
        EXPECT_EQ(editor.Rows(), (Lines{"5  1 3 0    ", "6  3 3 0    "}));
        EXPECT_EQ(editor.Buttons(), "");
        EXPECT_EQ(editor.Fields(), "1:1:0 ID0 4/4");
        auto& view = dynamic_cast<QTreeView&>(editor.driver->Widget(kListEvents));
        EXPECT_EQ(view.model()->index(1, 0).data(Qt::AccessibleTextRole).toString(),
                  "range end, measure 3, beat 3, tick 0");
        const QImage picture = editor.driver->Grab();
        const QRect row = view.visualRect(view.model()->index(1, 1));
        const QPoint inside = view.viewport()->mapTo(view.window(), row.topRight() - QPoint(4, -4));
        EXPECT_EQ(picture.pixelColor(inside), QColor(240, 230, 170));
        editor.FillTime("1", "3", "0");
        editor.Click(kBtnAdd);
        EXPECT_EQ(editor.Rows(), (Lines{"5  1 3 0    ", "0* - 1 3 0 0 1.00 0 0", "6  3 3 0    "}));
    });
}

}  // namespace
