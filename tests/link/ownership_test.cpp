#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "link/smw_manager.h"
#include "tests/link/test_clock.h"

namespace {

using testing::ElementsAre;

struct NotingDevice : Device {
    bool PrepareOutput(std::uint32_t value) override {
        notes.push_back("prepare " + std::to_string(value));
        std::this_thread::yield();  // a second thread inside would show in the notes
        return ready;
    }
    std::int32_t WriteBlock(const void* data, std::uint32_t length) override {
        notes.emplace_back(static_cast<const char*>(data), length);
        return result;
    }
    std::vector<std::string> notes;
    bool ready = true;
    std::int32_t result = 3;
};

struct Shared {
    CSingleLock mainLock, stateLock;
    CEvent release, held;
};

struct Side {
    explicit Side(Shared& s)
        : ownership(
              &s.mainLock, &s.stateLock, &s.release, &s.held,
              [](void* self) { ++static_cast<Side*>(self)->acquired; },
              [](void* self) { ++static_cast<Side*>(self)->released; }, this) {}
    ~Side() { ownership.GiveUp(); }
    std::atomic<int> acquired = 0, released = 0;
    CDeviceOwnership ownership;
};

struct LinkTest : testing::Test {
    FakeClock clock;
    Shared shared;
    Side side{shared};
    NotingDevice device;
    CEvent block;
    CSingleLock busy;
    CZurSMWMan manager{&side.ownership, &device, &block, &busy};
    CDeviceOwnership bare{nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr};

    void ExpectIdle() const {
        EXPECT_FALSE(busy.IsLocked());
        EXPECT_FALSE(shared.mainLock.IsLocked());
        EXPECT_FALSE(shared.stateLock.IsLocked());
    }
};

TEST_F(LinkTest, SendTakesPreparesAndWritesInThisOrder) {
    EXPECT_EQ(manager.SendData("abc", 3), 3);
    EXPECT_THAT(device.notes, ElementsAre("prepare 1", "abc"));
    EXPECT_EQ(clock.Elapsed(), 500U) << "a free device is looked at twice for 250 ms";
    EXPECT_TRUE(shared.held.IsSignalled());
    EXPECT_EQ(manager.SendData("de", 2), 3) << "the device's answer counts";
    EXPECT_TRUE(manager.PrepareDevice(7));
    EXPECT_THAT(device.notes, ElementsAre("prepare 1", "abc", "prepare 1", "de", "prepare 7"));
    EXPECT_EQ(clock.Elapsed(), 500U) << "what is held is not waited for";
    EXPECT_EQ(side.acquired, 1);
    EXPECT_TRUE(clock.cursor.empty());
    ExpectIdle();
}

TEST_F(LinkTest, NothingGoesOutWhenRefused) {
    const auto expectRefused = [&](CZurSMWMan& which, const char* why) {
        EXPECT_EQ(which.SendData("abc", 3), -1) << why;
        EXPECT_FALSE(which.PrepareDevice(1)) << why;
        EXPECT_TRUE(device.notes.empty()) << why;
        EXPECT_FALSE(side.ownership.IsOwned()) << why;
        EXPECT_EQ(clock.Elapsed(), 0U) << why;
        ExpectIdle();
    };
    CZurSMWMan partless[] = {{nullptr, &device, &block, &busy},
                             {&side.ownership, nullptr, &block, &busy},
                             {&side.ownership, &device, &block, nullptr},
                             {&bare, &device, nullptr, &busy}};
    for (CZurSMWMan& each : partless) {
        expectRefused(each, "a part is missing");
    }
    block.SetEvent();
    expectRefused(manager, "blocked");
    block.ResetEvent();
    device.ready = false;
    EXPECT_EQ(manager.SendData("abc", 3), -1);
    EXPECT_THAT(device.notes, ElementsAre("prepare 1")) << "no data for an unready device";
    device.notes.clear();
    side.ownership.GiveUp();
    clock.now = FakeClock::kStart;
    manager.Close();
    expectRefused(manager, "closed");
}

TEST_F(LinkTest, NestedGuardDoesNothing) {
    std::atomic<std::uint8_t> flag = 0;
    {
        const CBusyGuard outer(busy, flag);
        { const CBusyGuard inner(busy, flag); }
        EXPECT_TRUE(flag == 1 && busy.IsLocked());
    }
    EXPECT_FALSE(flag == 1 || busy.IsLocked());
    busy.Lock();
    {
        const CBusyGuard onPlainLock(busy, flag);
        EXPECT_EQ(flag, 0);
    }
    EXPECT_TRUE(busy.IsLocked());
    busy.Unlock();
}

TEST_F(LinkTest, LocksHeldByAnyoneAreWaitedFor) {
    int rests = 0;
    for (CSingleLock* const lock : {&busy, &shared.mainLock}) {
        lock->Lock();  // the busy lock without a guard
        rests = 0;
        clock.onSleep = [&, lock](DWORD) {
            if (++rests == 3) {
                lock->Unlock();
            }
        };
        EXPECT_TRUE(manager.EnsureOwned());
        clock.onSleep = nullptr;
        EXPECT_EQ(clock.Elapsed(), lock == &busy ? 503U : 506U);
    }
    side.ownership.GiveUp();

    shared.release.SetEvent();
    for (const bool takenAgain : {false, true}) {
        CSingleLock fresh;
        CDeviceOwnership watched(&fresh, &shared.stateLock, &shared.release, &shared.held, nullptr,
                                 nullptr, nullptr);
        fresh.Lock();
        rests = 0;
        clock.onSleep = [&](DWORD) {
            ++rests;
            if (rests >= 3) {
                fresh.Unlock();
            }
            if (rests == 3 && takenAgain) {
                fresh.Lock();
            }
        };
        EXPECT_EQ(CDeviceOwnership::OwnerWatch(&watched), 0U);
        EXPECT_EQ(rests, 3) << "the watch begins when the main lock has been free";
    }
    EXPECT_EQ(CDeviceOwnership::OwnerWatch(&bare), 0U);
}

TEST_F(LinkTest, AnotherSideGetsTheDeviceAndTheFirstLosesIt) {
    ASSERT_TRUE(side.ownership.Acquire());
    clock.onSleep = [&](DWORD milliseconds) {
        // Gives the watching thread real time to answer.
        for (int turn = 0; milliseconds == 250 && shared.held.IsSignalled() && turn < 5000;
             ++turn) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    };
    Side other(shared);
    EXPECT_TRUE(other.ownership.Acquire());
    EXPECT_TRUE(other.ownership.IsOwned());
    EXPECT_FALSE(side.ownership.IsOwned());
    EXPECT_EQ(side.released, 1);
    EXPECT_TRUE(shared.held.IsSignalled());
    EXPECT_FALSE(shared.release.IsSignalled()) << "the new holder is not asked to leave at once";
    EXPECT_THAT(clock.cursor, ElementsAre(true, false));

    side.ownership.GiveUp();
    EXPECT_TRUE(other.ownership.IsOwned()) << "giving up what one doesn't hold takes nothing away";
    EXPECT_TRUE(other.ownership.RequestRelease());
    EXPECT_EQ(other.released, 1);
    EXPECT_FALSE(shared.held.IsSignalled());
    ExpectIdle();
}

TEST_F(LinkTest, HolderThatNeverAnswersCountsAsGoneAfterTenSeconds) {
    shared.held.SetEvent();
    clock.onSleep = [&](DWORD milliseconds) {
        EXPECT_EQ(shared.stateLock.IsLocked(), milliseconds == 250);
        EXPECT_EQ(shared.release.IsSignalled(), true);
    };
    EXPECT_TRUE(side.ownership.Acquire());
    EXPECT_EQ(clock.Elapsed(), 10'250U)
        << "forty rests of 250 ms, then the look whether it is free";
    EXPECT_THAT(clock.cursor, ElementsAre(true, false));
    EXPECT_TRUE(shared.held.IsSignalled()) << "now by the new holder";
    EXPECT_FALSE(shared.release.IsSignalled());
    clock.onSleep = nullptr;
    ExpectIdle();
}

TEST_F(LinkTest, DeviceTakenAgainAtOnceIsNotOurs) {
    shared.held.SetEvent();
    clock.onSleep = [&](DWORD milliseconds) {
        if (milliseconds < 250) {
            shared.held.SetEvent();  // right after the time-out reset it
        }
    };
    EXPECT_FALSE(side.ownership.Acquire());
    EXPECT_FALSE(side.ownership.IsOwned());
    EXPECT_EQ(side.acquired, 0);
    ExpectIdle();
}

TEST_F(LinkTest, TenThreadsOnOneManagerWriteOneAtATime) {
    std::vector<std::jthread> threads;
    for (int number = 0; number < 10; ++number) {
        threads.emplace_back([&] {
            for (int turn = 0; turn < 50; ++turn) {
                EXPECT_EQ(manager.SendData("abc", 3), 3);
            }
        });
    }
    threads.clear();
    EXPECT_EQ(device.notes.size(), 1000U);
    EXPECT_EQ(side.acquired, 1);
    for (std::size_t index = 0; index < device.notes.size(); ++index) {
        ASSERT_EQ(device.notes[index], index % 2 == 0 ? "prepare 1" : "abc");
    }
}

}  // namespace
