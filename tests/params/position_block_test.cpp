#include <gtest/gtest.h>

#include <tuple>

#include "params/device_message.h"
#include "params/param_block.h"
#include "tests/params/block_support.h"

namespace {

std::string DeviceMessageBy(const CZurParamPort& port) {
    Source target("");
    st_paramStream record{0, 0, 0, &target.stream};
    EXPECT_TRUE(port.GetParam(5, &record, kSizeParamStream));
    return target.Rest();
}

TEST(PositionBlock, DefaultIsZeroAndTakes42Bytes) {
    CQelCPB_3DPosition block;
    EXPECT_EQ(Number(block, 2807), -1);
    EXPECT_EQ(DeviceMessageBy(block), "F0 43 79 08 7F 29 00 00 00 00 00 00 00 00 00 00 00 F7");
    block.SetID(2903);
    EXPECT_EQ(WrittenHex(block),
              "00 00 0B 57 00 00 00 22 00 00 00 00 00 00 00 1A 00 00 00 01 00 00 0A F0 00 00 00 0E "
              "00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    t_paramIdList ids;
    EXPECT_TRUE(Held(block)->Get(3, &ids, kSizeIdList) && Held(block)->Get(4, &ids, kSizeIdList));
    EXPECT_EQ(ids, (t_paramIdList{2800, 2801, 2802, 2803, 2804, 2805, 2806, 2800}));
}

TEST(PositionBlock, LimitsWhatIsSet) {
    const std::tuple<std::uint32_t, std::vector<std::uint32_t>, const char*> cases[] = {
        {2800, {999'999'998, 1'000'000'000, 0xFFFFFFFF}, "999999998 999999999 999999999 "},
        {2801, {3, 5, 0x7F, 0x80, 0xFFFFFFFF, 0x101}, "3 3 3 0 0 1 "},
        {2802, {14, 16, 0x7F, 0x80}, "14 15 15 0 "},
        {2803, {1, 3, 0x7F, 0xFF}, "1 2 2 0 "},
        {2804, {0xFFFFFFFF, 200, 2, 0x7FFF, 0x8000, 0x10005}, "4 123 2 123 4 5 "},
        {2805, {0xFB, 100, 10, 0x7F, 0x80}, "34 94 10 94 34 "},
        {2806, {0x80000000, 0x7FFFFFFE}, "2147483647 2147483646 "}};
    for (const auto& [id, numbers, expected] : cases) {
        CQelCPB_3DPosition block;
        std::string stored;
        for (const std::uint32_t number : numbers) {
            EXPECT_TRUE(SetNumber(block, id, number)) << id;
            stored += std::to_string(Number(block, id)) + ' ';
        }
        EXPECT_EQ(stored, expected) << id;
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
    EXPECT_FALSE(block.GetParam(2800, &record, 4) || block.SetParam(2800, &record, 4));
    EXPECT_FALSE(block.GetParam(2800, nullptr, kSizeParamValue));
    EXPECT_EQ(record.value, 0xAABB007B);
    EXPECT_EQ(record.selector, 5);
}

TEST(PositionBlock, DeviceMessageHas18BytesWhateverIsMissing) {
    CQelCPB_3DPosition block;
    for (const auto& [id, value] : std::vector<std::pair<std::uint32_t, std::uint32_t>>{
             {2801, 2}, {2806, 1000}, {2804, 34}, {2805, 74}, {2800, 12345}})
        SetNumber(block, id, value);
    EXPECT_EQ(DeviceMessageBy(block), "F0 43 79 08 7F 29 02 00 00 07 68 22 4A 00 00 00 00 F7");
    SetNumber(block, 2806, 0x80000000);
    EXPECT_EQ(DeviceMessageBy(block), "F0 43 79 08 7F 29 02 7F 7F 7F 7F 22 4A 00 00 00 00 F7");
    const auto clone = block.Clone();
    EXPECT_TRUE(block.DoParam(11, nullptr, 0));
    EXPECT_EQ(DeviceMessageBy(block), "F0 43 79 08 7F 29 00 00 00 00 00 00 00 00 00 00 00 F7");
    EXPECT_FALSE(SetNumber(block, 2801, 1));
    EXPECT_EQ(Number(block, 2801), -1);
    EXPECT_EQ(Number(dynamic_cast<CQelCPB_3DPosition&>(*clone), 2801), 2);
    st_paramStream nowhere;
    EXPECT_TRUE(block.GetParam(5, &nowhere, kSizeParamStream));
}

TEST(DeviceMessage, IsReadBackOnlyWhole) {
    const std::string good = Bytes("F0 43 79 08 7F 29 02 01 02 07 68 22 4A 00 00 00 00 F7");
    const auto decode = [](const std::string& bytes) {
        return DecodeDeviceMessage({Data(bytes), bytes.size()});
    };
    EXPECT_EQ(decode(good), (DeviceMessage{2, (1 << 21) + (2 << 14) + 1000, 34, 74}));
    EXPECT_EQ(decode(good + good), std::nullopt);
    for (std::size_t place = 0; place < good.size(); ++place) {
        std::string damaged = good;
        damaged[place] = static_cast<char>(damaged[place] ^ 0x80);
        EXPECT_EQ(decode(damaged), std::nullopt) << place;
    }
}

TEST(PositionBlock, AShortChildReadsAsZerosAndIsNotSetBeyondItsEnd) {
    Source source(
        Bytes("00 00 0B 57 00 00 00 1B 00 00 00 00 00 00 00 13 00 00 00 01"
              "00 00 0A F0 00 00 00 08 00 00 00 05 03 00 00 7F"));
    CQelCPB_3DPosition block(&source.stream);
    EXPECT_TRUE(SetNumber(block, 2803, 1));
    EXPECT_FALSE(SetNumber(block, 2804, 64) || SetNumber(block, 2806, 1));
    const std::int64_t expected[] = {5, 3, 0, 1, 0x7F00, 0, 0};
    for (std::uint32_t i = 0; i < 7; ++i)
        EXPECT_EQ(Number(block, 2800 + i), expected[i]) << i;
    EXPECT_EQ(Held(CQelCPB_3DPosition(static_cast<std::strstream*>(nullptr))), nullptr);
}

}  // namespace
