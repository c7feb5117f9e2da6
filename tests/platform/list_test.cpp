#include <QApplication>
#include <QHeaderView>
#include <QTreeView>

#include "tests/platform/probe_dialog.h"

namespace {

using namespace probe;

constexpr UINT kBoth = LVIS_FOCUSED | LVIS_SELECTED;

using Numbers = std::vector<int>;

class List : public probe::Test {
protected:
    /// With five rows, the first column an image, the second ten times the row.
    void Run(const std::function<void(DialogDriver&, CListCtrl&)>& script) {
        RunDialog(dialog_, [&](DialogDriver& user) {
            auto& list = dialog_.Item<CListCtrl>(kList);
            images_.Create(16, 16);
            images_.Add(1);
            list.SetImageList(&images_);
            list.SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT | LVS_EX_HEADERDRAGDROP);
            list.InsertColumn(0, "", 30);
            list.InsertColumn(1, "Meas.", 60);
            Fill(list, 5);
            list.SetFocus();
            list.SetItemState(-1, 0, kBoth);
            TakeLog();
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

    CImageList images_;
};

TEST_F(List, KeepsRowsTextsAndImages) {
    Run([&](DialogDriver& user, CListCtrl& list) {
        list.DeleteItem(1);
        EXPECT_EQ(list.InsertItem(99, 0), 4);
        list.SetItemText(4, 9, "no such column");
        EXPECT_EQ(user.RowTexts(kList),
                  (std::vector<std::vector<std::string>>{
                      {"", "0"}, {"", "20"}, {"", "30"}, {"", "40"}, {"", ""}}));
        EXPECT_EQ(list.GetItemText(7, 1), "");
        EXPECT_EQ(TakeLog(), "");
        const auto& view = dynamic_cast<QTreeView&>(user.Widget(kList));
        const auto cell = [&](int row) { return view.visualRect(view.model()->index(row, 0)); };
        const QPoint middle = view.viewport()->mapTo(view.window(), cell(2).center());
        EXPECT_EQ(user.Grab().pixelColor(middle), QColor(Qt::red)) << "the image";
        Fill(list, 1280);
        list.EnsureVisible(1200);
        user.Settle();
        EXPECT_TRUE(view.viewport()->rect().contains(cell(1200)));
        EXPECT_EQ(cell(1200).size(), QSize(30, 18));
        EXPECT_TRUE(view.header()->sectionsMovable());
    });
}

TEST_F(List, AProgramsChangeOfStateIsNoticedAtOnceAndOnlyWhenReal) {
    Run([&](DialogDriver& user, CListCtrl& list) {
        list.SetItemState(1, kBoth, kBoth);
        list.SetItemState(1, kBoth, kBoth);
        EXPECT_EQ(TakeLog(), "20 notify -101 row 1 0->3");
        list.SetItemState(3, kBoth, kBoth);
        EXPECT_EQ(TakeLog(), "20 notify -101 row 1 3->2; 20 notify -101 row 3 0->3");
        user.Settle();  // Showing it is no further change.
        EXPECT_EQ(user.SelectedRows(kList), (Numbers{1, 3}));
        EXPECT_EQ(TakeLog(), "");
        list.SetItemState(1, 0, LVIS_SELECTED);
        Fill(list, 3);  // New rows begin without state.
        EXPECT_EQ(user.SelectedRows(kList), Numbers{});
        EXPECT_EQ(TakeLog(), "20 notify -101 row 1 2->0");
    });
}

TEST_F(List, AUsersSelectionIsNoticedLosersFirst) {
    Run([&](DialogDriver& user, CListCtrl& list) {
        list.SetItemState(3, kBoth, kBoth);
        TakeLog();
        user.ClickRow(kList, 1);
        EXPECT_EQ(TakeLog(), "20 notify -101 row 3 3->0; 20 notify -101 row 1 0->3");
        user.ClickRow(kList, 3, Qt::ShiftModifier);
        EXPECT_EQ(user.SelectedRows(kList), (Numbers{1, 2, 3}));
        user.ClickRow(kList, 2, Qt::ControlModifier);
        EXPECT_EQ(user.SelectedRows(kList), (Numbers{1, 3}));
        TakeLog();
        dialog_.onMessage = [&](UINT, WPARAM, LPARAM) {
            EXPECT_EQ(user.SelectedRows(kList), Numbers{1}) << "all rows are what they become";
            return false;
        };
        user.Key(Qt::Key_Up);
        EXPECT_EQ(TakeLog(),
                  "20 notify -101 row 2 1->0; 20 notify -101 row 3 2->0; "
                  "20 notify -101 row 1 2->3");
        dialog_.onMessage = nullptr;
        // A right click is noticed after its selection.
        user.ClickRow(kList, 2, Qt::NoModifier, Qt::RightButton);
        EXPECT_EQ(TakeLog(),
                  "20 notify -101 row 1 3->0; 20 notify -101 row 2 0->3; "
                  "20 notify -5 row 2");
    });
}

TEST_F(List, AHandlerMayRefillTheListOrChangeTheSelection) {
    Run([&](DialogDriver& user, CListCtrl& list) {
        bool refilled = false;
        dialog_.onMessage = [&](UINT message, WPARAM, LPARAM lParam) {
            if (message == WM_NOTIFY && !refilled &&
                reinterpret_cast<NMHDR*>(lParam)->code == LVN_ITEMCHANGED) {
                refilled = true;
                Fill(list, 2);
                list.SetItemState(0, kBoth, kBoth);
            }
            return false;
        };
        user.ClickRow(kList, 4);
        EXPECT_EQ(user.SelectedRows(kList), Numbers{0});
        user.Settle();
        EXPECT_EQ(user.SelectedRows(kList), Numbers{0});
        // The keyboard goes on from the row that the program chose.
        user.Key(kList, Qt::Key_Down);
        EXPECT_EQ(user.SelectedRows(kList), Numbers{1});
    });
}

}  // namespace
