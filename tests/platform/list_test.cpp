#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QTreeView>

#include "tests/platform/probe_dialog.h"
#include "tests/support/ui_driver.h"

namespace {

using probe::Log;
using probe::ProbeDialog;

constexpr UINT kBoth = LVIS_FOCUSED | LVIS_SELECTED;

class List : public testing::Test {
protected:
    void Run(const std::function<void(DialogDriver&, CListCtrl&)>& script) {
        RunDialog(dialog_, [&](DialogDriver& user) {
            auto& list = dialog_.Item<CListCtrl>(probe::kList);
            images_.Create(16, 16);
            images_.Add(1);
            list.SetImageList(&images_);
            list.SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT | LVS_EX_HEADERDRAGDROP);
            list.InsertColumn(0, "", 30);
            list.InsertColumn(1, "Meas.", 60);
            Fill(list, 5);
            list.SetFocus();
            list.SetItemState(-1, 0, kBoth);
            dialog_.TakeLog();
            script(user, list);
        });
    }

    static void Fill(CListCtrl& list, int rows) {
        list.DeleteAllItems();
        for (int row = 0; row < rows; ++row) {
            list.InsertItem(row, 0);
            list.SetItemText(row, 1, std::to_string(row * 10));
        }
    }

    probe::Resources resources_;
    CImageList images_;
    ProbeDialog dialog_;
};

TEST_F(List, KeepsRowsTextsAndImages) {
    Run([&](DialogDriver& user, CListCtrl& list) {
        list.DeleteItem(1);
        EXPECT_EQ(list.InsertItem(99, 0), 4);
        list.SetItemText(4, 1, "last");
        list.SetItemText(4, 9, "no such column");
        list.SetItemImage(0, -1);
        EXPECT_EQ(list.GetItemCount(), 5);
        EXPECT_EQ(user.RowTexts(probe::kList),
                  (std::vector<std::vector<std::string>>{
                      {"", "0"}, {"", "20"}, {"", "30"}, {"", "40"}, {"", "last"}}));
        EXPECT_EQ(list.GetItemImage(0), -1);
        EXPECT_EQ(list.GetItemText(7, 1), "");
        EXPECT_EQ(dialog_.TakeLog(), Log{});
    });
}

TEST_F(List, AProgramsChangeOfStateIsNoticedAtOnceAndOnlyWhenReal) {
    Run([&](DialogDriver& user, CListCtrl& list) {
        list.SetItemState(1, kBoth, kBoth);
        EXPECT_EQ(dialog_.TakeLog(), Log{"20 notify -101 row 1 0->3"});
        list.SetItemState(1, kBoth, kBoth);
        EXPECT_EQ(dialog_.TakeLog(), Log{});
        list.SetItemState(3, kBoth, kBoth);
        EXPECT_EQ(dialog_.TakeLog(),
                  (Log{"20 notify -101 row 1 3->2", "20 notify -101 row 3 0->3"}));
        EXPECT_EQ(user.SelectedRows(probe::kList), (std::vector<int>{1, 3}));
        user.Settle();  // Showing it is no further change.
        EXPECT_EQ(dialog_.TakeLog(), Log{});
        list.SetItemState(1, 0, LVIS_SELECTED);
        EXPECT_EQ(dialog_.TakeLog(), Log{"20 notify -101 row 1 2->0"});
        // New rows begin without state.
        Fill(list, 3);
        EXPECT_EQ(user.SelectedRows(probe::kList), std::vector<int>{});
        EXPECT_EQ(dialog_.TakeLog(), Log{});
    });
}

TEST_F(List, AUsersSelectionIsNoticedLosersFirst) {
    Run([&](DialogDriver& user, CListCtrl& list) {
        list.SetItemState(3, kBoth, kBoth);
        dialog_.TakeLog();
        user.ClickRow(probe::kList, 1);
        EXPECT_EQ(dialog_.TakeLog(),
                  (Log{"20 notify -101 row 3 3->0", "20 notify -101 row 1 0->3"}));
        user.ClickRow(probe::kList, 3, Qt::ShiftModifier);
        EXPECT_EQ(user.SelectedRows(probe::kList), (std::vector<int>{1, 2, 3}));
        user.ClickRow(probe::kList, 2, Qt::ControlModifier);
        EXPECT_EQ(user.SelectedRows(probe::kList), (std::vector<int>{1, 3}));
        dialog_.TakeLog();
        user.Key(Qt::Key_Up);
        EXPECT_EQ(user.SelectedRows(probe::kList), (std::vector<int>{1}));
        EXPECT_EQ(dialog_.TakeLog(), (Log{"20 notify -101 row 2 1->0", "20 notify -101 row 3 2->0",
                                          "20 notify -101 row 1 2->3"}));
    });
}

TEST_F(List, AHandlerMayRefillTheListOrChangeTheSelection) {
    Run([&](DialogDriver& user, CListCtrl& list) {
        dialog_.onNotify = [&](NMHDR& header) -> LRESULT {
            if (header.code == LVN_ITEMCHANGED) {
                dialog_.onNotify = nullptr;
                Fill(list, 2);
                list.SetItemState(0, kBoth, kBoth);
            }
            return 0;
        };
        user.ClickRow(probe::kList, 4);
        EXPECT_EQ(user.SelectedRows(probe::kList), std::vector<int>{0});
        user.Settle();
        EXPECT_EQ(user.SelectedRows(probe::kList), std::vector<int>{0});
        // The keyboard goes on from the row that the program chose.
        user.Key(probe::kList, Qt::Key_Down);
        EXPECT_EQ(user.SelectedRows(probe::kList), std::vector<int>{1});
    });
}

TEST_F(List, ARightClickIsNoticedAfterItsSelectionADoubleClickWithItsRow) {
    Run([&](DialogDriver& user, CListCtrl& list) {
        user.ClickRow(probe::kList, 2, Qt::NoModifier, Qt::RightButton);
        EXPECT_EQ(dialog_.TakeLog(), (Log{"20 notify -101 row 2 0->3", "20 notify -5 row 2"}));
        list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
        dialog_.TakeLog();
        user.ClickRow(probe::kList, 1, Qt::NoModifier, Qt::RightButton);  // Keeps both.
        EXPECT_EQ(user.SelectedRows(probe::kList), (std::vector<int>{1, 2}));
        dialog_.TakeLog();
        user.DoubleClickRow(probe::kList, 4);
        EXPECT_EQ(dialog_.TakeLog().back(), "20 notify -3 row 4");
    });
}

TEST_F(List, CustomDrawIsAskedForEachCellAndColoursIt) {
    Run([&](DialogDriver& user, CListCtrl&) {
        std::vector<std::pair<int, int>> cells;
        dialog_.onNotify = [&](NMHDR& header) -> LRESULT {
            auto& draw = reinterpret_cast<NMLVCUSTOMDRAW&>(header);
            if (header.code != NM_CUSTOMDRAW) {
                return 0;
            }
            if (draw.dwDrawStage == CDDS_PREPAINT || draw.dwDrawStage == CDDS_ITEMPREPAINT) {
                return CDRF_NOTIFYITEMDRAW;
            }
            EXPECT_EQ(draw.dwDrawStage, CDDS_ITEMPREPAINT | CDDS_SUBITEM);
            cells.emplace_back(draw.iItem, draw.iSubItem);
            draw.clrTextBk = 0xAAE6F0;
            return draw.iItem == 4 ? CDRF_NEWFONT : CDRF_DODEFAULT;
        };
        auto& view = dynamic_cast<QTreeView&>(user.Widget(probe::kList));
        view.viewport()->update();
        const QImage image = user.Grab();
        const auto pixelOf = [&](int row) {
            const QRect cell = view.visualRect(view.model()->index(row, 1));
            return image.pixelColor(view.viewport()->mapTo(view.window(), cell.topRight()) -
                                    QPoint(4, -2));
        };
        EXPECT_EQ(pixelOf(4), QColor(240, 230, 170));
        EXPECT_EQ(pixelOf(3), view.palette().color(QPalette::Base));
        ASSERT_GE(cells.size(), 10U);
        EXPECT_EQ(cells[0], std::make_pair(0, 0));
        EXPECT_EQ(cells[1], std::make_pair(0, 1));
        EXPECT_EQ(cells[9], std::make_pair(4, 1));
        // The image stands in the first column.
        const QRect first = view.visualRect(view.model()->index(2, 0));
        EXPECT_EQ(
            image.pixelColor(view.viewport()->mapTo(view.window(), first.center()) - QPoint(4, 0)),
            QColor(Qt::red));
    });
}

TEST_F(List, ShowsTheRowAskedForAndReadsItAsASentence) {
    Run([&](DialogDriver& user, CListCtrl& list) {
        Fill(list, 1280);
        list.SetItemDescription(1200, "measure 3, beat 1");
        list.EnsureVisible(1200);
        auto& view = dynamic_cast<QTreeView&>(user.Widget(probe::kList));
        user.Settle();
        const QModelIndex cell = view.model()->index(1200, 1);
        EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(cell)));
        EXPECT_EQ(view.visualRect(cell).height(), 18);
        EXPECT_EQ(cell.data(Qt::AccessibleTextRole).toString(), "measure 3, beat 1");
        EXPECT_TRUE(view.header()->sectionsMovable());
        EXPECT_EQ(view.columnWidth(1), 60);
    });
}

}  // namespace
