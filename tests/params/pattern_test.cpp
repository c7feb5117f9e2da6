#include <gmock/gmock.h>

#include "params/number_blocks.h"
#include "params/time_sig_blocks.h"
#include "tests/params/block_support.h"
#include "tests/support/data.h"

namespace {

const std::string kFresh = "2900 2901 2902 2907 2906 | New Pattern | 0 480 | 1:1:0 4/4";

std::string NameOf(const CQelCPB_3DPattern& pattern) {
    st_paramName record("untouched");
    pattern.GetParam(2902, &record, kSizeParamName);
    return record.name;
}

TEST(Pattern, AFreshOneHasItsDefaults) {
    CQelCPB_3DPattern pattern;
    EXPECT_EQ(TextOf(pattern), kFresh);
    EXPECT_TRUE(SetNumber(pattern, 2903, 7) && SetNumber(pattern, 2913, 0)) << "any number";
    EXPECT_FALSE(SetNumber(pattern, 2901, 1));
    EXPECT_EQ(TextOf(pattern), "2900 2901 2902 2907 2906 | New Pattern | 7 0 | 1:1:0 4/4");
    t_paramIdList ids;
    EXPECT_TRUE(Held(pattern)->Get(3, &ids, kSizeIdList) && ids.size() == 16U);
    EXPECT_TRUE(Held(pattern)->Get(4, &ids, kSizeIdList) && ids.size() == 16U + 8U);
}

TEST(Pattern, NameIsCutInTheRecordAndKeptIn17Bytes) {
    CQelCPB_3DPattern pattern;
    st_paramName name("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    EXPECT_STREQ(name.name, "ABCDEFGHIJKLMNOPQRSTUVW");
    EXPECT_FALSE(pattern.SetParam(2902, &name, kSizeParamValue));
    EXPECT_EQ(NameOf(pattern), "New Pattern");
    EXPECT_TRUE(pattern.SetParam(2902, &name, kSizeParamName));
    EXPECT_EQ(NameOf(pattern), "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(NameOf(pattern), name.name);
    st_paramName shorter("xy");
    EXPECT_TRUE(pattern.SetParam(2902, &shorter, kSizeParamName));
    EXPECT_EQ(WrittenHex(*Held(pattern)->FindChild(2901, -1)),
              "00 00 0B 55 00 00 00 11 78 79 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    // A stored name may be longer than a record and lack its end.
    Source source(Bytes("00 00 00 00 00 00 00 30 00 00 00 01 00 00 0B 55 00 00 00 1C") +
                  std::string(28, 'z'));
    Held(pattern)->Do(11, nullptr, 0);
    Held(pattern)->ReadTree(&source.stream);
    EXPECT_EQ(NameOf(pattern), std::string(23, 'z'));
    EXPECT_TRUE(pattern.SetParam(2902, &shorter, kSizeParamName));
    EXPECT_EQ(NameOf(pattern), "xy");
}

TEST(Pattern, PositionEventsAreReplacedAppendedAndRemoved) {
    CQelCPB_3DPattern pattern;
    EXPECT_TRUE(PutPosition(pattern, 10, 0) && PutPosition(pattern, 20, 1) &&
                PutPosition(pattern, 30, 7) && PutPosition(pattern, 25, 1));
    for (std::uint32_t id = 2905; id <= 2910; ++id) {
        EXPECT_TRUE(SetNumber(pattern, id, id - 2903, 1)) << id;
        EXPECT_FALSE(SetNumber(pattern, id, 2, 3)) << id;
        EXPECT_EQ(Number(pattern, id, 3), -1) << id;
    }
    EXPECT_TRUE(SetNumber(pattern, 2908, 999, -1)) << "-1 is the first; limited, yet true";
    const std::string three =
        "2900 2901 2902 2907 2906 2903 2903 2903 | New Pattern | 0 480 | 1:1:0 4/4 | "
        "10 0 0 0 123 0 0 | 25 2 3 2 5 6 7 | 30 0 0 0 0 0 0";
    EXPECT_EQ(TextOf(pattern), three);

    st_paramChild record{1, 1, nullptr};
    EXPECT_TRUE(pattern.GetParam(2900, &record, kSizeParamChild));
    EXPECT_EQ(Number(dynamic_cast<CQelCPB_3DPosition&>(*record.block), 2801), 2);
    EXPECT_TRUE(pattern.SetParam(2900, &record, kSizeParamChild)) << "into its own place";
    record = {1, 3, nullptr};
    EXPECT_FALSE(pattern.GetParam(2900, &record, kSizeParamChild));
    EXPECT_EQ(record.id, 2903U) << "written even so";
    EXPECT_FALSE(pattern.SetParam(2900, &record, kSizeParamChild));
    CZurIntParamBlock wrong(1U);
    record.block = &wrong;
    EXPECT_FALSE(pattern.SetParam(2900, &record, kSizeParamChild)) << "not a position: not taken";
    EXPECT_EQ(TextOf(pattern), three);
    EXPECT_TRUE(pattern.DoParam(2911, nullptr, 0) && pattern.DoParam(2911, nullptr, 0));
    EXPECT_EQ(TextOf(pattern), kFresh);
}

TEST(Pattern, TimeSignaturesGoInAndOut) {
    CQelCPB_3DPattern pattern;
    EXPECT_TRUE(SetTimeSigs(pattern, {{9, 1, 1, 0, 3, 4}, {9, 5, 2, 7, 7, 8}}));
    const t_tSigRec first{0, 1, 1, 0, 3, 4}, second{0, 5, 2, 7, 7, 8};
    std::vector<t_tSigRec> twice{first, second};
    st_paramTimeSigRecords reference{&twice};
    EXPECT_TRUE(pattern.GetParam(2914, &reference, kSizeReference)) << "appends";
    EXPECT_EQ(twice, (std::vector{first, second, first, second}));
    EXPECT_FALSE(pattern.GetParam(2914, &reference, kSizeParamValue));
    reference.records = nullptr;
    EXPECT_FALSE(pattern.GetParam(2914, &reference, kSizeReference));
    EXPECT_FALSE(pattern.SetParam(2914, &reference, kSizeReference));

    st_paramTimeSig fraction{1, {1, 2, 3}, 0, 0};
    EXPECT_TRUE(pattern.GetParam(2912, &fraction, kSizeParamTimeSig));
    EXPECT_EQ((std::vector{fraction.numerator, fraction.unused[1], fraction.denominator}),
              (std::vector{7U, 2U, 8U}));
    fraction.numerator = 0xAB0005;
    fraction.denominator = 0;
    EXPECT_FALSE(pattern.SetParam(2912, &fraction, kSizeParamTimeSig));
    EXPECT_EQ(TextOf(pattern),
              "2900 2901 2902 2907 2906 | New Pattern | 0 480 | 1:1:0 3/4 5:2:7 5/8");
    fraction.denominator = 16;
    EXPECT_TRUE(pattern.SetParam(2912, &fraction, kSizeParamTimeSig));
    EXPECT_THAT(TextOf(pattern), testing::EndsWith("3/4 5:2:7 5/16"));
    fraction.index = 2;
    EXPECT_FALSE(pattern.GetParam(2912, &fraction, kSizeParamTimeSig));
    EXPECT_TRUE(SetTimeSigs(pattern, {}));
    EXPECT_EQ(TextOf(pattern), "2900 2901 2902 2907 2906 | New Pattern | 0 480 |");
}

TEST(Pattern, TheListItselfGoesInAndOut) {
    CQelCPB_3DPattern pattern;
    st_paramTimeSigList reference{new CQelCPB_TimeSigList(1U)};
    EXPECT_TRUE(pattern.SetParam(2915, &reference, kSizeReference));
    EXPECT_FALSE(pattern.SetParam(2915, &reference, kSizeReference)) << "already there";
    EXPECT_EQ(TextOf(pattern), "2900 2901 2902 2907 2906 2906 | New Pattern | 0 480 | 1:1:0 4/4")
        << "the older list is still the first";
    st_paramTimeSigList found;
    EXPECT_TRUE(pattern.GetParam(2915, &found, kSizeReference));
    EXPECT_NE(found.list, reference.list);
    EXPECT_TRUE(found.list->DoParam(51, nullptr, 0));
    EXPECT_TRUE(SetTimeSigs(pattern, {{}})) << "a list that holds nothing lets all succeed";
    EXPECT_EQ(TextOf(pattern), "2900 2901 2902 2907 2906 2906 | New Pattern | 0 480 |");
    // A block of another kind under the list's identifier is none.
    Held(pattern)->Do(11, nullptr, 0);
    Held(pattern)->AddChild(std::make_unique<CZurIntParamBlock>(2906U), -1);
    EXPECT_FALSE(pattern.GetParam(2915, &found, kSizeReference));
    EXPECT_FALSE(SetTimeSigs(pattern, {}));
    EXPECT_FALSE(SetNumber(pattern, 2913, 96));
    EXPECT_EQ(TextOf(pattern), "2906 | - | -1 -1 | -");
}

TEST(Pattern, CopiesAreDeepAndEqualUntilChanged) {
    CQelCPB_3DPattern pattern;
    PutPosition(pattern, 10);
    const auto clone = pattern.Clone();
    EXPECT_TRUE(clone->IsEqual(pattern));
    EXPECT_EQ(WrittenHex(*clone), WrittenHex(pattern));
    CQelCPB_3DPattern copy(pattern);
    SetNumber(copy, 2904, 11, 0);
    EXPECT_FALSE(copy.IsEqual(pattern));
    EXPECT_EQ(Number(pattern, 2904, 0), 10);
    pattern.DoParam(51, nullptr, 0);
    EXPECT_EQ(Held(CQelCPB_3DPattern(pattern)), nullptr);
    EXPECT_FALSE(clone->IsEqual(pattern));
}

TEST(Pattern, AnOldOrIncompleteTreeIsCompleted) {
    for (const auto& row : TestTable("old_patterns.txt")) {
        Source source(Bytes("00 00 00 00 00 00 00 00 00 00 00" + row[0]));
        CQelCPB_3DPattern pattern;
        Held(pattern)->Do(11, nullptr, 0);
        Held(pattern)->ReadTree(&source.stream);
        EXPECT_EQ(TextOf(pattern), row[1]) << row[0];
    }
}

}  // namespace
