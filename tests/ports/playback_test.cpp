#include "ports/playback.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/test_clock.h"

namespace {

using Times = std::vector<DWORD>;

// When each message goes out on a clock that only rests move on, and when all is done; `refused`
// is the number of the message that is not taken.
Times SendTimes(std::size_t count, std::size_t bytes, DWORD gap, std::size_t refused = 99) {
    const FakeClock clock;
    Times times;
    const std::vector<std::string> messages(count, std::string(bytes, 'x'));
    const std::size_t sent = PlayOut(messages, gap,
                                     {[&](const std::string& message) {
                                          EXPECT_EQ(message.size(), bytes);
                                          times.push_back(clock.Elapsed());
                                          return times.size() != refused;
                                      },
                                      {}});
    EXPECT_EQ(sent, std::min(count, refused - 1));
    times.push_back(clock.Elapsed());
    return times;
}

TEST(Playback, KeepsToTheWireAndLeavesItEmpty) {
    // 18 bytes are 5.76 ms; the clock has whole ones, and what they round up is given back.
    EXPECT_EQ(SendTimes(5, 18, 0), (Times{0, 6, 12, 18, 24, 29}));
    EXPECT_EQ(SendTimes(101, 18, 0, 200).back(), 582U);
    EXPECT_EQ(SendTimes(3, 18, 100), (Times{0, 106, 212, 218})) << "no gap behind the last";
    EXPECT_EQ(SendTimes(2, 3125, 0), (Times{0, 1000, 2000}));
    EXPECT_EQ(SendTimes(0, 18, 5), Times{0});
    EXPECT_EQ(SendTimes(3, 18, 0, 2), (Times{0, 6, 6})) << "ends with the first refused";
}

TEST(Playback, AHoldUpIsNotMadeUpForInABurst) {
    FakeClock clock;
    Times times;
    std::vector<std::size_t> progress;
    PlayOut(std::vector<std::string>(12, std::string(18, 'x')), 0,
            {[&](const std::string&) {
                 clock.now += times.size() == 1 ? 1000 : 0;
                 times.push_back(clock.Elapsed());
                 return true;
             },
             [&](std::size_t sent) { progress.push_back(sent); }});
    EXPECT_THAT(times, testing::ElementsAre(0, 1006, 1006, 1008, 1014, 1020, 1025, 1031, 1037, 1043,
                                            1048, 1054));
    EXPECT_EQ(progress.back(), 12U);
}

}  // namespace
