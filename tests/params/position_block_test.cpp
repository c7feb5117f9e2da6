#include <gtest/gtest.h>

#include "params/param_block.h"
#include "tests/params/block_support.h"

namespace {

std::string DeviceMessage(const CZurParamPort& port) {
    std::strstream stream;
    st_paramStream record{0, 0, 0, &stream};
    EXPECT_TRUE(port.GetParam(5, &record, kSizeParamStream));
    std::string bytes(static_cast<std::size_t>(stream.pcount()), '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return Hex(bytes);
}

TEST(PositionBlock, DefaultIsZeroAndTakes42Bytes) {
    CQelCPB_3DPosition block;
    for (std::uint32_t id = 2800; id <= 2806; ++id) {
        EXPECT_EQ(Number(block, id), 0) << id;
    }
    EXPECT_EQ(Number(block, 2807), -1);
    EXPECT_EQ(DeviceMessage(block), "F0 43 79 08 7F 29 00 00 00 00 00 00 00 00 00 00 00 F7");
    block.SetID(2903);
    EXPECT_EQ(WrittenHex(block),
              "00 00 0B 57 00 00 00 22 00 00 00 00 00 00 00 1A 00 00 00 01 00 00 0A F0 00 00 00 0E "
              "00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    t_paramIdList ids;
    EXPECT_TRUE(Held(block)->Get(3, &ids, kSizeIdList) && Held(block)->Get(4, &ids, kSizeIdList));
    EXPECT_EQ(ids, (t_paramIdList{2800, 2801, 2802, 2803, 2804, 2805, 2806, 2800}));
}

TEST(PositionBlock, LimitsWhatIsSet) {
    struct {
        std::uint32_t id, set, stored;
    } const cases[] = {{2800, 999'999'999, 999'999'999},
                       {2800, 1'000'000'000, 999'999'999},
                       {2800, 0xFFFFFFFF, 0x3B9AC9FF},
                       {2801, 3, 3},
                       {2801, 5, 3},
                       {2801, 200, 0},
                       {2801, 0xFFFFFFFF, 0},
                       {2801, 0x101, 1},
                       {2802, 16, 15},
                       {2802, 0x80, 0},
                       {2803, 3, 2},
                       {2803, 0xFF, 0},
                       {2804, 0xFFFFFFFF, 4},
                       {2804, 200, 123},
                       {2804, 2, 2},
                       {2804, 0x7FFF, 123},
                       {2804, 0x8000, 4},
                       {2804, 0x10005, 5},
                       {2805, 0xFB, 34},
                       {2805, 100, 94},
                       {2805, 10, 10},
                       {2806, 0x80000000, 0x7FFFFFFF},
                       {2806, 0x7FFFFFFF, 0x7FFFFFFF}};
    for (const auto& test : cases) {
        CQelCPB_3DPosition block;
        EXPECT_TRUE(SetNumber(block, test.id, test.set)) << test.id << " " << test.set;
        EXPECT_EQ(Number(block, test.id), test.stored) << test.id << " " << test.set;
    }
}

TEST(PositionBlock, EachParameterKeepsToItsBytesAndBits) {
    CQelCPB_3DPosition block;
    const std::uint32_t values[] = {0x01020304, 2, 9, 1, 123, 74, 0x0A0B0C0D};
    for (std::uint32_t i = 0; i < 7; ++i) {
        EXPECT_TRUE(SetNumber(block, 2800 + i, values[i]));
    }
    st_paramChild child{2800, -1, nullptr};
    ASSERT_TRUE(block.GetParam(7, &child, kSizeParamChild));
    EXPECT_EQ(WrittenHex(*child.block),
              "00 00 0A F0 00 00 00 0E 01 02 03 04 02 09 01 00 7B 4A 0A 0B 0C 0D");

    st_paramValue record{5, 0xAABBCCDD};
    EXPECT_TRUE(block.GetParam(2801, &record, kSizeParamValue));
    EXPECT_EQ(record.value, 0xAABBCC02);
    EXPECT_TRUE(block.GetParam(2804, &record, kSizeParamValue));
    EXPECT_EQ(record.value, 0xAABB007B);
    EXPECT_EQ(record.selector, 5);
    EXPECT_FALSE(block.GetParam(2800, &record, 4));
    EXPECT_FALSE(block.SetParam(2800, &record, 4));
    EXPECT_FALSE(block.GetParam(2800, nullptr, kSizeParamValue));
    EXPECT_EQ(record.value, 0xAABB007B);
}

TEST(PositionBlock, DeviceMessageHas18BytesWhateverIsMissing) {
    CQelCPB_3DPosition block;
    SetNumber(block, 2801, 2);
    SetNumber(block, 2806, 1000);
    SetNumber(block, 2804, 34);
    SetNumber(block, 2805, 74);
    SetNumber(block, 2800, 12345);
    EXPECT_EQ(DeviceMessage(block), "F0 43 79 08 7F 29 02 00 00 07 68 22 4A 00 00 00 00 F7");
    SetNumber(block, 2806, 0x80000000);
    EXPECT_EQ(DeviceMessage(block), "F0 43 79 08 7F 29 02 7F 7F 7F 7F 22 4A 00 00 00 00 F7");
    const auto clone = block.Clone();
    EXPECT_TRUE(block.DoParam(11, nullptr, 0));
    EXPECT_EQ(DeviceMessage(block), "F0 43 79 08 7F 29 00 00 00 00 00 00 00 00 00 00 00 F7");
    EXPECT_EQ(Number(block, 2801), -1);
    EXPECT_FALSE(SetNumber(block, 2801, 1));
    EXPECT_EQ(Number(dynamic_cast<CQelCPB_3DPosition&>(*clone), 2801), 2);
    st_paramStream nowhere;
    EXPECT_TRUE(block.GetParam(5, &nowhere, kSizeParamStream));
}

TEST(PositionBlock, AShortChildReadsAsZerosAndIsNotSetBeyondItsEnd) {
    Source source(
        Bytes("00 00 0B 57 00 00 00 1B 00 00 00 00 00 00 00 13 00 00 00 01"
              "00 00 0A F0 00 00 00 08 00 00 00 05 03 00 00 7F"));
    CQelCPB_3DPosition block(&source.stream);
    EXPECT_EQ(Number(block, 2800), 5);
    EXPECT_EQ(Number(block, 2801), 3);
    EXPECT_EQ(Number(block, 2804), 0x7F00);
    EXPECT_EQ(Number(block, 2806), 0);
    EXPECT_TRUE(SetNumber(block, 2801, 1));
    EXPECT_FALSE(SetNumber(block, 2804, 64));
    EXPECT_FALSE(SetNumber(block, 2806, 1));
    EXPECT_EQ(Number(block, 2804), 0x7F00);
    CQelCPB_3DPosition none(static_cast<std::strstream*>(nullptr));
    EXPECT_EQ(Held(none), nullptr);
}

}  // namespace
