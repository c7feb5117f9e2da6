#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "params/number_blocks.h"
#include "params/param_block.h"
#include "tests/params/block_support.h"

namespace {

TEST(RawBlock, CopiesNoMoreThanItHoldsAndLeavesTheRest) {
    const std::string five = Bytes("01 02 03 04 05");
    CZurRawBlock block(7U, 3U);
    block.SetData(five.data(), 5);
    block.SetData(nullptr, 3);
    block.GetData(nullptr, 3);
    block.SetValue(&five[4]);
    std::string target = Bytes("AA AA AA AA");
    block.GetData(target.data(), 2);
    EXPECT_EQ(Hex(target), "05 02 AA AA");
    block.SetLength(100);  // moves no memory: nothing outside the three bytes is ever touched
    block.GetData(target.data(), 9);
    EXPECT_EQ(Hex(target), "05 02 03 AA");
    EXPECT_EQ(block.GetByteAt(2), 3);
    EXPECT_EQ(block.GetByteAt(3) + block.GetByteAt(99), 0);
    EXPECT_EQ(WrittenHex(block), "00 00 00 07 00 00 00 03 05 02 03");
    EXPECT_EQ(WrittenHex(CZurRawBlock(9U, 0U)), "00 00 00 09 00 00 00 00");
    EXPECT_EQ(CZurRawBlock(9U, 0U).GetByteAt(0), 0);
}

TEST(NumberBlocks, KeepTheNumberBigEndianAndMoveItWhateverTheCount) {
    CZurIntBlock word(5U, 480);
    EXPECT_EQ(WrittenHex(word), "00 00 00 05 00 00 00 04 00 00 01 E0");
    std::uint32_t number = 0;
    word.GetData(&number, 1);
    EXPECT_EQ(number, 480U);
    number = 0x01020304;
    word.SetData(&number, 0);
    word.SetValue(nullptr);
    word.GetValue(nullptr);
    const std::string bytes = Bytes("01 02 03 04 00");
    EXPECT_TRUE(word.IsEqual(CZurRawBlock(5U, bytes.data(), 4U)));
    EXPECT_TRUE(word.NotEquals(CZurRawBlock(5U, bytes.data(), 5U)));
    CZurShortBlock half(6U, 0xFFFE);
    EXPECT_EQ(WrittenHex(half), "00 00 00 06 00 00 00 02 FF FE");
    std::uint16_t narrow = 0;
    half.GetData(&narrow, 9);
    EXPECT_EQ(narrow, 0xFFFE);
}

/// Copies share nothing with their source, by whatever way they were made, and their ports serve
/// themselves.
template <typename Block>
void ExpectOwnCopies(Block source, Block assigned) {
    const std::string before = WrittenHex(source);
    const Block copy(source);
    const auto clone = source.Clone();
    assigned = source;
    assigned = *&assigned;
    const std::uint32_t other = 0xFFFFFFFF;
    source.SetData(&other, 4);
    source.SetID(99);
    for (const Block* each : std::initializer_list<const Block*>{
             &copy, &assigned, dynamic_cast<const Block*>(clone.get())}) {
        EXPECT_EQ(WrittenHex(*each), before);
        EXPECT_EQ(Number(*each, 0), 5);
    }
}

TEST(LeafBlocks, CopiesAreTheirOwn) {
    const std::string six = Bytes("01 02 03 04 05 06");
    ExpectOwnCopies(CZurParamBlock(5U, six.data(), 6U), CZurParamBlock(1U, 2U));
    ExpectOwnCopies(CZurIntParamBlock(5U, 480), CZurIntParamBlock(1U));
    ExpectOwnCopies(CZurShortParamBlock(5U, 4), CZurShortParamBlock(1U, 1));
}

TEST(Port, AnswersTheFiveRequestsOfEveryBlock) {
    CZurParamBlock block(300U, 3U);
    std::string source = Bytes("0A 0B 0C");
    st_paramBytes bytes{source.data(), 3};
    EXPECT_TRUE(block.SetParam(2, &bytes, kSizeParamBytes));
    std::string target(2, '\0');
    bytes = {target.data(), 2};
    EXPECT_TRUE(block.GetParam(2, &bytes, kSizeParamBytes));
    EXPECT_EQ(Hex(target), "0A 0B");

    st_paramValue record{-7, 1};
    EXPECT_FALSE(block.GetParam(0, &record, 4) || block.GetParam(0, nullptr, kSizeParamValue));
    EXPECT_EQ(record.value, 1U);
    EXPECT_TRUE(block.GetParam(0, &record, kSizeParamValue));
    EXPECT_EQ(record.selector, -7);
    EXPECT_EQ(record.value, 300U);
    EXPECT_EQ(Number(block, 1), 3);
    EXPECT_TRUE(SetNumber(block, 0, 301) && SetNumber(block, 1, 2));

    Source stream("");
    st_paramStream stored{0, 0, 0, &stream.stream};
    EXPECT_TRUE(block.GetParam(3, &stored, kSizeParamStream));
    CZurParamBlock reader(1U, 0U);
    EXPECT_TRUE(reader.SetParam(3, &stored, kSizeParamStream));
    EXPECT_EQ(WrittenHex(reader), "00 00 01 2D 00 00 00 02 0A 0B");

    t_paramIdList list{42};
    EXPECT_TRUE(block.GetParam(4, &list, kSizeIdList));
    EXPECT_THAT(list, testing::ElementsAre(42, 0, 1, 2, 3, 4));
    EXPECT_FALSE(block.SetParam(4, &list, kSizeIdList));
    EXPECT_FALSE(block.GetParam(5, &record, kSizeParamValue));
    EXPECT_FALSE(block.DoParam(0, &record, kSizeParamValue));
}

TEST(LeafBlocks, ReadWhatTheStreamReallyHolds) {
    // What is stored, and what a raw block and a 32-bit number write again.
    const char* const cases[][3] = {
        {"00 00 00 05 00 00 00 04 01 02", "00 00 00 05 00 00 00 02 01 02",
         "00 00 00 05 00 00 00 04 01 02 00 00"},
        {"00 00 00 05 FF FF FF FF 01 02", "00 00 00 05 00 00 00 02 01 02",
         "00 00 00 05 00 00 00 04 01 02 00 00"},
        {"00 00 00 05 00 00 00 06 01 02 03 04 05 06 09",
         "00 00 00 05 00 00 00 06 01 02 03 04 05 06", "00 00 00 05 00 00 00 04 01 02 03 04"},
        {"00 00 00 05 00 00", "00 00 00 05 00 00 00 00", "00 00 00 05 00 00 00 00"},
        {"", "00 00 00 00 00 00 00 00", "00 00 00 00 00 00 00 00"},
    };
    for (const auto& [stored, raw, word] : cases) {
        Source first(Bytes(stored)), second(Bytes(stored));
        const CZurRawBlock block(&first.stream, false);
        EXPECT_EQ(WrittenHex(block), raw) << stored;
        EXPECT_EQ(block.GetTotalLength(), Bytes(raw).size());
        EXPECT_EQ(WrittenHex(CZurIntBlock(&second.stream)), word) << stored;
        EXPECT_EQ(second.stream.get() == 9, std::string_view(stored).ends_with("09"));
    }
    Source half(Bytes("00 00 00 05 00 00 00 03 01 02 03"));
    EXPECT_EQ(WrittenHex(CZurShortBlock(&half.stream)), "00 00 00 05 00 00 00 02 01 02");
    EXPECT_EQ(WrittenHex(CZurRawBlock(static_cast<std::strstream*>(nullptr), true)),
              "00 00 00 00 00 00 00 00");
    CZurIntBlock used(5U, 0xFFFFFFFF);
    Source shorter(Bytes("00 00 00 05 00 00 00 01 07"));
    used.Read(&shorter.stream, true);
    EXPECT_EQ(WrittenHex(used), "00 00 00 05 00 00 00 01 07");
    used.SetLength(4);
    EXPECT_EQ(WrittenHex(used), "00 00 00 05 00 00 00 04 07 00 00 00") << "nothing old is left";
}

TEST(LeafBlocks, AForeignHeaderIsRefusedAndStaysInTheStream) {
    Source source(Bytes("00 00 00 05 00 00 00 01 AB"));
    CZurRawBlock block(6U, 2U);
    EXPECT_FALSE(block.ReadHeader(&source.stream, false));
    block.Read(&source.stream, false);
    EXPECT_EQ(WrittenHex(block), "00 00 00 06 00 00 00 02 00 00");
    block.Read(&source.stream, true);
    EXPECT_EQ(WrittenHex(block), "00 00 00 05 00 00 00 01 AB");
}

}  // namespace
