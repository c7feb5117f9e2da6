#include "tests/views/host_dialog.h"

namespace {

constexpr int kSet = 4077;

/// What a page shows: slider positions and value texts, row by row.
struct Shown {
    std::vector<int> positions;
    std::vector<std::string> texts;
    bool operator==(const Shown&) const = default;
};

Shown Look(CWnd& page, std::initializer_list<int> sliders, std::initializer_list<int> edits) {
    Shown shown;
    for (const int id : sliders) {
        shown.positions.push_back(page.GetDlgItemAs<CSliderCtrl>(id)->GetPos());
    }
    for (const int id : edits) {
        shown.texts.push_back(page.GetDlgItem(id)->GetWindowText());
    }
    return shown;
}

Shown Spherical(HostDialog& dialog) {
    return Look(dialog.spherical, {4027, 4035, 4036}, {4026, 4024, 4025});
}
Shown Cartesian(HostDialog& dialog) {
    return Look(dialog.cartesian, {4063, 4068, 4073}, {4060, 4065, 4070});
}
bool IsSetEnabled(HostDialog& dialog) {
    return dialog.cartesian.GetDlgItem(kSet)->IsWindowEnabled();
}

void MoveSlider(CWnd& page, int id, int position) {
    auto* slider = page.GetDlgItemAs<CSliderCtrl>(id);
    slider->SetPos(position);
    page.SendMessage(WM_HSCROLL, 0, reinterpret_cast<LPARAM>(slider->m_hWnd));
}

TEST(Pages, ShowAPositionInBothForms) {
    struct Case {
        tag3DPosMsg position;
        Shown spherical, cartesian;
    };
    const std::vector<Case> cases{{{12750, 90, 0},
                                   {{255, 90, 30}, {"12.75", "90", "0"}},
                                   {{510, 255, 255}, {"12.75", "0.00", "0.00"}}},
                                  {{50, 45, 0},
                                   {{1, 75, 30}, {"0.05", "45", "0"}},
                                   {{256, 255, 256}, {"0.05", "0.00", "0.05"}}},
                                  {{1024, -4, -91},
                                   {{20, 59, 0}, {"1.00", "-3", "-90"}},
                                   {{255, 235, 255}, {"0.00", "-1.00", "0.00"}}},
                                  {{1025, -180, 0},
                                   {{21, 0, 30}, {"1.05", "-180", "0"}},
                                   {{255, 255, 234}, {"0.00", "0.00", "-1.05"}}}};
    RunHost([&cases](HostDialog& dialog, DialogDriver&) {
        EXPECT_EQ(Spherical(dialog), (Shown{{255, 60, 30}, {"12.75", "0", "0"}}));
        EXPECT_EQ(Cartesian(dialog), (Shown{{255, 255, 255}, {"0.00", "0.00", "0.00"}}));
        EXPECT_FALSE(IsSetEnabled(dialog));
        for (const Case& each : cases) {
            MoveSlider(dialog.cartesian, 4063, 400);  // Lost when a position arrives.
            EXPECT_TRUE(IsSetEnabled(dialog));
            dialog.SendPosition(each.position);
            EXPECT_EQ(Spherical(dialog), each.spherical);
            EXPECT_EQ(Cartesian(dialog), each.cartesian);
            EXPECT_FALSE(IsSetEnabled(dialog));
        }
        EXPECT_TRUE(dialog.reports.empty());
    });
}

TEST(Pages, TheSphericalPageReportsEveryNotice) {
    RunHost([](HostDialog& dialog, DialogDriver&) {
        dialog.SendPosition({1000, 0, 0});
        DialogDriver page(dialog.spherical);
        page.Key(4027, Qt::Key_Right);
        EXPECT_EQ(Spherical(dialog).texts, (std::vector<std::string>{"1.05", "0", "0"}));
        EXPECT_EQ(Cartesian(dialog).texts, (std::vector<std::string>{"0.00", "0.00", "1.05"}));
        page.Key(4035, Qt::Key_Home);
        page.Key(4036, Qt::Key_End);
        EXPECT_EQ(dialog.TakeReports(),
                  (std::vector<tag3DPosMsg>{{1050, 0, 0}, {1050, -180, 0}, {1050, -180, 90}}));
        for (const WPARAM button : {4054, 4051, 4050, 4999}) {  // Two at an end, one unknown.
            dialog.spherical.SendMessage(WM_REPEATCLICK, button);
        }
        EXPECT_EQ(dialog.TakeReports(),
                  (std::vector<tag3DPosMsg>{{1050, -180, 90}, {1050, -180, 90}, {1050, -180, 87}}));
    });
}

TEST(Pages, TheCartesianPageReportsOnSetOnly) {
    struct Case {
        std::vector<int> positions;
        tag3DPosMsg report;
        std::vector<int> after;
    };
    const std::vector<Case> cases{
        {{510, 510, 510}, {12750, 45, 33}, {402, 402, 402}},  // Pulled in along the ray.
        {{256, 255, 255}, {50, 90, 0}, {256, 255, 255}},
        {{255, 259, 271}, {850, 0, 12}, {255, 259, 271}},  // 824.6 mm: 825, then 850.
        {{255, 255, 0}, {12750, -180, 0}, {255, 255, 0}}};
    RunHost([&cases](HostDialog& dialog, DialogDriver&) {
        dialog.tab.SelectPage(1);
        DialogDriver page(dialog.cartesian);
        dialog.SendPosition({1000, 0, 0});
        MoveSlider(dialog.cartesian, 4063, 255);
        EXPECT_FALSE(IsSetEnabled(dialog)) << "no difference";
        for (const Case& each : cases) {
            const Shown spherical = Spherical(dialog);
            MoveSlider(dialog.cartesian, 4063, each.positions[0]);
            MoveSlider(dialog.cartesian, 4068, each.positions[1]);
            MoveSlider(dialog.cartesian, 4073, each.positions[2]);
            EXPECT_EQ(Spherical(dialog), spherical);
            EXPECT_TRUE(dialog.reports.empty());
            page.Click(kSet);
            EXPECT_EQ(dialog.TakeReports(), (std::vector<tag3DPosMsg>{each.report}));
            EXPECT_EQ(Cartesian(dialog).positions, each.after);
            EXPECT_EQ(Spherical(dialog).positions[0], each.report.distance / 50);
            EXPECT_FALSE(IsSetEnabled(dialog));
        }
    });
}

TEST(Pages, EnablingBringsSetBackOnlyWhenDirty) {
    const std::vector<int> spherical{4026, 4024, 4025, 4027, 4035, 4036, 4050, 4051,
                                     4052, 4053, 4054, 4055, 4013, 4014, 4015};
    const std::vector<int> cartesian{4060, 4065, 4070, 4063, 4068, 4073, 4062, 4064,
                                     4066, 4069, 4071, 4074, 4013, 4075, 4076};
    RunHost([&](HostDialog& dialog, DialogDriver&) {
        for (const auto& [dirty, enable] : {std::pair(false, false), std::pair(false, true),
                                            std::pair(true, false), std::pair(true, true)}) {
            dialog.SendPosition({1000, 0, 0});
            MoveSlider(dialog.cartesian, 4063, dirty ? 300 : 255);
            const auto expectAll = [enable = enable](CWnd& page, const std::vector<int>& ids) {
                page.SendMessage(WM_ENABLEPAGE, enable ? 1 : 0);
                for (const int id : ids) {
                    EXPECT_EQ(page.GetDlgItem(id)->IsWindowEnabled(), enable) << id;
                }
            };
            expectAll(dialog.spherical, spherical);
            expectAll(dialog.cartesian, cartesian);
            EXPECT_EQ(IsSetEnabled(dialog), enable && dirty);
            EXPECT_TRUE(dialog.spherical.GetDlgItem(4056)->IsWindowEnabled());
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
            return Spherical(dialog).positions[0] * 50;
        };
        page.MousePress(place);
        EXPECT_EQ(Spherical(dialog).positions[0], 20) << "the first step comes after the delay";
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
    });
}

TEST(Pages, TheDialogMayCloseWhileAButtonIsHeld) {
    RunHost([](HostDialog& dialog, DialogDriver&) {
        DialogDriver page(dialog.spherical);
        auto* up = dialog.spherical.GetDlgItemAs<CRepeatButton>(4053);
        page.MousePress(page.PointOf(4053));
        dialog.onReport = [&dialog] { dialog.DestroyWindow(); };
        up->SendMessage(WM_TIMER, CRepeatButton::kRepeatTimer);
        EXPECT_EQ(up->m_hWnd, nullptr);
    });
    EXPECT_EQ(RunHost([](HostDialog& dialog, DialogDriver&) {
                  DialogDriver page(dialog.spherical);
                  page.MousePress(page.PointOf(4053));
                  dialog.EndDialog(5);
              }),
              5);
}

}  // namespace
