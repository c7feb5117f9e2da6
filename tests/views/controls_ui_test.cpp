#include <iomanip>

#include "tests/support/recording_dc.h"
#include "tests/views/host_dialog.h"
#include "tests/views/table.h"
#include "views/tick_label.h"

namespace {

constexpr int kMeasure = HostDialog::kMeasure;
constexpr int kNumerator = 4025;

TEST(NumericEditUi, TakesDigitsUpToItsLimitAndCommitsOnLeaving) {
    RunHost([](HostDialog& dialog, DialogDriver& user) {
        ExpectTable("typing.txt", [&](std::istream& row) {
            std::string start, typed, shown;
            int selectFrom = 0;
            std::int16_t limit = 0;
            row >> std::quoted(start) >> selectFrom >> std::quoted(typed) >> limit;
            dialog.measure.SetFocus();
            dialog.measure.SetLimit(limit);
            dialog.measure.SetValueText(start);
            dialog.measure.SetSel(selectFrom, -1);
            if (typed == "<") {
                user.Key(Qt::Key_Backspace);
            } else {
                user.Type(kMeasure, typed);
            }
            shown = user.Text(kMeasure);
            user.Click(HostDialog::kOther);
            return "\"" + shown + "\" \"" + user.Text(kMeasure) + "\" ";
        });
        dialog.measure.SendMessage(EM_LIMITTEXT, 2);
        dialog.measure.SetValueText("789");
        user.Key(kMeasure, Qt::Key_Return);
        EXPECT_EQ(user.Text(kMeasure), "99999") << "longer than the new limit";
    });
}

TEST(NumericEditUi, PastesWholeNumbersOnly) {
    RunHost([](HostDialog& dialog, DialogDriver& user) {
        const HooksScope hooks;
        std::optional<CString> clipboard;
        Hooks().clipboardText = [&clipboard] { return clipboard; };
        const std::pair<std::optional<CString>, const char*> cases[] = {
            {"hello world", "99999"}, {"12a", "5"},   {"-3", "5"}, {"", "5"},
            {std::nullopt, "5"},      {"00070", "70"}};
        for (const auto& [text, after] : cases) {
            dialog.measure.SetValueText("5");
            dialog.measure.SetSel(0, 0);
            clipboard = text;
            user.Key(kMeasure, Qt::Key_V, Qt::ControlModifier);
            EXPECT_EQ(user.Text(kMeasure), after);
        }
        dialog.measureSpin.SetPos(3);
        dialog.measure.SetValueText("");
        user.Type(kMeasure, "8");
        user.Key(kMeasure, Qt::Key_Z, Qt::ControlModifier);
        user.Key(kMeasure, Qt::Key_V);  // Swallowed without Ctrl.
        EXPECT_EQ(user.Text(kMeasure), "");
        user.ClickSpin(HostDialog::kMeasureSpin, true);
        EXPECT_EQ(user.Text(kMeasure), "1") << "the lower bound, not the fallback";
        user.ClickSpin(HostDialog::kMeasureSpin, true);
        EXPECT_EQ(user.Text(kMeasure), "2");
    });
}

TEST(TimeSigEditUi, ShowsAndReadsASignature) {
    t_tSigMapRec record;
    RunHost([&record](HostDialog& dialog, DialogDriver& user) {
        CWnd& numerator = *dialog.GetDlgItem(kNumerator);
        dialog.timeSig.SetTimeSig({9, 2, 3, 4000, 7, 8});
        dialog.timeSig.GetTimeSig(record);
        EXPECT_EQ(record, (t_tSigMapRec{1, 1, 0, 0, 7, 8}));
        dialog.timeSig.SetTimeSig({1, 1, 0, 0, 12, 3});  // The first denominator with a 3: 32.
        for (const auto& [text, expected] : {std::pair("", 12U), std::pair(" 5x", 5U)}) {
            numerator.SetWindowText(text);
            dialog.timeSig.GetTimeSig(record);
            EXPECT_EQ(record, (t_tSigMapRec{1, 1, 0, 0, expected, 32}));
        }
        numerator.SetWindowText("");
        user.Type(kNumerator, "999");
        user.Click(HostDialog::kOther);
        EXPECT_EQ(user.Text(kNumerator), "64");
    });
    CTimeSigEdit unbound;
    unbound.EnableAll(true);
    unbound.SetTimeSig({1, 1, 0, 0, 9, 16});
    unbound.GetTimeSig(record);
    EXPECT_EQ(record, t_tSigMapRec());
}

TEST(PageTabUi, ShowsOnePageAtATime) {
    RunHost([](HostDialog& dialog, DialogDriver& user) {
        CPageTabCtrl& tab = dialog.tab;
        const auto shown = [&](int result) {
            return std::to_string(result) + (dialog.spherical.IsWindowVisible() ? " first" : "") +
                   (dialog.cartesian.IsWindowVisible() ? " second" : "");
        };
        EXPECT_EQ(shown(1), "1 first");
        user.ClickTab(HostDialog::kTab, 1);
        EXPECT_EQ(shown(1), "1 second");
        EXPECT_EQ(shown(tab.SelectPage(2)), "0 second");
        EXPECT_EQ(shown(tab.SelectPage(-1)), "1");
        EXPECT_EQ(shown(tab.SelectPage(0)), "1 first");
        EXPECT_EQ(tab.GetCurSel(), 0);
        tab.AddPage(nullptr, 4007, "none");
        tab.AddPage(&dialog.spherical, 0, "none");
        EXPECT_EQ(tab.GetItemCount(), 2);
        RECT page = dialog.spherical.GetWindowRect();
        tab.ScreenToClient(page);
        EXPECT_EQ(page, (RECT{5, 25, 302, 152}));
    });
}

TEST(TickLabelUi, TheLastTickAndEveryLabelStayInside) {
    RunHost([](HostDialog& dialog, DialogDriver&) {
        DrawingLog log;
        RecordingDC dc(log);
        CTickLabel label;
        const int positions[] = {0, 50, 100};
        const char* const labels[] = {"-12.75", "0", "+12.75"};
        label.SetTicks(3, positions, labels);
        label.Paint(dc, {0, 0, 125, 16});  // 99 pixels between the margins.
        const std::string tail = "\" 000000 font 10 on " + log[1].substr(log[1].size() - 6);
        EXPECT_EQ(
            log,
            (DrawingLog{"dc line (13,16,13,13) pen solid 000000", "dc text (0,6) \"-12.75" + tail,
                        "dc line (62,16,62,13) pen solid 000000", "dc text (60,6) \"0" + tail,
                        "dc line (111,16,111,13) pen solid 000000",
                        "dc text (95,6) \"+12.75" + tail}));
        // A page shows it so.
        RECT ruler = dialog.spherical.GetDlgItem(4056)->GetWindowRect();
        dialog.spherical.ScreenToClient(ruler);
        const QImage image = DialogDriver(dialog.spherical).Grab();
        EXPECT_LT(image.pixelColor(ruler.left + 13, ruler.bottom - 1).lightness(), 60);
        EXPECT_GT(image.pixelColor(ruler.left + 12, ruler.bottom - 1).lightness(), 120);
    });
}

}  // namespace
