#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QWheelEvent>

#include "tests/platform/probe_dialog.h"
#include "tests/support/ui_driver.h"

namespace {

using probe::Log;
using probe::ProbeDialog;

class Controls : public testing::Test {
protected:
    probe::Resources resources_;
    ProbeDialog dialog_;
};

TEST_F(Controls, OnlyAutomaticButtonsChangeTheirMarkOnAClick) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        for (const int id : {probe::kBox, probe::kAutoBox, probe::kStayButton, probe::kRadioB}) {
            dialog_.TakeLog();
            user.Click(id);
            EXPECT_EQ(user.Checked(id), id != probe::kBox) << id;
            EXPECT_EQ(dialog_.TakeLog().back(), std::to_string(id) + " command 0");
        }
        // The groups are apart from each other, and the arrows move within one.
        user.Click(probe::kRadioC);
        EXPECT_TRUE(user.Checked(probe::kRadioB));
        user.Key(probe::kRadioB, Qt::Key_Left);
        EXPECT_TRUE(user.Checked(probe::kRadioA));
        EXPECT_FALSE(user.Checked(probe::kRadioB));
        // By program all is silent, and a group may lose its only mark.
        dialog_.TakeLog();
        for (const int id : {probe::kBox, probe::kAutoBox, probe::kStayButton, probe::kRadioA}) {
            const int mark = user.Checked(id) ? 0 : 1;
            dialog_.Item<CButton>(id).SetCheck(mark);
            EXPECT_EQ(dialog_.Item<CButton>(id).GetCheck(), mark) << id;
        }
        EXPECT_EQ(dialog_.TakeLog(), Log{});
    });
}

TEST_F(Controls, AnEditLimitsTypingInBytesAtWholeCharacters) {
    HooksScope hooks;
    Hooks().clipboardText = [] { return std::optional<CString>("xéé"); };
    RunDialog(dialog_, [&](DialogDriver& user) {
        dialog_.name.SetLimitText(4);
        user.Type(probe::kName, "ééé");
        EXPECT_EQ(user.Text(probe::kName), "éé");
        dialog_.name.SetSel(1, 2);
        dialog_.name.SendMessage(WM_PASTE);
        EXPECT_EQ(user.Text(probe::kName), "éx");
        dialog_.name.SetSel(0, -1);
        user.Type(probe::kName, "1");
        EXPECT_EQ(user.Text(probe::kName), "1");
        dialog_.name.SetWindowText("longer");  // By program it is not bound.
        EXPECT_EQ(user.Text(probe::kName), "longer");
        dialog_.name.SendMessage(EM_LIMITTEXT, 7);
        user.Type(probe::kName, "12");
        EXPECT_EQ(user.Text(probe::kName), "longer1");
    });
}

TEST_F(Controls, SettingATextRaisesTheNoticeUnlessUpdateDataRuns) {
    class Exchanging : public ProbeDialog {
    public:
        void DoDataExchange(CDataExchange* exchange) override {
            ProbeDialog::DoDataExchange(exchange);
            DDX_Text(exchange, probe::kName, text);
        }
        CString text = "start";
    } dialog;
    RunDialog(dialog, [&](DialogDriver& user) {
        EXPECT_EQ(user.Text(probe::kName), "start");
        EXPECT_THAT(dialog.TakeLog(), testing::Not(testing::Contains("12 command 768")));
        dialog.name.SetWindowText("start");
        EXPECT_EQ(dialog.TakeLog(), Log{"12 command 768"});
        user.Type(probe::kName, "!");
        dialog.UpdateData(TRUE);
        EXPECT_EQ(dialog.text, "start!");
    });
}

void Wheel(QWidget& widget, int turn) {
    QWheelEvent event(QPointF(2, 2), widget.mapToGlobal(QPointF(2, 2)), {}, QPoint(0, turn),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

TEST_F(Controls, ASpinStepsTheNumberInItsBuddy) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        auto& spin = dialog_.Item<CSpinButtonCtrl>(probe::kSpin);
        EXPECT_EQ(spin.GetBuddy(), &dialog_.number);
        spin.SetRange32(1, 99999);
        spin.SetPos(1234);
        EXPECT_EQ(user.Text(probe::kNumber), "1234");
        dialog_.TakeLog();
        user.ClickSpin(probe::kSpin, true);
        EXPECT_EQ(user.Text(probe::kNumber), "1235");
        EXPECT_EQ(CWnd::GetFocus(), &dialog_.number);
        const Log log = dialog_.TakeLog();
        EXPECT_THAT(log, testing::IsSupersetOf({"11 notify -722", "10 command 768"}));
        user.Key(probe::kNumber, Qt::Key_Down);
        Wheel(user.Widget(probe::kNumber), -120);
        EXPECT_EQ(user.Text(probe::kNumber), "1233");
        // What the user typed counts, within the range; at its end nothing is written.
        dialog_.number.SetWindowText("7");
        user.ClickSpin(probe::kSpin, false);
        EXPECT_EQ(user.Text(probe::kNumber), "6");
        dialog_.number.SetWindowText("0");
        user.ClickSpin(probe::kSpin, false);
        EXPECT_EQ(user.Text(probe::kNumber), "1");
        dialog_.TakeLog();
        user.ClickSpin(probe::kSpin, false);
        EXPECT_THAT(dialog_.TakeLog(), testing::Not(testing::Contains("10 command 768")));
        // The question before the step can stop it or change it.
        NMUPDOWN asked;
        dialog_.onNotify = [&](NMHDR& header) -> LRESULT {
            asked = reinterpret_cast<NMUPDOWN&>(header);
            return 1;
        };
        user.ClickSpin(probe::kSpin, true);
        EXPECT_EQ(user.Text(probe::kNumber), "1");
        EXPECT_EQ(asked.iPos, 1);
        EXPECT_EQ(asked.iDelta, 1);
    });
}

TEST_F(Controls, ASliderReportsWhatTheUserDoesAlsoAtTheEnd) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        auto& slider = dialog_.Item<CSliderCtrl>(probe::kSlider);
        slider.SetRange(0, 50);
        slider.SetPos(49);
        slider.SetPos(999);
        EXPECT_EQ(slider.GetPos(), 50);
        EXPECT_THAT(dialog_.TakeLog(), testing::Not(testing::Contains("scroll 30")));
        struct Step {
            Qt::Key key;
            int position;
        };
        for (const Step& step : std::vector<Step>{{Qt::Key_Right, 50},
                                                  {Qt::Key_Left, 49},
                                                  {Qt::Key_PageDown, 39},
                                                  {Qt::Key_Home, 0},
                                                  {Qt::Key_Left, 0},
                                                  {Qt::Key_End, 50}}) {
            int seen = -1;
            dialog_.onMessage = [&](UINT message, WPARAM, LPARAM) {
                seen = message == WM_HSCROLL ? slider.GetPos() : seen;
                return false;
            };
            user.Key(probe::kSlider, step.key);
            EXPECT_EQ(seen, step.position) << step.key;
            dialog_.onMessage = nullptr;
        }
        // A page's slider reports to the page.
        dialog_.TakeLog();
        DialogDriver(dialog_.page).Key(probe::kPageSlider, Qt::Key_Right);
        EXPECT_EQ(dialog_.TakeLog(), Log{"page scroll 51"});
        user.Click(probe::kSlider);
        EXPECT_EQ(dialog_.TakeLog(), Log{"scroll 30"});
    });
}

TEST_F(Controls, AComboNotifiesTheUsersChoiceOnly) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        auto& combo = dialog_.Item<CComboBox>(probe::kCombo);
        EXPECT_EQ(combo.GetCurSel(), -1);
        EXPECT_EQ(combo.SetCurSel(0), 0);
        combo.AddString("twelve");
        EXPECT_EQ(combo.SelectString(-1, "TW"), 1);
        EXPECT_EQ(combo.SelectString(1, "tw"), 3);
        EXPECT_EQ(combo.SelectString(-1, "x"), -1);
        EXPECT_EQ(combo.GetWindowText(), "twelve");
        user.Widget(probe::kCombo).setFocus();
        dialog_.TakeLog();
        user.Key(probe::kCombo, Qt::Key_Up);
        EXPECT_EQ(combo.GetLBText(combo.GetCurSel()), "three");
        EXPECT_EQ(dialog_.TakeLog(), Log{"70 command 1"});
    });
}

TEST_F(Controls, TabsNotifyTheUsersChoiceOnlyAndMayHaveNone) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        auto& tabs = dialog_.Item<CTabCtrl>(probe::kTab);
        EXPECT_EQ(tabs.GetCurSel(), 0);
        tabs.SetCurSel(1);
        tabs.SetCurSel(-1);
        EXPECT_EQ(tabs.GetCurSel(), -1);
        EXPECT_THAT(dialog_.TakeLog(), testing::Not(testing::Contains("40 notify -551")));
        user.Widget(probe::kTab).setFocus();
        dialog_.TakeLog();
        user.ClickTab(probe::kTab, 1);
        EXPECT_EQ(tabs.GetCurSel(), 1);
        EXPECT_EQ(dialog_.TakeLog(), Log{"40 notify -551"});
        user.ClickTab(probe::kTab, 0);
        EXPECT_EQ(tabs.GetCurSel(), 0);
        EXPECT_EQ(dialog_.TakeLog(), Log{"40 notify -551"});
    });
}

TEST_F(Controls, WordsForScreenReadersComeFromTheTemplate) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        EXPECT_EQ(user.Widget(probe::kSlider).accessibleName(), "Slider");
        EXPECT_EQ(user.Widget(probe::kButton).accessibleName(), "");  // Its caption says it.
    });
}

}  // namespace
