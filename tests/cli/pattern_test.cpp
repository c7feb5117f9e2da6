#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell.h"
#include "tests/support/stored_pattern.h"

namespace {

using Names = std::set<std::string>;

const std::string kHeader =
    "Division,480\r\n3D ID,Meas,Beat,Tick,Distance,Azimuth,Elevation,TimeSig.\r\n";
const std::string kText = kHeader + ",1,1,0,,,,4_4\r\n0,1,1,0,1000,0,0\r\n";
const std::string kPattern = PatternOf(1, TimeSigBlock(), 1, PositionBlock(0, 0));

TEST(PatternFile, StreamsCarryTheSameTableInBothForms) {
    const Shell shell;
    EXPECT_EQ(shell.Run("orbix convert - - --from 3dp --to csv", kPattern),
              (Outcome{0, kText, ""}));
    EXPECT_EQ(shell.Run("orbix convert - - --from csv --to 3dp --name Orbit", kText),
              (Outcome{0, kPattern, ""}));
}

TEST(PatternFile, KeepsWhatItCarriesBesides) {
    const std::string foreign = Block(4711, "stays");
    const auto pattern = [&foreign](std::uint32_t distance) {
        return PatternOf(1, TimeSigBlock(), 2, foreign + PositionBlock(480, 3, distance));
    };
    EXPECT_EQ(Shell().Run("orbix convert - - --from 3dp --to 3dp --strict", pattern(1010)),
              (Outcome{4, pattern(1000),
                       "orbix: standard input: Index=1 : Distance Changed (1010)->(1000)\n"}));
}

TEST(PatternFile, AnOddNameHarmsNobody) {
    const Shell shell;
    EXPECT_THAT(shell.Run("orbix info --from 3dp -", PatternOf(0, "", 0, "", "\x1B[2J\x7F")).out,
                testing::HasSubstr("\nName:     ?[2J?\n"));
    // What is no UTF-8 costs that byte, not the answer.
    EXPECT_THAT(shell.Run("orbix show --json --from 3dp -", PatternOf(0, "", 0, "", "a\xFF")).out,
                testing::StartsWith("{\n  \"name\": \"a\xEF\xBF\xBD\",\n"));
}

// A doubled time signature has its own line and is not counted again.
TEST(PatternFile, WhatIsOverTheLimitIsTold) {
    std::string positions;
    for (int i = 0; i < 258; ++i) {
        positions += PositionBlock(0, 0);
    }
    EXPECT_EQ(Shell().Run("orbix check --from 3dp -",
                          PatternOf(2, TimeSigBlock() + TimeSigBlock(), 258, positions)),
              (Outcome{4,
                       "Index=1 : TimeSig. event is already existing (Entry ignored)\n"
                       "2 events over the limit of 256 an ID (Entries ignored)\n",
                       ""}));
}

// What is refused is tested where it is read; here, that no length is believed.
TEST(PatternFile, ARefusalNamesByteAndBlock) {
    const auto with = [](std::size_t offset, const std::string& bytes) {
        return std::string(kPattern).replace(offset, bytes.size(), bytes);
    };
    const std::pair<std::string, std::string> refusals[] = {
        {"", "0, pattern: expected a pattern of at least 20 bytes, found nothing\n"},
        {with(16, Word(0xFFFFFFFF)), "16, pattern: "},
        {with(56, Word(0xFFFFFFFF)), "56, pattern > name (block 2901, child 2): "},
        {PatternOf(70000, "", 0, ""), "117, pattern > time signatures (block 2906, child 5): "},
        {PatternOf(0, "", 1, Block(4711, "x").replace(4, 4, Word(0xFFFFFFF0))),
         "125, pattern > unknown (block 4711, child 6): "},
    };
    const Shell shell;
    for (const auto& [input, words] : refusals) {
        const Outcome outcome = shell.Run("orbix convert --from 3dp - out.csv", input);
        EXPECT_EQ(outcome.code, 3) << words;
        EXPECT_THAT(outcome.err, testing::StartsWith(
                                     "orbix: standard input: not a 3D pattern: at byte " + words));
    }
    EXPECT_EQ(shell.Names(), Names());
}

// A process a cut is dear: a few that fall into every part of the input.
TEST(BadInput, CutShortIsRefusedWholeOrTakenWhole) {
    for (const auto& [kind, whole] : {std::pair("3dp", kPattern), std::pair("csv", kText)}) {
        for (std::size_t length = 0; length < whole.size(); length += 9) {
            const Shell shell;
            const Outcome outcome = shell.Run(std::string("orbix convert - out.3dp --from ") + kind,
                                              whole.substr(0, length));
            const bool mayPass = whole == kText && length > kHeader.size();
            EXPECT_TRUE(outcome.code == 3 || (mayPass && outcome.code == 0)) << length << outcome;
            EXPECT_EQ(shell.Names(), outcome.code == 0 ? Names{"out.3dp"} : Names()) << length;
        }
    }
}

}  // namespace
