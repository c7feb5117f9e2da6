#include <gtest/gtest.h>

#include <QAccessible>
#include <QWidget>

#include "platform/native.h"
#include "platform/qt/widget_access.h"
#include "tests/dialog/editor.h"

// The editor without a mouse: a whole session by keys, and what a screen reader is told.

namespace {

constexpr int kDistanceSlider = 4027;

// Presses Tab until the control has the focus.
void TabTo(Editor& editor, int id) {
    for (int presses = 0; presses < 60; ++presses) {
        editor.driver->Key(Qt::Key_Tab);
        const CWnd* focus = CWnd::GetFocus();
        if (focus != nullptr && focus->GetDlgCtrlID() == id) {
            return;
        }
    }
    FAIL() << "Tab never comes to " << id;
}

void TypeOver(Editor& editor, int id, const std::string& text) {
    TabTo(editor, id);
    editor.driver->Key(Qt::Key_A, Qt::ControlModifier);
    for (const char letter : text) {
        editor.driver->Key(static_cast<Qt::Key>(letter));
    }
}

void Press(Editor& editor, int button) {
    TabTo(editor, button);
    editor.driver->Key(Qt::Key_Space);
}

TEST(Keyboard, AWholeSessionNeedsNoMouse) {
    Editor editor(PatternOf(Song()));
    const int result = editor.Run([&] {
        editor.driver->Key(Qt::Key_Down);
        editor.driver->Key(Qt::Key_Down);
        EXPECT_EQ(editor.Fields(), "1:2:0 ID2 4/4") << "the arrows select rows";

        TypeOver(editor, kEditMeasure, "5");
        TypeOver(editor, kEditBeat, "2");
        TabTo(editor, kComboId);
        editor.driver->Key(Qt::Key_Home);
        Press(editor, kBtnAdd);
        EXPECT_EQ(editor.Rows().back(), "4* - 5 2 0 0 1.50 -90 30");

        TabTo(editor, kDistanceSlider);
        editor.driver->Key(Qt::Key_End);
        editor.driver->Key(Qt::Key_Left);
        Press(editor, kBtnUpdate);
        EXPECT_EQ(editor.Rows().back(), "4* - 5 2 0 0 12.70 -90 30");
        TabTo(editor, kDistanceSlider);
        editor.driver->Key(Qt::Key_Home);
        editor.driver->Key(Qt::Key_PageUp);
        editor.driver->Key(Qt::Key_Right);
        Press(editor, kBtnUpdate);
        EXPECT_EQ(editor.Rows().back(), "4* - 5 2 0 0 2.60 -90 30");

        TabTo(editor, kListEvents);
        const Lines before = editor.Rows();
        editor.driver->Key(Qt::Key_Delete);
        EXPECT_EQ(editor.Rows().size(), before.size() - 1);
        editor.driver->Key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(editor.Rows(), before);

        Press(editor, kChkIdAll);
        Press(editor, kChkId2);
        EXPECT_EQ(editor.Rows().size(), before.size() - 2) << "two events of ID 2 leave the view";
        editor.driver->Key(Qt::Key_Return);
    });
    EXPECT_EQ(result, IDOK);
}

// Access keys commit what is being typed, and a box's label ticks its box.
TEST(Keyboard, AccessKeysReachWhatTheirCaptionsName) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        const auto alt = [&](char letter) {
            editor.driver->Key(static_cast<Qt::Key>(letter), Qt::AltModifier);
        };
        const std::pair<char, int> reached[] = {
            {'E', kEditName},  {'B', kEditBeat},    {'K', kEditTick},       {'I', kComboId},
            {'O', kComboZoom}, {'X', kChkXReverse}, {'C', kDistanceSlider}, {'M', kEditMeasure}};
        for (const auto& [letter, control] : reached) {
            alt(letter);
            ASSERT_NE(CWnd::GetFocus(), nullptr) << letter;
            EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), control) << letter;
        }
        EXPECT_TRUE(editor.driver->Checked(kChkXReverse));
        editor.driver->Key(Qt::Key_7);  // The whole box was selected.
        alt('A');
        EXPECT_EQ(editor.Rows().back(), "0* - 7 1 0 0 1.00 0 0");
        alt('D');
        EXPECT_FALSE(editor.driver->Checked(kChkIdAll));
        alt('G');
        EXPECT_EQ(editor.Fields(), "7:1:0 ID0 3/4 timesig");
    });
}

TEST(ScreenReader, EveryControlThatTakesTheFocusHasAName) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        int controls = 0;
        for (QWidget* widget : WidgetOfWindow(editor.dialog.m_hWnd)->findChildren<QWidget*>()) {
            HWND window = WindowOfWidget(widget);
            if (window == nullptr || WidgetOfWindow(window) != widget ||
                (widget->focusPolicy() & Qt::TabFocus) == 0) {
                continue;
            }
            ++controls;
            const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(face, nullptr);
            EXPECT_FALSE(face->text(QAccessible::Name).isEmpty())
                << "control " << native::GetControlId(window);
        }
        EXPECT_GT(controls, 40);
    });
}

TEST(ScreenReader, ThePlanesAreListsOfDotsWithTheCurrentOneMarked) {
    Editor editor(PatternOf({TimeSig(0, 4, 4), Position(0, 0, 500), Position(2, 480, 1000)}));
    editor.Run([&] {
        editor.ClickRow(2);
        QAccessibleInterface* plane =
            QAccessible::queryAccessibleInterface(&editor.driver->Widget(kPlaneAbove));
        ASSERT_NE(plane, nullptr);
        EXPECT_EQ(plane->role(), QAccessible::List);
        EXPECT_EQ(plane->text(QAccessible::Name), "Sources from above");
        ASSERT_EQ(plane->childCount(), 2);
        EXPECT_EQ(plane->child(0)->text(QAccessible::Name),
                  "ID 0, dot 0, X 0.00 metres, Z 0.50 metres");
        EXPECT_EQ(plane->child(1)->text(QAccessible::Name),
                  "ID 2, dot 0, X 0.00 metres, Z 1.00 metres");
        EXPECT_FALSE(plane->child(0)->state().selected);
        EXPECT_TRUE(plane->child(1)->state().selected);

        const QRect dot = plane->child(1)->rect();
        EXPECT_EQ(dot.size(), QSize(7, 7));
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
