#include <gtest/gtest.h>

#include "views/numeric_edit.h"
#include "views/repeat_press.h"

namespace {

TEST(NumericEdit, BringsATextWithinItsBounds) {
    struct Case {
        std::int16_t limit;
        int upper;
        CString text;
        int result;
        CString after;
    };
    for (Case each : std::vector<Case>{{5, 99999, "", 0, ""},
                                       {5, 99999, "0", 1, "1"},
                                       {5, 99999, "00042", 1, "42"},
                                       {5, 99999, "hello world", 1, "99999"},  // Length first.
                                       {5, 99999, "12a", 0, "12a"},
                                       {5, 99999, "-5", 0, "-5"},
                                       {20, 64, "70", 1, "64"},
                                       {20, 64, "99999999999999999999", 1, "64"}}) {
        CNumericEdit edit;
        edit.SetLimit(each.limit);
        edit.SetRange(1, each.upper);
        EXPECT_EQ(edit.Normalize(each.text), each.result);
        EXPECT_EQ(each.text, each.after);
    }
}

TEST(RepeatPress, WaitsTheDelayOrEverLess) {
    for (const auto& [accelerate, waits] : {std::pair(false, std::vector<DWORD>{60, 60, 60, 60}),
                                            std::pair(true, std::vector<DWORD>{40, 20, 0, 0})}) {
        RepeatPress press;
        auto wait = press.Press(accelerate, 60);
        for (const DWORD expected : waits) {
            EXPECT_EQ(wait, expected);
            wait = press.AfterStep(true);
        }
    }
}

TEST(RepeatPress, LooksAtTheReleaseBeforeEachWaitOnly) {
    RepeatPress press;
    press.Press(true, 60);
    press.Release();
    EXPECT_TRUE(press.IsRunning());
    EXPECT_EQ(press.AfterStep(true), std::nullopt);
    EXPECT_FALSE(press.IsRunning());
    EXPECT_EQ(press.Press(true, 60), 40U) << "each press starts from the full delay";
    EXPECT_EQ(press.AfterStep(false), std::nullopt) << "the focus went";
    EXPECT_EQ(press.Press(true, 60), 40U);
    press.Release();
    EXPECT_EQ(press.Press(true, 60), std::nullopt) << "queues up";
    EXPECT_EQ(press.AfterStep(true), 40U) << "still held: starts anew";
    press.Release();
    press.Press(true, 60);
    press.Release();
    EXPECT_EQ(press.AfterStep(true), std::nullopt) << "came and went before its turn";
}

}  // namespace
