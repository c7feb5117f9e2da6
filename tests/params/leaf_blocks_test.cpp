#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "params/number_blocks.h"
#include "params/param_block.h"
#include "tests/params/block_support.h"

namespace {

TEST(RawBlock, CopiesNoMoreThanItHoldsAndLeavesTheRest) {
    const std::string five = Bytes("01 02 03 04 05");
    CZurRawBlock block(7U, 3U);
    block.SetData(five.data(), 5);
    EXPECT_EQ(WrittenHex(block), "00 00 00 07 00 00 00 03 01 02 03");
    block.SetData(nullptr, 3);
    block.GetData(nullptr, 3);
    block.SetValue(&five[4]);
    std::string target = Bytes("AA AA AA AA");
    block.GetData(target.data(), 2);
    EXPECT_EQ(Hex(target), "05 02 AA AA");
    block.GetData(target.data(), 9);
    EXPECT_EQ(Hex(target), "05 02 03 AA");

    EXPECT_EQ(block.GetByteAt(2), 3);
    EXPECT_EQ(block.GetByteAt(3), 0);
    block.SetLength(100);  // moves no memory: nothing outside the three bytes is ever touched
    EXPECT_EQ(block.GetByteAt(99), 0);
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
    EXPECT_EQ(WrittenHex(word), "00 00 00 05 00 00 00 04 01 02 03 04");

    CZurShortBlock half(6U, 0xFFFE);
    EXPECT_EQ(WrittenHex(half), "00 00 00 06 00 00 00 02 FF FE");
    std::uint16_t narrow = 0;
    half.GetData(&narrow, 9);
    EXPECT_EQ(narrow, 0xFFFE);

    EXPECT_TRUE(word.IsEqual(CZurRawBlock(5U, Bytes("01 02 03 04").data(), 4U)));
    EXPECT_TRUE(word.NotEquals(CZurRawBlock(5U, Bytes("01 02 03 05").data(), 4U)));
    EXPECT_TRUE(word.NotEquals(CZurRawBlock(6U, Bytes("01 02 03 04").data(), 4U)));
    EXPECT_TRUE(word.NotEquals(CZurRawBlock(5U, Bytes("01 02 03 04 00").data(), 5U)));
}

/// Copies share nothing with their source, by whatever way they were made, and their ports serve
/// themselves.
template <typename Block>
void ExpectOwnCopies(Block& source, Block assigned) {
    const std::string before = WrittenHex(source);
    Block copy(source);
    const auto clone = source.Clone();
    assigned = source;
    assigned = *&assigned;
    const std::uint32_t other = 0xFFFFFFFF;
    source.SetData(&other, 4);
    source.SetID(99);
    EXPECT_EQ(WrittenHex(copy), before);
    EXPECT_EQ(WrittenHex(assigned), before);
    EXPECT_EQ(WrittenHex(*clone), before);
    EXPECT_EQ(typeid(*clone), typeid(Block));
    EXPECT_EQ(Number(copy, 0), 5);
    EXPECT_EQ(Number(assigned, 0), 5);
}

TEST(LeafBlocks, CopiesAreTheirOwn) {
    CZurParamBlock raw(5U, Bytes("01 02 03 04 05 06").data(), 6U);
    ExpectOwnCopies(raw, CZurParamBlock(1U, 2U));
    CZurIntParamBlock word(5U, 480);
    ExpectOwnCopies(word, CZurIntParamBlock(1U));
    CZurShortParamBlock half(5U, 4);
    ExpectOwnCopies(half, CZurShortParamBlock(1U, 1));
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
    EXPECT_FALSE(block.GetParam(0, &record, 4));
    EXPECT_FALSE(block.GetParam(0, nullptr, kSizeParamValue));
    EXPECT_EQ(record.value, 1U);
    EXPECT_TRUE(block.GetParam(0, &record, kSizeParamValue));
    EXPECT_EQ(record.value, 300U);
    EXPECT_EQ(record.selector, -7);
    EXPECT_EQ(Number(block, 1), 3);
    EXPECT_TRUE(SetNumber(block, 0, 301) && SetNumber(block, 1, 2));

    st_paramStream stored;
    Source stream("");
    stored.stream = &stream.stream;
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

struct ReadCase {
    const char* stored;
    const char* raw;    // what a raw block makes of it, as written again
    const char* word;   // a 32-bit number
    const char* after;  // the identifier that a 32-bit number leaves next in the stream
};

TEST(LeafBlocks, ReadWhatTheStreamReallyHolds) {
    const ReadCase cases[] = {
        {"00 00 00 05 00 00 00 04 01 02 03 04", "00 00 00 05 00 00 00 04 01 02 03 04",
         "00 00 00 05 00 00 00 04 01 02 03 04", "00 00 00 00"},
        {"00 00 00 05 00 00 00 04 01 02", "00 00 00 05 00 00 00 02 01 02",
         "00 00 00 05 00 00 00 04 01 02 00 00", "00 00 00 00"},
        {"00 00 00 05 FF FF FF FF 01 02", "00 00 00 05 00 00 00 02 01 02",
         "00 00 00 05 00 00 00 04 01 02 00 00", "00 00 00 00"},
        {"00 00 00 05 00 00 00 06 01 02 03 04 05 06 00 00 00 09",
         "00 00 00 05 00 00 00 06 01 02 03 04 05 06", "00 00 00 05 00 00 00 04 01 02 03 04",
         "00 00 00 09"},
        {"00 00 00 05 00 00", "00 00 00 05 00 00 00 00", "00 00 00 05 00 00 00 00", "00 00 00 00"},
        {"", "00 00 00 00 00 00 00 00", "00 00 00 00 00 00 00 00", "00 00 00 00"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.stored);
        Source first(Bytes(test.stored));
        EXPECT_EQ(WrittenHex(CZurRawBlock(&first.stream, false)), test.raw);
        Source second(Bytes(test.stored));
        CZurIntBlock word(&second.stream);
        EXPECT_EQ(WrittenHex(word), test.word);
        std::uint32_t next = ReadStoredWord(&second.stream);
        EXPECT_TRUE(CZurIntBlock(0U, next).IsEqual(CZurRawBlock(0U, Bytes(test.after).data(), 4U)));
    }
    Source half(Bytes("00 00 00 05 00 00 00 03 01 02 03"));
    EXPECT_EQ(WrittenHex(CZurShortBlock(&half.stream)), "00 00 00 05 00 00 00 02 01 02");
    EXPECT_EQ(WrittenHex(CZurRawBlock(static_cast<std::strstream*>(nullptr), true)),
              "00 00 00 00 00 00 00 00");
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
