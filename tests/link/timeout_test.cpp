#include <gtest/gtest.h>

#include "link/device_ownership.h"
#include "platform/hooks.h"

// The ten seconds on the real clock.
TEST(RealTimeOut, SilentHolderCountsAsGoneAfterTenSeconds) {
    CSingleLock mainLock, stateLock;
    CEvent release, held;
    CDeviceOwnership ownership(&mainLock, &stateLock, &release, &held, nullptr, nullptr, nullptr);
    held.SetEvent();
    const DWORD start = GetTickCount();
    EXPECT_TRUE(ownership.Acquire());
    const DWORD elapsed = GetTickCount() - start;
    EXPECT_GE(elapsed, 10'250U);
    EXPECT_LT(elapsed, 12'000U);
    ownership.GiveUp();
    EXPECT_FALSE(held.IsSignalled());
}
