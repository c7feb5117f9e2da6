#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "params/time_sig_blocks.h"
#include "tests/params/block_support.h"

namespace {

using testing::ElementsAre;

TEST(TimeSig, GetsAndSetsItsThreeParts) {
    CQelCPB_TimeSig block(0U, {2, 3, 30}, 6, 8);
    const std::string written =
        "00 00 00 00 00 00 00 34 00 00 00 00 00 00 00 2C 00 00 00 03 "
        "00 00 16 A8 00 00 00 0C 02 00 00 00 03 00 00 00 1E 00 00 00 "
        "00 00 16 A9 00 00 00 02 00 06 00 00 16 AA 00 00 00 02 00 08";
    st_paramTimeValue time;
    EXPECT_TRUE(block.GetParam(5800, &time, kSizeParamTimeValue));
    EXPECT_THAT((std::vector{time.measure, time.beat, time.tick}), ElementsAre(2, 3, 30));
    EXPECT_FALSE(SetNumber(block, 5801, 0));
    EXPECT_FALSE(SetNumber(block, 5802, 0x10000)) << "only the low half counts";
    for (const auto& refused : {st_paramTimeValue{-1, 0, 1, 0}, st_paramTimeValue{-1, 1, 0, 0}}) {
        auto record = refused;
        EXPECT_FALSE(block.SetParam(5800, &record, kSizeParamTimeValue));
    }
    time = {-1, 0xFFFFFFFF, 1, 0};
    EXPECT_FALSE(block.SetParam(5800, &time, kSizeParamValue));
    EXPECT_EQ(WrittenHex(block), written);
    EXPECT_TRUE(block.SetParam(5800, &time, kSizeParamTimeValue)) << "unsigned, tick may be 0";
    EXPECT_TRUE(SetNumber(block, 5801, 65535));
    EXPECT_EQ(Number(block, 5802), 8);
    EXPECT_EQ(WrittenHex(block).substr(28 * 3, 22 * 3 - 1),
              "FF FF FF FF 01 00 00 00 00 00 00 00 00 00 16 A9 00 00 00 02 FF FF");
    t_paramIdList ids;
    EXPECT_TRUE(Held(block)->Get(3, &ids, kSizeIdList) && Held(block)->Get(4, &ids, kSizeIdList));
    EXPECT_THAT(ids, ElementsAre(5800, 5801, 5802, 5800, 5801, 5802));
}

TEST(TimeSig, AShortTimeReadsAsZerosAndIsNotSet) {
    Source source(
        Bytes("00 00 16 44 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 02"
              "00 00 16 A8 00 00 00 05 07 00 00 00 02  00 00 16 A9 00 00 00 01 03"));
    CQelCPB_TimeSig block(&source.stream);
    st_paramTimeValue time;
    EXPECT_TRUE(block.GetParam(5800, &time, kSizeParamTimeValue));
    EXPECT_THAT((std::vector{time.measure, time.beat, time.tick}), ElementsAre(7, 2, 0));
    EXPECT_FALSE(block.SetParam(5800, &time, kSizeParamTimeValue));
    EXPECT_FALSE(SetNumber(block, 5802, 4));
    EXPECT_EQ(Number(block, 5802), -1) << "no such child";
}

CQelCPB_TimeSig* Entry(std::uint16_t numerator) {
    return new CQelCPB_TimeSig(0U, {1, 1, 0}, numerator, 4);
}

std::vector<std::int64_t> Numerators(const CQelCPB_TimeSigList& list) {
    t_paramTimeSigEntryList entries;
    EXPECT_TRUE(list.GetParam(5702, &entries, kSizeTimeSigEntryList));
    std::vector<std::int64_t> numerators;
    for (const auto& entry : entries) {
        EXPECT_EQ(entry.measure, 1U);
        numerators.push_back(Number(*entry.block, 5801));
    }
    return numerators;
}

TEST(TimeSigList, ReplacesAppendsAndRemoves) {
    CQelCPB_TimeSigList list(2906U);
    const auto put = [&list](std::int32_t index, CQelCPB_TimeSig* block) {
        st_paramTimeSigEntry entry{index, 1, 1, 0, block};
        return list.SetParam(5701, &entry, kSizeParamTimeSigEntry);
    };
    EXPECT_TRUE(put(0, Entry(2)) && put(-1, Entry(3)) && put(9, Entry(5)) && put(1, Entry(7)));
    EXPECT_FALSE(put(0, nullptr));
    EXPECT_THAT(Numerators(list), ElementsAre(2, 7, 5));
    EXPECT_EQ(Number(list, 5700), 3);
    EXPECT_THAT(ChildIds(*Held(list)), ElementsAre(5700, 5700, 5700));
    t_paramIdList ids;
    EXPECT_TRUE(Held(list)->Get(3, &ids, kSizeIdList) && Held(list)->Get(4, &ids, kSizeIdList));
    EXPECT_THAT(ids, ElementsAre(5700, 5701, 5702, 5703, 5704, 5700));
    st_paramTimeSigEntry first{-1};
    EXPECT_TRUE(list.GetParam(5701, &first, kSizeParamTimeSigEntry));
    EXPECT_EQ(Number(*first.block, 5801), 2);
    first.index = 3;
    EXPECT_FALSE(list.GetParam(5701, &first, kSizeParamTimeSigEntry));

    st_paramValue position{-1, 3};
    EXPECT_TRUE(list.DoParam(5703, &position, kSizeParamValue)) << "nothing there";
    position.value = 0;
    EXPECT_FALSE(list.DoParam(5703, &position, 4));
    EXPECT_TRUE(list.DoParam(5703, &position, kSizeParamValue));
    EXPECT_THAT(Numerators(list), ElementsAre(7, 5));
    EXPECT_TRUE(list.DoParam(5704, nullptr, 0));
    EXPECT_EQ(Number(list, 5700), 0);
}

TEST(TimeSigList, TakesAWholeListAndEvenItsOwnBack) {
    CQelCPB_TimeSigList list(2906U);
    t_paramTimeSigEntryList entries(4);
    entries[0] = {0, 1, 1, 0, Entry(2)};
    entries[1] = {0, 1, 1, 0, Entry(3)};  // index 0 again: still appended
    entries[3] = {-1, 1, 1, 0, Entry(5)};
    EXPECT_FALSE(list.SetParam(5702, &entries, kSizeParamTimeSigEntry));
    EXPECT_TRUE(list.SetParam(5702, &entries, kSizeTimeSigEntryList));
    EXPECT_THAT(Numerators(list), ElementsAre(2, 3, 5));

    t_paramTimeSigEntryList again;
    EXPECT_TRUE(list.GetParam(5702, &again, kSizeTimeSigEntryList));
    std::swap(again[0], again[2]);
    again.erase(again.begin() + 1);
    again.push_back(again[0]);
    again.push_back({-1, 1, 1, 0, Entry(9)});
    EXPECT_TRUE(list.SetParam(5702, &again, kSizeTimeSigEntryList));
    EXPECT_THAT(Numerators(list), ElementsAre(5, 2, 9)) << "one block is one entry";
    again.clear();
    EXPECT_TRUE(list.SetParam(5702, &again, kSizeTimeSigEntryList));
    EXPECT_EQ(Number(list, 5700), 0);
}

}  // namespace
