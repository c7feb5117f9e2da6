#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>

#include "tests/platform/probe_dialog.h"

namespace {

using namespace probe;

using Input = probe::Test;

int FocusId() {
    return CWnd::GetFocus() == nullptr ? 0 : CWnd::GetFocus()->GetDlgCtrlID();
}

TEST_F(Input, OneKeyIsKeyDownThenCharacterThenKeyUp) {
    Run([&](DialogDriver& user) {
        dialog_.number.SetFocus();
        TakeLog();
        for (const auto& [key, log] :
             {std::pair(Qt::Key_7, "10 keydown 55; 10 char 55; 10 command 768; 10 keyup 55"),
              {Qt::Key_Backspace, "10 keydown 8; 10 char 8; 10 command 768; 10 keyup 8"},
              // Without a character it is done at key down; a full stop is not the Delete key.
              {Qt::Key_Left, "10 keydown 37; 10 keyup 37"},
              {Qt::Key_Period, "10 keydown 0; 10 char 46; 10 command 768; 10 keyup 0"}}) {
            user.Key(key);
            EXPECT_EQ(TakeLog(), log);
        }
        // An input method's text is typed.
        QInputMethodEvent event;
        event.setCommitString("1é");
        QApplication::sendEvent(&user.Widget(kNumber), &event);
        EXPECT_EQ(user.Text(kNumber), ".1é");
        EXPECT_EQ(TakeLog(), "10 char 49; 10 command 768; 10 char 233; 10 command 768");
    });
}

TEST_F(Input, AHandlerCanSwallowTheKeyOrTheCharacter) {
    Run([&](DialogDriver& user) {
        dialog_.number.swallowed = WM_CHAR;
        user.Key(kNumber, Qt::Key_5);
        EXPECT_EQ(user.Text(kNumber), "");
        // Swallowing the key leaves the character, as they are two messages.
        dialog_.number.swallowed = WM_KEYDOWN;
        user.Key(Qt::Key_6);
        EXPECT_EQ(user.Text(kNumber), "6");
        user.Key(Qt::Key_Left);
        int start = -1, end = -1;
        dialog_.number.GetSel(start, end);
        EXPECT_EQ(start, 1);
        // What PreTranslateMessage takes, as Tab, reaches no control at all.
        TakeLog();
        user.Key(Qt::Key_Tab);
        EXPECT_EQ(TakeLog(), "10 blur; 12 focus; 12 keyup 9");
        user.Click(kButton);  // The focus goes before the new control's handlers run.
        EXPECT_EQ(TakeLog(), "12 blur; 90 command 0");
    });
}

TEST_F(Input, ClipboardKeysOfAnEditArriveAsMessages) {
    HooksScope hooks;
    Hooks().clipboardText = [] { return std::optional<CString>("ab\ncd"); };
    Run([&](DialogDriver& user) {
        user.Key(kName, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(user.Text(kName), "ab");
        dialog_.name.swallowed = WM_PASTE;
        user.Key(Qt::Key_V, Qt::ControlModifier);
        user.Key(Qt::Key_Insert, Qt::ShiftModifier);
        EXPECT_EQ(user.Text(kName), "ab");
        user.Key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(user.Text(kName), "");
        // What may only be read stays.
        dialog_.page.GetDlgItem(kReadOnlyEdit)->SetWindowText("7");
        DialogDriver(dialog_.page).Widget(kReadOnlyEdit).setFocus();
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_X, Qt::Key_V, Qt::Key_Z}) {
            user.Key(key, Qt::ControlModifier);
        }
        EXPECT_EQ(dialog_.page.GetDlgItem(kReadOnlyEdit)->GetWindowText(), "7");
    });
}

TEST_F(Input, TabGoesRoundInTheTemplatesOrderWithThePageBehindItsTabs) {
    Run([&](DialogDriver& user) {
        for (const int id :
             {10, 12, 20, 30, 60, 61, 62, 63, 65, 70, 40, 50, 51, 90, 1, 2, 10, 12}) {
            EXPECT_EQ(FocusId(), id);
            user.Key(Qt::Key_Tab);
        }
        user.Key(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(FocusId(), 12);
        // A group's stop is its checked button; what is hidden or dim is stepped over.
        dialog_.Item<CButton>(kRadioB).SetCheck(1);
        dialog_.GetDlgItem(kStayButton)->EnableWindow(false);
        user.Key(kAutoBox, Qt::Key_Tab);
        EXPECT_EQ(FocusId(), kRadioB);
        // A control that goes dim hands the focus on.
        dialog_.GetDlgItem(kRadioB)->EnableWindow(false);
        EXPECT_EQ(FocusId(), kRadioC);
    });
}

TEST_F(Input, EnterAndEscBelongToTheDialogUnlessAListIsDropped) {
    const auto script = [&](DialogDriver& user) {
        user.Widget(kButton).setFocus();
        TakeLog();
        user.Key(Qt::Key_Return);
        EXPECT_EQ(TakeLog(), "90 command 0");
        auto& combo = dynamic_cast<QComboBox&>(user.Widget(kCombo));
        combo.setFocus();
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
            combo.showPopup();
            user.Settle();
            QWidget* popup = QApplication::activePopupWidget();
            ASSERT_NE(popup, nullptr);
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QApplication::sendEvent(popup->focusWidget() == nullptr ? popup : popup->focusWidget(),
                                    &press);
            user.Settle();
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        }
        EXPECT_NE(dialog_.m_hWnd, nullptr);
        user.Key(kSlider, Qt::Key_Return);
    };
    EXPECT_EQ(Run(script), IDOK);
    EXPECT_EQ(Run([](DialogDriver& user) { user.Key(kList, Qt::Key_Escape); }), IDCANCEL);
}

TEST_F(Input, MouseMessagesCarryClientCoordinatesAndFollowTheCapture) {
    Run([&](DialogDriver& user) {
        const auto at = [](QPoint point) {
            return " " + std::to_string(point.x()) + "," + std::to_string(point.y());
        };
        const QPoint place = user.PointOf(kPlace);  // A frame lets the mouse through.
        const QPoint button = user.PointOf(kButton);
        user.Widget(kButton).setFocus();
        TakeLog();
        user.MousePress(place);
        EXPECT_LT(GetKeyState(VK_LBUTTON), 0);
        dialog_.SetCapture();  // The dialog has the mouse, whatever it is over.
        user.MouseMove({-5, 3});
        user.MouseRelease(button);
        EXPECT_GE(GetKeyState(VK_LBUTTON), 0);
        EXPECT_EQ(TakeLog(), "move" + at(place) + "; press" + at(place) + "; move -5,3; move" +
                                 at(button) + "; release" + at(button));
        user.Click(kButton);
        EXPECT_EQ(TakeLog(), "press" + at(button) + "; release" + at(button));
        CWnd::ReleaseCapture();
        user.Click(kButton);
        EXPECT_EQ(TakeLog(), "90 command 0");
        // A dim control leaves the mouse to the dialog.
        const QPoint dim = user.PointOf(kDimButton);
        user.Click(kDimButton);
        EXPECT_EQ(TakeLog(), "press" + at(dim) + "; release" + at(dim));

        dialog_.SetCapture();
        ProbeDialog other;
        RunDialog(other, [](DialogDriver&) {});
        user.Settle();
        EXPECT_EQ(CWnd::GetCapture(), nullptr) << "another window takes it away";
        EXPECT_EQ(TakeLog(), "capture lost");
    });
}

TEST_F(Input, TimersRepeatUntilTheyAreKilled) {
    Run([&](DialogDriver& user) {
        int ticks = 0;
        dialog_.onMessage = [&](UINT message, WPARAM id, LPARAM) {
            if (message == WM_TIMER && id == 7 && ++ticks == 3) {
                dialog_.KillTimer(7);
            }
            return message == WM_TIMER;
        };
        dialog_.SetTimer(7, 0);
        while (ticks < 3) {
            user.Settle();
        }
        user.Settle();
        EXPECT_EQ(ticks, 3);
    });
}

}  // namespace
