#include "platform/hooks.h"

#include <gtest/gtest.h>

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

TEST(Hooks, TheClockCountsTheMillisecondsOfARest) {
    const DWORD start = GetTickCount();
    Sleep(20);
    const DWORD elapsed = GetTickCount() - start;
    EXPECT_TRUE(elapsed >= 20 && elapsed < 10'000) << elapsed;
}

}  // namespace
