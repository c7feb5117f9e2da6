#include "sequence/musical_time.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

constexpr std::uint32_t kLargest = 0xFFFFFFFF;
const std::vector<t_tSigMapRec> kNone;
const std::vector<t_tSigMapRec> kChanging = {{3, 1, 0, 3840, 3, 4}, {5, 1, 0, 6720, 6, 8}};

t_MBT Place(std::uint32_t tick, std::uint32_t division, const std::vector<t_tSigMapRec>& list) {
    t_MBT position;
    TickToMeasure(tick, division, list, position);
    return position;
}

t_MBT Split(std::uint32_t numerator, std::uint32_t denominator, std::uint32_t division,
            std::uint32_t ticks) {
    t_MBT position;
    SplitTicks(numerator, denominator, division, ticks, position);
    return position;
}

TEST(MusicalTime, TicksAndPlacesBothWays) {
    // The last of equal records holds.
    const std::vector<t_tSigMapRec> twice = {{1, 1, 0, 0, 4, 4}, {1, 1, 0, 0, 3, 4}};
    const std::tuple<const std::vector<t_tSigMapRec>*, std::uint32_t, t_MBT> cases[] = {
        {&kNone, 0, {1, 1, 0}},        {&kNone, 479, {1, 1, 479}},
        {&kNone, 480, {1, 2, 0}},      {&kNone, 1920, {2, 1, 0}},
        {&kChanging, 1920, {2, 1, 0}}, {&kChanging, 3839, {2, 4, 479}},
        {&kChanging, 3840, {3, 1, 0}}, {&kChanging, 5000, {3, 3, 200}},
        {&kChanging, 5280, {4, 1, 0}}, {&kChanging, 6720, {5, 1, 0}},
        {&kChanging, 6960, {5, 2, 0}}, {&kChanging, 8160, {6, 1, 0}},
        {&twice, 1440, {2, 1, 0}}};
    for (const auto& [list, tick, position] : cases) {
        EXPECT_EQ(Place(tick, 480, *list), position) << tick;
        EXPECT_EQ(MeasureToTick(position, 480, *list), tick);
    }
    const std::vector<t_tSigMapRec> odd = {{7, 3, 5, 100, 4, 4}};
    EXPECT_EQ(Place(100, 480, odd), (t_MBT{7, 3, 5}));       // a record's own place at its own tick
    EXPECT_EQ(Place(101, 480, odd), (t_MBT{7, 1, 1}));       // behind it beat and tick drop out
    EXPECT_EQ(MeasureToTick({1, 9, 0}, 480, kNone), 3840U);  // not held against the signature
    EXPECT_EQ(MeasureToTick({0, 1, 0}, 480, kNone), 0U - 1920U);
    EXPECT_EQ(MeasureToTick({1, 0, 0}, 480, kNone), 0U - 480U);
}

TEST(MusicalTime, TruncationOfBeatsAndMeasures) {
    EXPECT_EQ(Split(3, 8, 96, 154), (t_MBT{2, 1, 10}));
    EXPECT_EQ(Split(4, 16, 15, 12), (t_MBT{2, 1, 0}));  // beats of 3, though 15 * 4 / 16 is 3.75
    EXPECT_EQ(TicksPerMeasure(4, 16, 15), 15U);
    EXPECT_EQ(TicksPerMeasure(0, 4, 480), 0U);
}

TEST(MusicalTime, NeverDividesByZero) {
    EXPECT_EQ(Split(4, 32, 1, 9), (t_MBT{3, 2, 0}));           // a beat of one tick
    EXPECT_EQ(Split(0, 4, 480, 481), (t_MBT{2, 1, 1}));        // a measure of one beat
    EXPECT_EQ(Split(4, 0, 480, 1921), (t_MBT{1, 2, 1}));       // denominator 1
    EXPECT_EQ(Split(2, 1, 0x20000000, kLargest).measure, 2U);  // a measure that wrapped to 0
    EXPECT_EQ(TicksPerMeasure(4, 0, 10), 160U);
    EXPECT_EQ(BpmToTempo(0), TempoToBpm(0));
    EXPECT_EQ(TickToMilliseconds(4, 0, {}), 2000U);
    EXPECT_EQ(MillisecondsToTick(1000, 0, {}), 2U);
    EXPECT_EQ(MillisecondsToTick(1, 480, {{1, 1, 0, 0, 0}}), 480000U);
}

TEST(MusicalTime, Tempo) {
    EXPECT_EQ(BpmToTempo(7), 8571428U);
    EXPECT_EQ(TempoToBpm(500000), 120.0);
    EXPECT_EQ(TickToMilliseconds(1, 480, {}), 1U);
    const std::vector<t_tTempoRec> faster = {{1, 2, 0, 480, 250000}};
    EXPECT_EQ(TickToMilliseconds(960, 480, faster), 750U);
    EXPECT_EQ(MillisecondsToTick(750, 480, faster), 960U);
    EXPECT_EQ(MillisecondsToTick(499, 500, faster), 518U);
    EXPECT_EQ(MillisecondsToTick(500, 500, {}), 500U);
    std::vector<t_tTempoRec> every;  // 1.998 microseconds a tick, so 1 from record to record
    for (std::uint32_t tick = 0; tick < 9600; ++tick)
        every.push_back({1, 1, tick, tick, 959});
    EXPECT_EQ(TickToMilliseconds(9600, 480, every), 10U);
    EXPECT_EQ(TickToMilliseconds(9600, 480, {every.front()}), 19U);
}

TEST(MusicalTime, SumsBeyondTheWordAreHeld) {
    EXPECT_EQ(TickToMilliseconds(kLargest, 1, {}), 4294967U);
    const std::vector<t_tTempoRec> late = {{1, 1, 0, 0x80000000, 500000}};
    EXPECT_EQ(TickToMilliseconds(kLargest, 1, late), 4294967U);
    EXPECT_EQ(MillisecondsToTick(kLargest, 0xFFFFFFFF, {}), kLargest);
}

}  // namespace
