#include <QApplication>
#include <QWheelEvent>

#include "tests/platform/probe_dialog.h"

namespace {

using namespace probe;

using Controls = probe::Test;

TEST_F(Controls, OnlyAutomaticButtonsChangeTheirMarkOnAClick) {
    Run([&](DialogDriver& user) {
        user.Widget(kButton).setFocus();
        for (const int id : {kBox, kAutoBox, kStayButton, kRadioB}) {
            TakeLog();
            user.Click(id);
            EXPECT_EQ(user.Checked(id), id != kBox) << id;
            EXPECT_EQ(TakeLog(), std::to_string(id) + " command 0");
        }
        // The groups are apart from each other, and the arrows move within one.
        user.Click(kRadioC);
        EXPECT_TRUE(user.Checked(kRadioB));
        user.Key(kRadioB, Qt::Key_Left);
        EXPECT_TRUE(user.Checked(kRadioA));
        EXPECT_FALSE(user.Checked(kRadioB));
        // By program all is silent, and a group may lose its only mark.
        TakeLog();
        for (const int id : {kBox, kAutoBox, kStayButton, kRadioA}) {
            const int mark = user.Checked(id) ? 0 : 1;
            dialog_.Item<CButton>(id).SetCheck(mark);
            EXPECT_EQ(dialog_.Item<CButton>(id).GetCheck(), mark) << id;
        }
        EXPECT_EQ(TakeLog(), "");
    });
}

TEST_F(Controls, AnEditNotifiesUnlessUpdateDataRunsAndLimitsTypingInBytes) {
    HooksScope hooks;
    Hooks().clipboardText = [] { return std::optional<CString>("xéé"); };
    dialog_.text = "longer";  // By program it is not bound.
    Run([&](DialogDriver& user) {
        EXPECT_EQ(TakeLog().find("12 command 768"), std::string::npos);
        dialog_.name.SendMessage(EM_LIMITTEXT, 7);
        user.Type(kName, "12");
        dialog_.UpdateData(TRUE);
        EXPECT_EQ(dialog_.text, "longer1");
        TakeLog();
        dialog_.name.SetWindowText("longer1");
        dialog_.name.SetWindowText("");
        EXPECT_EQ(TakeLog(), "12 command 768; 12 command 768");
        dialog_.name.SetLimitText(4);
        user.Type(kName, "ééé");
        EXPECT_EQ(user.Text(kName), "éé") << "whole characters";
        dialog_.name.SetSel(1, 2);
        dialog_.name.SendMessage(WM_PASTE);
        EXPECT_EQ(user.Text(kName), "éx");
    });
}

TEST_F(Controls, ANumberThatIsNoneIsRefusedAndChangesNothing) {
    HooksScope hooks;
    std::string words;
    Hooks().messageBox = [&words](const CString& text, UINT) {
        words = text;
        return IDOK;
    };
    Run([&](DialogDriver&) {
        CDataExchange exchange(&dialog_, TRUE);
        int value = 7;
        for (const char* text : {"", "12x", "1-2", "2147483648"}) {
            dialog_.number.SetWindowText(text);
            dialog_.name.SetFocus();
            EXPECT_THROW(DDX_Text(&exchange, kNumber, value), CDataExchange::Failure) << text;
            EXPECT_EQ(std::exchange(words, ""), "Please enter an integer.");
            EXPECT_EQ(value, 7) << text;
            EXPECT_EQ(CWnd::GetFocus(), &dialog_.number);
        }
        dialog_.number.SetWindowText(" -12");
        DDX_Text(&exchange, kNumber, value);
        EXPECT_EQ(value, -12);
    });
}

TEST_F(Controls, ASpinStepsTheNumberInItsBuddy) {
    Run([&](DialogDriver& user) {
        auto& spin = dialog_.Item<CSpinButtonCtrl>(kSpin);
        EXPECT_EQ(spin.GetBuddy(), &dialog_.number);
        spin.SetRange32(1, 99999);
        spin.SetPos(1234);
        user.Widget(kButton).setFocus();
        TakeLog();
        const auto click = [&](bool up) {
            user.ClickSpin(kSpin, up);
            return user.Text(kNumber);
        };
        EXPECT_EQ(click(true), "1235");
        EXPECT_EQ(TakeLog(), "10 focus; 11 notify -722; 10 command 768");
        user.Key(kNumber, Qt::Key_Down);
        QWheelEvent wheel({2, 2}, user.Widget(kNumber).mapToGlobal(QPointF(2, 2)), {}, {0, -120},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&user.Widget(kNumber), &wheel);
        EXPECT_EQ(user.Text(kNumber), "1233");
        // What the user typed counts, within the range; at its end nothing is written.
        dialog_.number.SetWindowText("7");
        EXPECT_EQ(click(false), "6");
        dialog_.number.SetWindowText("0");
        EXPECT_EQ(click(false), "1");
        TakeLog();
        EXPECT_EQ(click(false), "1");
        EXPECT_EQ(TakeLog(), "11 notify -722");
    });
}

TEST_F(Controls, ASliderReportsWhatTheUserDoesAlsoAtTheEnd) {
    Run([&](DialogDriver& user) {
        auto& slider = dialog_.Item<CSliderCtrl>(kSlider);
        TakeLog();
        slider.SetRange(0, 50);
        slider.SetPos(49);
        slider.SetPos(999);
        EXPECT_EQ(slider.GetPos(), 50);
        EXPECT_EQ(TakeLog(), "");
        int seen = -1;
        dialog_.onMessage = [&](UINT message, WPARAM, LPARAM) {
            seen = message == WM_HSCROLL ? slider.GetPos() : seen;
            return false;
        };
        for (const auto& [key, position] : {std::pair(Qt::Key_Right, 50),
                                            {Qt::Key_Left, 49},
                                            {Qt::Key_PageDown, 39},
                                            {Qt::Key_Home, 0},
                                            {Qt::Key_Left, 0}}) {
            seen = -1;
            user.Key(kSlider, key);
            EXPECT_EQ(seen, position) << key;
        }
        TakeLog();
        user.Click(kSlider);
        EXPECT_EQ(TakeLog(), "30 scroll");
    });
}

TEST_F(Controls, CombosAndTabsNotifyTheUsersChoiceOnly) {
    Run([&](DialogDriver& user) {
        auto& combo = dialog_.Item<CComboBox>(kCombo);
        auto& tabs = dialog_.Item<CTabCtrl>(kTab);
        EXPECT_EQ(std::pair(combo.GetCurSel(), tabs.GetCurSel()), std::pair(-1, 0));
        user.Widget(kCombo).setFocus();
        TakeLog();
        combo.SetCurSel(0);
        combo.AddString("twelve");
        EXPECT_EQ(combo.SelectString(-1, "TW"), 1);
        EXPECT_EQ(combo.SelectString(1, "tw"), 3);
        EXPECT_EQ(combo.SelectString(-1, "x"), -1);
        EXPECT_EQ(combo.GetWindowText(), "twelve");
        tabs.SetCurSel(1);
        tabs.SetCurSel(-1);
        EXPECT_EQ(tabs.GetCurSel(), -1);
        EXPECT_EQ(TakeLog(), "");
        user.Key(kCombo, Qt::Key_Up);
        EXPECT_EQ(combo.GetLBText(combo.GetCurSel()), "three");
        EXPECT_EQ(TakeLog(), "70 command 1");
        for (const int tab : {1, 0}) {
            user.ClickTab(kTab, tab);
            EXPECT_EQ(tabs.GetCurSel(), tab);
            EXPECT_EQ(TakeLog(), "40 notify -551");
        }
    });
}

}  // namespace
