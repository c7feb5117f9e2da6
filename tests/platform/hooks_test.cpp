#include "platform/hooks.h"

#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>

namespace {

TEST(Hooks, AnUnsetOneFailsLoudlyInsteadOfWaitingForNobody) {
    const HooksScope scope;
    Hooks() = PlatformHooks();
    EXPECT_THROW(AfxMessageBox("Anybody there?"), std::logic_error);
    EXPECT_THROW(TrackPopupMenu(nullptr, {{1, "Show"}}), std::logic_error);
    EXPECT_THROW(GetClipboardText(), std::logic_error);
    EXPECT_THROW(Sleep(1), std::logic_error);
    std::string calls;
    Hooks().waitCursor = [&calls](bool on) { calls += on ? '+' : '-'; };
    {
        const CWaitCursor outer;
        const CWaitCursor inner;
    }
    EXPECT_EQ(calls, "+-") << "the cursor nests";
    Hooks().waitCursor = nullptr;
    const CWaitCursor nobodySees;
}

// What the device's time-outs are counted by when nobody puts another clock in place.
TEST(Hooks, TheClockIsTheRealOneInMilliseconds) {
    const auto before = std::chrono::steady_clock::now();
    const DWORD start = GetTickCount();
    Sleep(20);
    const DWORD elapsed = GetTickCount() - start;
    const std::chrono::duration<double, std::milli> really =
        std::chrono::steady_clock::now() - before;
    EXPECT_GE(elapsed, 20U);
    EXPECT_LE(elapsed, really.count() + 1);
}

}  // namespace
