#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "platform/files.h"
#include "tests/link/contention.h"
#include "tests/link/test_clock.h"
#include "tests/support/process.h"
#include "tests/support/temporary_folder.h"

namespace {

struct ContentionTest : testing::Test {
    ContentionTest() { ::setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1); }
    std::string Log() const { return ReadWholeFile(folder / "log").value_or(""); }
    // Until the log says so and nobody is inside the device: a process that is stopped or killed
    // in there would leave its mark.
    void AwaitLog(const std::string& log) const {
        while (Log() != log || std::filesystem::exists(folder / "inside")) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    TemporaryFolder folder;
    FastClock clock;
};

TEST_F(ContentionTest, TenThreadsAndTwoProcessesNeverOverlap) {
    Process first({ORBIX_LINK_SIDE, "send", folder.Path(), "x", "3"});
    Process second({ORBIX_LINK_SIDE, "send", folder.Path(), "y", "3"});
    std::vector<std::jthread> threads;
    for (char letter = 'a'; letter < 'k'; ++letter) {
        threads.emplace_back([this, letter] {
            ContestedDevice device(folder.Path());
            LocalLink link;
            link.Open("contested", device);
            SendRepeatedly(link, letter, 1);
        });
    }
    threads.clear();
    EXPECT_EQ(first.Await(), 0);
    EXPECT_EQ(second.Await(), 0);
    std::string log = Log();
    std::sort(log.begin(), log.end());
    EXPECT_EQ(log, "abcdefghijxxxyyy");
}

TEST_F(ContentionTest, HolderGivesWayDiesOrIsStopped) {
    ContestedDevice device(folder.Path());
    LocalLink link;
    link.Open("contested", device);
    const auto take = [&] {
        const DWORD start = GetTickCount();
        EXPECT_EQ(link.Manager().SendData("t", 1), 1);
        EXPECT_TRUE(link.IsOwned());
        return GetTickCount() - start;
    };
    const std::vector<std::string> hold{ORBIX_LINK_SIDE, "hold", folder.Path()};
    Process answering(hold);
    AwaitLog("h");
    EXPECT_LT(take(), 10'000U);
    EXPECT_EQ(clock.waits, 1);
    answering.End(SIGKILL);

    Process killed(hold);
    AwaitLog("hth");
    EXPECT_FALSE(link.IsOwned()) << "this side's own watch gave way";
    killed.End(SIGKILL);
    LocalLink heir;  // sits where the dead one sat among the sides
    heir.Open("contested", device);
    take();
    EXPECT_EQ(clock.waits, 1) << "a dead holder is not waited for";

    Process stopped(hold);
    AwaitLog("hthth");
    stopped.Signal(SIGSTOP);
    EXPECT_GE(take(), 10'000U);
    EXPECT_EQ(clock.waits, 2);
    stopped.End(SIGKILL);
    EXPECT_EQ(Log(), "hththt");
}

TEST_F(ContentionTest, ClosedOrRenamedLinkLeavesTheDeviceToOthers) {
    ContestedDevice device(folder.Path());
    LocalLink first, second;
    EXPECT_EQ(first.Manager().SendData("-", 1), -1);
    first.Open("contested", device);
    SendRepeatedly(first, '1', 1);
    first.Open("another / name", device);
    EXPECT_FALSE(first.IsOwned());
    SendRepeatedly(first, '2', 1);
    second.Open("contested", device);
    SendRepeatedly(second, '3', 1);
    EXPECT_TRUE(first.IsOwned() && second.IsOwned()) << "two devices, two holders";
    first.Close();
    EXPECT_EQ(first.Manager().SendData("-", 1), -1);
    EXPECT_EQ(clock.waits, 0);
    EXPECT_EQ(Log(), "123");
}

TEST_F(ContentionTest, WithoutARuntimeFolderNothingIsHeld) {
    const std::string name(300, 'x');  // no file can have it
    CSingleLock lock(name);
    CEvent event(name);
    EXPECT_FALSE(lock.Lock());
    EXPECT_FALSE(lock.IsLocked());
    EXPECT_FALSE(event.SetEvent());
    EXPECT_FALSE(event.IsSignalled());
    CSingleLock mainLock, stateLock;
    CEvent release;
    CDeviceOwnership eventless(&mainLock, &stateLock, &release, &event, nullptr, nullptr, nullptr);
    EXPECT_FALSE(eventless.Acquire());
    EXPECT_FALSE(eventless.IsOwned());
    CDeviceOwnership lockless(&lock, &stateLock, &release, &release, nullptr, nullptr, nullptr);
    EXPECT_FALSE(lockless.Acquire());
}

}  // namespace
