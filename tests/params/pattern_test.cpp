#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "params/number_blocks.h"
#include "params/time_sig_blocks.h"
#include "tests/params/block_support.h"

namespace {

using testing::ElementsAre;

std::string NameOf(const CQelCPB_3DPattern& pattern) {
    st_paramName record("untouched");
    pattern.GetParam(2902, &record, kSizeParamName);
    return record.name;
}

bool SetTimeSigs(CQelCPB_3DPattern& pattern, std::vector<t_tSigRec> records) {
    st_paramTimeSigRecords reference{&records};
    return pattern.SetParam(2914, &reference, kSizeReference);
}

TEST(Pattern, AFreshOneHasItsDefaults) {
    CQelCPB_3DPattern pattern;
    EXPECT_THAT(ChildIds(*Held(pattern)), ElementsAre(2900, 2901, 2902, 2907, 2906));
    EXPECT_EQ(NameOf(pattern), "New Pattern");
    EXPECT_EQ(Number(pattern, 2901), 0);
    EXPECT_EQ(Number(pattern, 2903), 0);
    EXPECT_EQ(Number(pattern, 2913), 480);
    EXPECT_THAT(TimeSigs(pattern), ElementsAre(t_tSigRec{0, 1, 1, 0, 4, 4}));
    EXPECT_TRUE(SetNumber(pattern, 2903, 7) && SetNumber(pattern, 2913, 0));
    EXPECT_EQ(Number(pattern, 2903), 7);
    EXPECT_EQ(Number(pattern, 2913), 0) << "any number is stored";
    EXPECT_FALSE(SetNumber(pattern, 2901, 1));
    t_paramIdList ids;
    EXPECT_TRUE(Held(pattern)->Get(3, &ids, kSizeIdList));
    EXPECT_EQ(ids.size(), 16U);
    EXPECT_TRUE(Held(pattern)->Get(4, &ids, kSizeIdList));
    EXPECT_EQ(ids.size(), 16U + 8U);
}

TEST(Pattern, NameIsCutInTheRecordAndKeptIn17Bytes) {
    CQelCPB_3DPattern pattern;
    st_paramName name("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    EXPECT_STREQ(name.name, "ABCDEFGHIJKLMNOPQRSTUVW");
    EXPECT_FALSE(pattern.SetParam(2902, &name, kSizeParamValue));
    EXPECT_EQ(NameOf(pattern), "New Pattern");
    EXPECT_TRUE(pattern.SetParam(2902, &name, kSizeParamName));
    EXPECT_STREQ(name.name, "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(NameOf(pattern), "ABCDEFGHIJKLMNOP");
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
    EXPECT_THAT(Ticks(pattern), ElementsAre(10, 25, 30));
    EXPECT_THAT(ChildIds(*Held(pattern)),
                ElementsAre(2900, 2901, 2902, 2907, 2906, 2903, 2903, 2903));

    for (std::uint32_t id = 2904; id <= 2910; ++id) {
        EXPECT_TRUE(SetNumber(pattern, id, 2, 1)) << id;
        EXPECT_EQ(Number(pattern, id, 1), 2) << id;
        EXPECT_FALSE(SetNumber(pattern, id, 2, 3)) << id;
        EXPECT_EQ(Number(pattern, id, 3), -1) << id;
    }
    EXPECT_TRUE(SetNumber(pattern, 2908, 999, -1)) << "-1 is the first; limited, yet true";
    EXPECT_EQ(Number(pattern, 2908, 0), 123);

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

    EXPECT_TRUE(pattern.DoParam(2911, nullptr, 0) && pattern.DoParam(2911, nullptr, 0));
    EXPECT_THAT(ChildIds(*Held(pattern)), ElementsAre(2900, 2901, 2902, 2907, 2906));
}

TEST(Pattern, TimeSignaturesGoInAndOut) {
    CQelCPB_3DPattern pattern;
    const std::vector<t_tSigRec> records = {{9, 1, 1, 0, 3, 4}, {9, 5, 2, 7, 7, 8}};
    EXPECT_TRUE(SetTimeSigs(pattern, records));
    const t_tSigRec first{0, 1, 1, 0, 3, 4};
    const t_tSigRec second{0, 5, 2, 7, 7, 8};
    EXPECT_THAT(TimeSigs(pattern), ElementsAre(first, second));
    auto twice = TimeSigs(pattern);
    st_paramTimeSigRecords reference{&twice};
    EXPECT_TRUE(pattern.GetParam(2914, &reference, kSizeReference)) << "appends";
    EXPECT_THAT(twice, ElementsAre(first, second, first, second));
    EXPECT_FALSE(pattern.GetParam(2914, &reference, kSizeParamValue));
    reference.records = nullptr;
    EXPECT_FALSE(pattern.GetParam(2914, &reference, kSizeReference));
    EXPECT_FALSE(pattern.SetParam(2914, &reference, kSizeReference));

    st_paramTimeSig fraction{1, {1, 2, 3}, 0, 0};
    EXPECT_TRUE(pattern.GetParam(2912, &fraction, kSizeParamTimeSig));
    EXPECT_EQ(fraction.numerator, 7U);
    EXPECT_EQ(fraction.denominator, 8U);
    EXPECT_EQ(fraction.unused[1], 2U);
    fraction.numerator = 0xAB0005;
    fraction.denominator = 0;
    EXPECT_FALSE(pattern.SetParam(2912, &fraction, kSizeParamTimeSig));
    EXPECT_EQ(TimeSigs(pattern)[1], (t_tSigRec{0, 5, 2, 7, 5, 8}));
    fraction.index = 2;
    EXPECT_FALSE(pattern.GetParam(2912, &fraction, kSizeParamTimeSig));

    EXPECT_TRUE(SetTimeSigs(pattern, {}));
    EXPECT_TRUE(TimeSigs(pattern).empty());
}

TEST(Pattern, TheListItselfGoesInAndOut) {
    CQelCPB_3DPattern pattern;
    st_paramTimeSigList reference{new CQelCPB_TimeSigList(1U)};
    EXPECT_TRUE(pattern.SetParam(2915, &reference, kSizeReference));
    EXPECT_FALSE(pattern.SetParam(2915, &reference, kSizeReference)) << "already there";
    EXPECT_THAT(ChildIds(*Held(pattern)), ElementsAre(2900, 2901, 2902, 2907, 2906, 2906));
    EXPECT_EQ(TimeSigs(pattern).size(), 1U) << "the older list is still the first";
    st_paramTimeSigList found;
    EXPECT_TRUE(pattern.GetParam(2915, &found, kSizeReference));
    EXPECT_NE(found.list, reference.list);

    EXPECT_TRUE(found.list->DoParam(51, nullptr, 0));
    EXPECT_TRUE(SetTimeSigs(pattern, {{}})) << "a list that holds nothing lets all succeed";
    EXPECT_TRUE(TimeSigs(pattern).empty());
    // A block of another kind under the list's identifier is none.
    Held(pattern)->Do(11, nullptr, 0);
    Held(pattern)->AddChild(std::make_unique<CZurIntParamBlock>(2906U), -1);
    EXPECT_FALSE(pattern.GetParam(2915, &found, kSizeReference));
    EXPECT_FALSE(SetTimeSigs(pattern, {}));
    EXPECT_EQ(Number(pattern, 2913), -1);
    EXPECT_FALSE(SetNumber(pattern, 2913, 96));
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
    EXPECT_THAT(Ticks(pattern), ElementsAre(10));
    pattern.DoParam(51, nullptr, 0);
    EXPECT_EQ(Held(CQelCPB_3DPattern(pattern)), nullptr);
    EXPECT_FALSE(clone->IsEqual(pattern));
}

TEST(Pattern, AnOldOrIncompleteTreeIsCompleted) {
    const std::string numerator = "00 00 0B 58 00 00 00 04 00 00 00 06";
    const std::string denominator = "00 00 0B 59 00 00 00 04 00 00 00 08";
    const std::string zero = "00 00 0B 58 00 00 00 04 00 00 00 00";
    const std::string list =
        "00 00 0B 5A 00 00 00 48 00 00 00 00 00 00 00 40 00 00 00 01 00 00 16 44 00 00 00 34"
        "00 00 00 00 00 00 00 2C 00 00 00 03 00 00 16 A8 00 00 00 0C 03 00 00 00 01 00 00 00"
        "00 00 00 00 00 00 16 A9 00 00 00 02 00 05 00 00 16 AA 00 00 00 02 00 10";
    struct {
        std::string children;
        char count;
        std::vector<std::uint32_t> ids;
        t_tSigRec first;
    } const cases[] = {
        {"", 0, {2906, 2907}, {0, 1, 1, 0, 4, 4}},
        {numerator + denominator, 2, {2906, 2907}, {0, 1, 1, 0, 6, 8}},
        {numerator + list, 2, {2906, 2907}, {0, 3, 1, 0, 6, 16}},
        {list + denominator + zero, 3, {2906, 2907}, {0, 3, 1, 0, 5, 8}},
        {"00 00 0B 5B 00 00 00 04 00 00 00 60", 1, {2907, 2906}, {0, 1, 1, 0, 4, 4}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.children);
        Source source(Bytes("00 00 00 00 00 00 00 00 00 00 00") + test.count +
                      Bytes(test.children));
        CQelCPB_3DPattern pattern;
        Held(pattern)->Do(11, nullptr, 0);
        Held(pattern)->ReadTree(&source.stream);
        EXPECT_EQ(ChildIds(*Held(pattern)), test.ids);
        EXPECT_THAT(TimeSigs(pattern), ElementsAre(test.first));
        EXPECT_EQ(NameOf(pattern), "untouched") << "no block, so the request fails";
    }
}

}  // namespace
