#include "tests/views/host_dialog.h"
#include "tests/views/table.h"

namespace {

constexpr int kSet = 4077;

/// What a page shows, row by row: slider position and text, "255=12.75 60=0 30=0".
std::string Look(CWnd& page, std::initializer_list<std::pair<int, int>> rows) {
    std::string shown;
    for (const auto& [slider, edit] : rows) {
        shown += (shown.empty() ? "" : " ") +
                 std::to_string(page.GetDlgItemAs<CSliderCtrl>(slider)->GetPos()) + "=" +
                 page.GetDlgItem(edit)->GetWindowText();
    }
    return shown;
}
std::string Spherical(HostDialog& dialog) {
    return Look(dialog.spherical, {{4027, 4026}, {4035, 4024}, {4036, 4025}});
}
/// With "Set" when that is enabled.
std::string Cartesian(HostDialog& dialog) {
    return Look(dialog.cartesian, {{4063, 4060}, {4068, 4065}, {4073, 4070}}) +
           (dialog.cartesian.GetDlgItem(kSet)->IsWindowEnabled() ? " Set" : "");
}

void MoveSlider(CWnd& page, int id, int position) {
    auto* slider = page.GetDlgItemAs<CSliderCtrl>(id);
    slider->SetPos(position);
    page.SendMessage(WM_HSCROLL, 0, reinterpret_cast<LPARAM>(slider->m_hWnd));
}

TEST(Pages, ShowAPositionInBothForms) {
    RunHost([](HostDialog& dialog, DialogDriver&) {
        EXPECT_EQ(Spherical(dialog), "255=12.75 60=0 30=0");
        EXPECT_EQ(Cartesian(dialog), "255=0.00 255=0.00 255=0.00");
        ExpectTable("pages.txt", [&](std::istream& row) {
            MoveSlider(dialog.cartesian, 4063, 400);  // Lost when a position arrives.
            EXPECT_TRUE(Cartesian(dialog).ends_with("Set"));
            tag3DPosMsg position;
            row >> position.distance >> position.azimuth >> position.elevation;
            dialog.SendPosition(position);
            return Spherical(dialog) + " " + Cartesian(dialog) + " ";
        });
        EXPECT_EQ(dialog.reports, "");
    });
}

TEST(Pages, TheSphericalPageReportsEveryNotice) {
    RunHost([](HostDialog& dialog, DialogDriver&) {
        dialog.SendPosition({1000, 0, 0});
        DialogDriver page(dialog.spherical);
        page.Key(4027, Qt::Key_Right);
        EXPECT_EQ(Spherical(dialog), "21=1.05 60=0 30=0");
        page.Key(4035, Qt::Key_Home);
        page.Key(4036, Qt::Key_End);
        EXPECT_EQ(dialog.TakeReports(), "1050 0 0; 1050 -180 0; 1050 -180 90; ");
        for (const WPARAM button : {4054, 4051, 4050, 4999}) {  // Two at an end, one unknown.
            dialog.spherical.SendMessage(WM_REPEATCLICK, button);
        }
        EXPECT_EQ(dialog.TakeReports(), "1050 -180 90; 1050 -180 90; 1050 -180 87; ");
        page.MousePress(page.PointOf(4053));  // The dialog closes while the button is held.
    });
}

TEST(Pages, TheCartesianPageReportsOnSetOnly) {
    RunHost([](HostDialog& dialog, DialogDriver&) {
        dialog.tab.SelectPage(1);
        DialogDriver page(dialog.cartesian);
        dialog.SendPosition({1000, 0, 0});
        MoveSlider(dialog.cartesian, 4063, 255);
        EXPECT_EQ(Cartesian(dialog), "255=0.00 255=0.00 275=1.00") << "no difference";
        for (const auto& [x, y, z, report, after] :
             {std::tuple(510, 510, 510, "12750 45 33; ", "402=7.35 402=7.35 402=7.35"),
              {256, 255, 255, "50 90 0; ", "256=0.05 255=0.00 255=0.00"},
              {255, 259, 271, "850 0 12; ", "255=0.00 259=0.20 271=0.80"},  // 824.6 mm: 825.
              {255, 255, 0, "12750 -180 0; ", "255=0.00 255=0.00 0=-12.75"}}) {
            MoveSlider(dialog.cartesian, 4063, x);
            MoveSlider(dialog.cartesian, 4068, y);
            MoveSlider(dialog.cartesian, 4073, z);
            EXPECT_EQ(dialog.TakeReports(), "");
            page.Click(kSet);
            EXPECT_EQ(dialog.TakeReports(), report);
            EXPECT_EQ(Cartesian(dialog), after);
        }
    });
}

TEST(Pages, EnablingBringsSetBackOnlyWhenDirty) {
    const auto dim = [](CWnd& page) {
        std::string ids;
        for (int id = 4013; id <= kSet; ++id) {
            const CWnd* control = page.GetDlgItem(id);
            ids +=
                control != nullptr && !control->IsWindowEnabled() ? std::to_string(id) + " " : "";
        }
        return ids;
    };
    RunHost([&dim](HostDialog& dialog, DialogDriver&) {
        for (const auto& [position, left] : {std::pair(255, "4077 "), std::pair(300, "")}) {
            dialog.SendPosition({1000, 0, 0});
            MoveSlider(dialog.cartesian, 4063, position);
            dialog.spherical.SendMessage(WM_ENABLEPAGE, 0);
            dialog.cartesian.SendMessage(WM_ENABLEPAGE, 0);
            EXPECT_EQ(dim(dialog.spherical),
                      "4013 4014 4015 4024 4025 4026 4027 4035 4036 "
                      "4050 4051 4052 4053 4054 4055 ");
            EXPECT_EQ(dim(dialog.cartesian),
                      "4013 4060 4062 4063 4064 4065 4066 4068 4069 "
                      "4070 4071 4073 4074 4075 4076 4077 ");
            dialog.spherical.SendMessage(WM_ENABLEPAGE, 1);
            dialog.cartesian.SendMessage(WM_ENABLEPAGE, 1);
            EXPECT_EQ(dim(dialog.spherical) + dim(dialog.cartesian), left);
        }
    });
}

TEST(Pages, AHeldButtonStepsUntilItIsReleasedOrLosesTheFocus) {
    RunHost([](HostDialog& dialog, DialogDriver&) {
        dialog.SendPosition({1000, 0, 0});
        DialogDriver page(dialog.spherical);
        const QPoint place = page.PointOf(4052);
        // One delay goes by; gives the distance then.
        const auto wait = [&dialog] {
            dialog.spherical.GetDlgItem(4052)->SendMessage(WM_TIMER, CRepeatButton::kRepeatTimer);
            return std::stoi(Spherical(dialog)) * 50;
        };
        page.MousePress(place);
        EXPECT_EQ(dialog.reports, "") << "the first step comes after the delay";
        EXPECT_EQ(wait(), 950);
        EXPECT_EQ(wait(), 900);
        page.MouseRelease(place);
        EXPECT_EQ(wait(), 850) << "the release is looked at before each wait only";
        EXPECT_EQ(wait(), 850);

        page.MousePress(place);
        dialog.onReport = [&dialog] { dialog.measure.SetFocus(); };
        EXPECT_EQ(wait(), 800) << "the focus test comes after the step";
        EXPECT_EQ(wait(), 800);
        dialog.onReport = [] {};
        page.MouseRelease(place);
        page.Key(4052, Qt::Key_Space);
        EXPECT_EQ(wait(), 750);
        page.MousePress(place);
        dialog.onReport = [&dialog] { dialog.DestroyWindow(); };
        CRepeatButton& button = *dialog.spherical.GetDlgItemAs<CRepeatButton>(4052);
        button.SendMessage(WM_TIMER, CRepeatButton::kRepeatTimer);
        EXPECT_EQ(button.m_hWnd, nullptr) << "the dialog may close meanwhile";
    });
}

}  // namespace
