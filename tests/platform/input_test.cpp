#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>

#include "tests/platform/probe_dialog.h"
#include "tests/support/ui_driver.h"

namespace {

using probe::Log;
using probe::ProbeDialog;
using testing::IsSupersetOf;

class Input : public testing::Test {
protected:
    probe::Resources resources_;
    ProbeDialog dialog_;
};

TEST_F(Input, OneKeyIsKeyDownThenCharacterThenKeyUp) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        dialog_.number.SetFocus();
        dialog_.TakeLog();
        user.Key(Qt::Key_7);
        EXPECT_EQ(dialog_.TakeLog(),
                  (Log{"10 keydown 55", "10 char 55", "10 command 768", "10 keyup 55"}));
        user.Key(Qt::Key_Backspace);
        EXPECT_EQ(dialog_.TakeLog(),
                  (Log{"10 keydown 8", "10 char 8", "10 command 768", "10 keyup 8"}));
        // Keys without a character are done at key down; a full stop is not the Delete key.
        user.Key(Qt::Key_Left);
        EXPECT_EQ(dialog_.TakeLog(), (Log{"10 keydown 37", "10 keyup 37"}));
        user.Key(Qt::Key_Period);
        EXPECT_EQ(dialog_.TakeLog(),
                  (Log{"10 keydown 0", "10 char 46", "10 command 768", "10 keyup 0"}));
        EXPECT_EQ(user.Text(probe::kNumber), ".");
    });
}

TEST_F(Input, AHandlerCanSwallowTheKeyOrTheCharacter) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        dialog_.number.swallowed = WM_CHAR;
        user.Type(probe::kNumber, "5");
        user.Key(Qt::Key_5);
        EXPECT_EQ(user.Text(probe::kNumber), "");
        // Swallowing the key leaves the character, as they are two messages.
        dialog_.number.swallowed = WM_KEYDOWN;
        user.Key(Qt::Key_6);
        EXPECT_EQ(user.Text(probe::kNumber), "6");
        user.Key(Qt::Key_Left);
        int start = -1;
        int end = -1;
        dialog_.number.GetSel(start, end);
        EXPECT_EQ(start, 1);
        // What PreTranslateMessage takes reaches no control at all.
        dialog_.number.swallowed = 0;
        dialog_.takenKeys = {'7'};
        dialog_.TakeLog();
        user.Key(Qt::Key_7);
        EXPECT_EQ(dialog_.TakeLog(), (Log{"10 keyup 55"}));
    });
}

TEST_F(Input, ClipboardKeysOfAnEditArriveAsMessages) {
    HooksScope hooks;
    Hooks().clipboardText = [] { return std::optional<CString>("ab\ncd"); };
    RunDialog(dialog_, [&](DialogDriver& user) {
        user.Key(probe::kName, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(user.Text(probe::kName), "ab");
        EXPECT_THAT(dialog_.TakeLog(), IsSupersetOf({"12 keydown 86", "12 paste"}));
        dialog_.name.swallowed = WM_PASTE;
        user.Key(Qt::Key_V, Qt::ControlModifier);
        user.Key(Qt::Key_Insert, Qt::ShiftModifier);
        EXPECT_EQ(user.Text(probe::kName), "ab");
        dialog_.name.swallowed = 0;
        user.Key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(user.Text(probe::kName), "");
    });
}

TEST_F(Input, FinishedTextOfAnInputMethodIsTyped) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        user.Widget(probe::kName).setFocus();
        dialog_.TakeLog();
        QInputMethodEvent event;
        event.setCommitString("1é");
        QApplication::sendEvent(&user.Widget(probe::kName), &event);
        EXPECT_EQ(user.Text(probe::kName), "1é");
        EXPECT_THAT(dialog_.TakeLog(), IsSupersetOf({"12 char 49", "12 char 233"}));
    });
}

TEST_F(Input, FocusLeavesTheOldControlBeforeTheNewOnesHandlersRun) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        user.Widget(probe::kNumber).setFocus();
        dialog_.TakeLog();
        user.Click(probe::kName);
        EXPECT_EQ(dialog_.TakeLog(), (Log{"10 blur", "12 focus"}));
        user.Click(probe::kButton);
        EXPECT_EQ(dialog_.TakeLog(), (Log{"12 blur", "90 command 0"}));
        // An access key clicks without taking the focus away first.
        user.Widget(probe::kNumber).setFocus();
        dialog_.TakeLog();
        user.Key(Qt::Key_N, Qt::AltModifier);
        EXPECT_EQ(CWnd::GetFocus(), &dialog_.number);
    });
}

TEST_F(Input, TabGoesRoundInTheTemplatesOrderWithThePageBehindItsTabs) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        std::vector<int> order;
        for (int step = 0; step < 18; ++step) {
            order.push_back(CWnd::GetFocus() == nullptr ? 0 : CWnd::GetFocus()->GetDlgCtrlID());
            user.Key(Qt::Key_Tab);
        }
        const std::vector<int> once{10, 12, 20, 30, 60, 61, 62, 63, 65, 70, 40, 50, 51, 90, 1, 2};
        std::vector<int> expected = once;
        expected.insert(expected.end(), {10, 12});
        EXPECT_EQ(order, expected);
        user.Key(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), 12);
        // A group's stop is its checked button; what is hidden or dim is stepped over.
        dialog_.Item<CButton>(probe::kRadioB).SetCheck(1);
        dialog_.GetDlgItem(probe::kStayButton)->EnableWindow(false);
        dialog_.GetDlgItem(probe::kAutoBox)->SetFocus();
        user.Key(Qt::Key_Tab);
        EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), probe::kRadioB);
        // A control that goes dim hands the focus on.
        dialog_.GetDlgItem(probe::kRadioB)->EnableWindow(false);
        EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), probe::kRadioC);
    });
}

TEST_F(Input, EnterAndEscBelongToTheDialogUnlessAListIsDropped) {
    EXPECT_EQ(RunDialog(dialog_,
                        [&](DialogDriver& user) {
                            user.Key(probe::kButton, Qt::Key_Return);
                            EXPECT_EQ(dialog_.TakeLog().back(), "90 command 0");
                            auto& combo = dynamic_cast<QComboBox&>(user.Widget(probe::kCombo));
                            combo.setFocus();
                            for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
                                dialog_.TakeLog();
                                combo.showPopup();
                                user.Settle();
                                QWidget* popup = QApplication::activePopupWidget();
                                ASSERT_NE(popup, nullptr);
                                QWidget* list =
                                    popup->focusWidget() == nullptr ? popup : popup->focusWidget();
                                QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
                                QApplication::sendEvent(list, &press);
                                user.Settle();
                                EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
                            }
                            EXPECT_NE(dialog_.m_hWnd, nullptr);
                            user.Key(probe::kSlider, Qt::Key_Return);
                        }),
              IDOK);
    EXPECT_EQ(
        RunDialog(dialog_, [&](DialogDriver& user) { user.Key(probe::kList, Qt::Key_Escape); }),
        IDCANCEL);
}

TEST_F(Input, MouseMessagesCarryClientCoordinatesAndFollowTheCapture) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        dialog_.logMouse = true;
        dialog_.TakeLog();
        const auto at = [](QPoint point) {
            return " " + std::to_string(point.x()) + "," + std::to_string(point.y());
        };
        const QPoint place = user.PointOf(probe::kPlace);  // A frame lets the mouse through.
        user.MousePress(place);
        EXPECT_LT(GetKeyState(VK_LBUTTON), 0);
        dialog_.SetCapture();
        user.MouseMove({-5, 3});
        user.MouseRelease(user.PointOf(probe::kButton));
        EXPECT_GE(GetKeyState(VK_LBUTTON), 0);
        const std::string button = at(user.PointOf(probe::kButton));
        EXPECT_EQ(dialog_.TakeLog(), (Log{"move" + at(place), "press" + at(place), "move -5,3",
                                          "move" + button, "release" + button}));
        // With the capture the dialog has the mouse, whatever it is over.
        user.Click(probe::kButton);
        EXPECT_EQ(dialog_.TakeLog().size(), 3U);  // Move, press and release.
        CWnd::ReleaseCapture();
        user.Click(probe::kButton);
        EXPECT_EQ(dialog_.TakeLog().back(), "90 command 0");
        // A dim control leaves the mouse to the dialog.
        user.Click(91);
        EXPECT_THAT(dialog_.TakeLog(), testing::SizeIs(2));
    });
}

TEST_F(Input, AnotherWindowTakesTheCaptureAway) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        dialog_.SetCapture();
        dialog_.TakeLog();
        ProbeDialog other;
        RunDialog(other, [](DialogDriver&) {});
        user.Settle();
        EXPECT_EQ(CWnd::GetCapture(), nullptr);
        EXPECT_THAT(dialog_.TakeLog(), testing::Contains("capture lost").Times(1));
    });
}

TEST_F(Input, TimersRepeatUntilTheyAreKilled) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        int ticks = 0;
        dialog_.onMessage = [&](UINT message, WPARAM id, LPARAM) {
            if (message == WM_TIMER && id == 7 && ++ticks == 3) {
                dialog_.KillTimer(7);
                dialog_.SetTimer(8, 0);
            }
            return message == WM_TIMER;
        };
        dialog_.SetTimer(7, 0);
        while (ticks < 3) {
            user.Settle();
        }
        dialog_.KillTimer(8);
        user.Settle();
        EXPECT_EQ(ticks, 3);
    });
}

}  // namespace
