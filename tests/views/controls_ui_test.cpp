#include "tests/support/recording_dc.h"
#include "tests/views/host_dialog.h"
#include "views/tick_label.h"

namespace {

constexpr int kMeasure = HostDialog::kMeasure;
constexpr int kNumerator = 4025;

TEST(NumericEditUi, TakesDigitsUpToItsLimitAndCommitsOnLeaving) {
    struct Case {
        std::string start;
        int selectFrom;  // To the end.
        const char *typed, *shown, *left;
    };
    const std::vector<Case> cases{
        {"", 0, "1a-2. 3", "123", "123"},
        {"", 0, "123456", "12345", "12345"},
        {"12345", 5, "6", "12345", "12345"},
        {"12345", 0, "6", "6", "6"},  // Replaces the selection, at the limit too.
        {"00042", 5, "\b", "0004", "4"},
        {"", 0, "0", "0", "1"},
        {"", 0, "", "", "7"},
        {"1234567", 7, "", "1234567", "99999"},  // Setting is not bound.
        {"x", 1, "", "x", "x"}};
    RunHost([&cases](HostDialog& dialog, DialogDriver& user) {
        for (const Case& each : cases) {
            SCOPED_TRACE(each.start + each.typed);
            dialog.measure.SetFocus();
            dialog.measure.SetValueText(each.start);
            dialog.measure.SetSel(each.selectFrom, static_cast<int>(each.start.size()));
            if (each.typed == std::string("\b")) {
                user.Key(Qt::Key_Backspace);
            } else {
                user.Type(kMeasure, each.typed);
            }
            EXPECT_EQ(user.Text(kMeasure), each.shown);
            user.Click(HostDialog::kOther);
            EXPECT_EQ(user.Text(kMeasure), each.left);
        }
        dialog.measure.SendMessage(EM_LIMITTEXT, 2);
        dialog.measure.SetValueText("");
        user.Type(kMeasure, "789");
        EXPECT_EQ(user.Text(kMeasure), "78");
        dialog.measure.SetValueText("789");
        user.Click(HostDialog::kOther);
        EXPECT_EQ(user.Text(kMeasure), "99999") << "longer than the new limit";
        dialog.measure.SetValueText("");
        user.Key(kMeasure, Qt::Key_Return);
        EXPECT_EQ(user.Text(kMeasure), "7");
    });
}

TEST(NumericEditUi, PastesWholeNumbersOnly) {
    RunHost([](HostDialog& dialog, DialogDriver& user) {
        const HooksScope hooks;
        std::optional<CString> clipboard;
        Hooks().clipboardText = [&clipboard] { return clipboard; };
        const std::pair<std::optional<CString>, const char*> cases[] = {
            {"00070", "70"}, {"123456", "99999"}, {"hello world", "99999"},
            {"12a", "5"},    {"", "5"},           {std::nullopt, "5"}};
        for (const auto& [text, after] : cases) {
            dialog.measure.SetValueText("5");
            dialog.measure.SetSel(0, 0);
            clipboard = text;
            user.Key(kMeasure, Qt::Key_V, Qt::ControlModifier);
            EXPECT_EQ(user.Text(kMeasure), after);
        }
        dialog.measure.SetValueText("");
        user.Type(kMeasure, "8");
        user.Key(kMeasure, Qt::Key_Z, Qt::ControlModifier);
        user.Key(kMeasure, Qt::Key_V);  // Swallowed without Ctrl.
        EXPECT_EQ(user.Text(kMeasure), "");
    });
}

TEST(EmptyFillSpinUi, FillsAnEmptyBoxInsteadOfStepping) {
    RunHost([](HostDialog& dialog, DialogDriver& user) {
        user.ClickSpin(HostDialog::kMeasureSpin, true);
        EXPECT_EQ(user.Text(kMeasure), "4");
        dialog.measure.SetValueText("");
        user.ClickSpin(HostDialog::kMeasureSpin, true);
        EXPECT_EQ(user.Text(kMeasure), "1") << "the lower bound, not the fallback";
    });
}

TEST(TimeSigEditUi, ShowsAndReadsASignature) {
    RunHost([](HostDialog& dialog, DialogDriver& user) {
        const auto read = [&dialog] {
            t_tSigMapRec record;
            dialog.timeSig.GetTimeSig(record);
            return record;
        };
        dialog.timeSig.SetTimeSig({9, 2, 3, 4000, 7, 8});
        EXPECT_EQ(user.Text(kNumerator), "7");
        EXPECT_EQ(read(), (t_tSigMapRec{1, 1, 0, 0, 7, 8}));
        dialog.timeSig.SetTimeSig({1, 1, 0, 0, 12, 3});  // The first denominator with a 3: 32.
        dialog.GetDlgItem(kNumerator)->SetWindowText("");
        EXPECT_EQ(read(), (t_tSigMapRec{1, 1, 0, 0, 12, 32})) << "the record fills in";
        dialog.GetDlgItem(kNumerator)->SetWindowText(" 5x");
        EXPECT_EQ(read().numerator, 5U);
        dialog.GetDlgItem(kNumerator)->SetWindowText("");
        user.Type(kNumerator, "999");
        user.Click(HostDialog::kOther);
        EXPECT_EQ(user.Text(kNumerator), "64");
        for (const bool enable : {false, true}) {
            dialog.timeSig.EnableAll(enable);
            for (const int id : {1036, 4025, 4026, 1037, 4024}) {
                EXPECT_EQ(dialog.GetDlgItem(id)->IsWindowEnabled(), enable) << id;
            }
        }
    });
    CTimeSigEdit unbound;
    unbound.EnableAll(true);
    unbound.SetTimeSig({1, 1, 0, 0, 9, 16});
    t_tSigMapRec record;
    unbound.GetTimeSig(record);
    EXPECT_EQ(record, t_tSigMapRec());
}

TEST(PageTabUi, ShowsOnePageAtATime) {
    RunHost([](HostDialog& dialog, DialogDriver& user) {
        const auto shown = [&dialog] {
            return std::pair(dialog.spherical.IsWindowVisible(),
                             dialog.cartesian.IsWindowVisible());
        };
        EXPECT_EQ(shown(), std::pair(true, false));
        user.ClickTab(HostDialog::kTab, 1);
        EXPECT_EQ(shown(), std::pair(false, true));
        EXPECT_EQ(dialog.tab.SelectPage(2), 0);
        EXPECT_EQ(shown(), std::pair(false, true));
        EXPECT_EQ(dialog.tab.SelectPage(-1), 1);
        EXPECT_EQ(shown(), std::pair(false, false));
        EXPECT_EQ(dialog.tab.SelectPage(0), 1);
        EXPECT_EQ(dialog.tab.GetCurSel(), 0);
        dialog.tab.AddPage(nullptr, 4007, "none");
        dialog.tab.AddPage(&dialog.spherical, 0, "none");
        EXPECT_EQ(dialog.tab.GetItemCount(), 2);
        RECT page = dialog.spherical.GetWindowRect();
        dialog.tab.ScreenToClient(page);
        EXPECT_EQ(page, (RECT{5, 25, 302, 152}));
    });
}

TEST(TickLabelUi, TheLastTickAndEveryLabelStayInside) {
    RunHost([](HostDialog&, DialogDriver&) {
        DrawingLog log;
        RecordingDC dc(log);
        CTickLabel label;
        const int positions[] = {0, 50, 100};
        const char* const labels[] = {"-12.75", "0", "12.75"};
        EXPECT_EQ(label.SetTicks(3, positions, labels), 1);
        label.Paint(dc, {0, 0, 125, 16});  // 99 pixels between the margins.
        const std::string tail = "\" 000000 font 10 on " + log[1].substr(log[1].size() - 6);
        EXPECT_EQ(
            log, (DrawingLog{
                     "dc line (13,16,13,13) pen solid 000000", "dc text (0,6) \"-12.75" + tail,
                     "dc line (62,16,62,13) pen solid 000000", "dc text (60,6) \"0" + tail,
                     "dc line (111,16,111,13) pen solid 000000", "dc text (99,6) \"12.75" + tail}));
    });
}

}  // namespace
