#include <gtest/gtest.h>

#include <QAccessible>
#include <QTreeView>

#include "tests/dialog/editor.h"

// What a screen reader is told.

namespace {

TEST(ScreenReader, RowsAreSentencesOfAllTheirColumns) {
    const auto spoken = [](Editor& editor, int row) {
        return dynamic_cast<QTreeView&>(editor.driver->Widget(kListEvents))
            .model()
            ->index(row, 0)
            .data(Qt::AccessibleTextRole)
            .toString();
    };
    Editor free(PatternOf(Song()));
    free.Run([&] {
        auto& view = dynamic_cast<QTreeView&>(free.driver->Widget(kListEvents));
        EXPECT_GE(view.viewport()->width() - 16,
                  view.columnViewportPosition(8) + view.columnWidth(8));
        EXPECT_EQ(spoken(free, 2),
                  "measure 1, beat 2, tick 0, ID 2, 1.50 metres, azimuth -90, elevation 30");
        EXPECT_EQ(spoken(free, 3), "measure 2, beat 1, tick 0, time signature 3 / 4");
    });
    Editor range(PatternOf({TimeSig(0, 4, 4)}), 960, 4800);
    range.Run([&] { EXPECT_EQ(spoken(range, 1), "range end, measure 3, beat 3, tick 0"); });
}

TEST(ScreenReader, ComboBoxesHaveANameAndAValue) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        editor.ChooseRow(kComboId, 2);
        std::string told;
        for (const int id : {kComboId, kComboZoom}) {
            auto& combo = editor.driver->Widget(id);
            auto* spoken = QAccessible::queryAccessibleInterface(&combo);
            told += (spoken->text(QAccessible::Name) + "=" + spoken->text(QAccessible::Value) + ";")
                        .toStdString();
            spoken->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
            EXPECT_TRUE(combo.hasFocus() && !spoken->state().expanded);
            spoken->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
            EXPECT_TRUE(spoken->state().expanded);
            spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
            EXPECT_FALSE(spoken->state().expanded);
        }
        EXPECT_EQ(told, "3D ID=2;Zoom in metres=1.00;");
    });
}

TEST(ScreenReader, ThePlanesAreListsOfDots) {
    Editor editor(PatternOf({TimeSig(0, 4, 4), Position(0, 0, 500), Position(2, 480, 1000)}));
    editor.Run([&] {
        QAccessibleInterface* plane =
            QAccessible::queryAccessibleInterface(&editor.driver->Widget(kPlaneAbove));
        ASSERT_NE(plane, nullptr);
        EXPECT_EQ(plane->role(), QAccessible::List);
        ASSERT_EQ(plane->childCount(), 2);
        const QRect dot = plane->child(1)->rect();
        EXPECT_TRUE(plane->rect().contains(dot));
        EXPECT_EQ(plane->childAt(dot.center().x(), dot.center().y()), plane->child(1));
        EXPECT_EQ(plane->indexOfChild(plane->child(1)), 1);

        editor.Click(kChkIdAll);
        editor.Click(kChkId2);
        QAccessibleInterface* gone = plane->child(1);
        EXPECT_EQ(plane->childCount(), 1);
        EXPECT_FALSE(gone->isValid());
    });
}

}  // namespace
