#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "platform/files.h"
#include "tests/link/contention.h"
#include "tests/link/test_clock.h"

namespace {

struct ContentionTest : testing::Test {
    ContentionTest() {
        folder = (std::filesystem::temp_directory_path() / "orbix-link-XXXXXX").string();
        EXPECT_NE(::mkdtemp(folder.data()), nullptr);
        ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    }
    ~ContentionTest() override { std::filesystem::remove_all(folder); }

    pid_t Start(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), ORBIX_LINK_SIDE);
        std::vector<char*> pointers;
        for (std::string& argument : arguments) {
            pointers.push_back(argument.data());
        }
        pointers.push_back(nullptr);
        pid_t process = -1;
        EXPECT_EQ(
            ::posix_spawn(&process, ORBIX_LINK_SIDE, nullptr, nullptr, pointers.data(), environ),
            0);
        return process;
    }
    std::string Log() const { return ReadWholeFile(folder + "/log").value_or(""); }
    // Until the log says so and nobody is inside the device: a process that is stopped or killed
    // in there would leave its mark.
    void AwaitLog(const std::string& log) const {
        while (Log() != log || std::filesystem::exists(folder + "/inside")) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    static int End(pid_t process, int signal) {
        int status = -1;
        if (signal != 0) {
            ::kill(process, signal);
        }
        ::waitpid(process, &status, 0);
        return status;
    }

    std::string folder;
    FastClock clock;
};

TEST_F(ContentionTest, TenThreadsAndTwoProcessesNeverOverlap) {
    const pid_t first = Start({"send", folder, "x", "3"});
    const pid_t second = Start({"send", folder, "y", "3"});
    std::vector<std::thread> threads;
    for (char letter = 'a'; letter < 'k'; ++letter) {
        threads.emplace_back([this, letter] {
            ContestedDevice device(folder);
            LocalLink link;
            link.Open("contested", device);
            SendRepeatedly(link, letter, 1);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(End(first, 0), 0);
    EXPECT_EQ(End(second, 0), 0);
    std::string log = Log();
    std::sort(log.begin(), log.end());
    EXPECT_EQ(log, "abcdefghijxxxyyy");
}

TEST_F(ContentionTest, HolderGivesWayDiesOrIsStopped) {
    ContestedDevice device(folder);
    LocalLink link;
    link.Open("contested", device);
    const auto take = [&] {
        const DWORD start = GetTickCount();
        EXPECT_EQ(link.Manager().SendData("t", 1), 1);
        EXPECT_TRUE(link.IsOwned());
        return GetTickCount() - start;
    };
    const pid_t answering = Start({"hold", folder});
    AwaitLog("h");
    EXPECT_LT(take(), 10'000U);
    EXPECT_EQ(clock.waits, 1);
    End(answering, SIGKILL);

    const pid_t killed = Start({"hold", folder});
    AwaitLog("hth");
    EXPECT_FALSE(link.IsOwned()) << "this side's own watch gave way";
    End(killed, SIGKILL);
    LocalLink heir;  // sits where the dead one sat among the sides
    heir.Open("contested", device);
    take();
    EXPECT_EQ(clock.waits, 1) << "a dead holder is not waited for";

    const pid_t stopped = Start({"hold", folder});
    AwaitLog("hthth");
    ::kill(stopped, SIGSTOP);
    EXPECT_GE(take(), 10'000U);
    EXPECT_EQ(clock.waits, 2);
    End(stopped, SIGKILL);
    EXPECT_EQ(Log(), "hththt");
}

TEST_F(ContentionTest, ClosedOrRenamedLinkLeavesTheDeviceToOthers) {
    ContestedDevice device(folder);
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
