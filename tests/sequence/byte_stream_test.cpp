#include "sequence/byte_stream.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "tests/sequence/bytes.h"

namespace {

TEST(VarLen, ShortestFormBothWays) {
    const std::pair<std::uint32_t, const char*> cases[] = {{0, "00"},
                                                           {0x40, "40"},
                                                           {0x7F, "7F"},
                                                           {0x80, "81 00"},
                                                           {0x2000, "C0 00"},
                                                           {0x3FFF, "FF 7F"},
                                                           {0x4000, "81 80 00"},
                                                           {0x1FFFFF, "FF FF 7F"},
                                                           {0x200000, "81 80 80 00"},
                                                           {0x0FFFFFFF, "FF FF FF 7F"}};
    for (const auto& [value, text] : cases) {
        const ByteVector bytes = Hex(text);
        std::array<std::uint8_t, 4> buffer{};
        ASSERT_EQ(EncodeVarLen(value, buffer.data()), bytes.size());
        EXPECT_EQ(ByteVector(buffer.begin(), buffer.begin() + bytes.size()), bytes);
        EXPECT_EQ(DecodeVarLen(bytes.data()), value);
        std::strstream stream;
        WriteVarLen(value, stream);
        EXPECT_EQ(ReadVarLen(stream), value) << text;
        EXPECT_EQ(Written(stream), bytes);
    }
    EXPECT_EQ(DecodeVarLen(Hex("80 00").data()), 0U);
}

TEST(VarLen, TooLargeIsRefusedBeforeAnythingIsWritten) {
    std::array<std::uint8_t, 5> buffer{};
    EXPECT_EQ(EncodeVarLen(kLargestVarLen + 1, buffer.data()), 0U);
    EXPECT_THAT(buffer, testing::Each(0));
    std::strstream stream;
    WriteVarLen(kLargestVarLen + 1, stream);
    EXPECT_TRUE(stream.fail());
    EXPECT_EQ(stream.pcount(), 0);
}

TEST(VarLen, LongSequencesWrapAtTheWord) {
    std::strstream stream;
    Put(stream, Hex("FF FF FF FF FF 7F 05"));
    EXPECT_EQ(ReadVarLen(stream), 0xFFFFFFFFU);
    EXPECT_EQ(ReadVarLen(stream), 5U);
}

TEST(ReadStreamByteTest, EndIsNoticedOneReadLate) {
    std::strstream stream;
    stream.put('\x42');
    EXPECT_EQ(ReadStreamByte(stream), 0x42);
    EXPECT_EQ(ReadStreamByte(stream), 0xFF);
    EXPECT_THROW(
        {
            try {
                ReadStreamByte(stream);
            } catch (int code) {
                EXPECT_EQ(code, -1);
                throw;
            }
        },
        int);
    std::strstream failed;
    failed.put('\x42');
    failed.setstate(std::ios::failbit);
    EXPECT_THROW(ReadStreamByte(failed), int);
}

TEST(ByteOrder, WordsInMemory) {
    std::array<std::uint8_t, 4> word{};
    EncodeBigEndian32(0x01020304, word.data());
    EXPECT_THAT(word, testing::ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(DecodeBigEndian32(Hex("FF 00 00 06").data()), 0xFF000006U);
    EncodeLittleEndian32(0x01020304, word.data());
    EXPECT_THAT(word, testing::ElementsAre(4, 3, 2, 1));
    EXPECT_EQ(DecodeLittleEndian32(word.data()), 0x01020304U);
    EncodeBigEndian16(-2, word.data());
    EXPECT_EQ(DecodeBigEndian16(word.data()), 0xFFFE);
    EXPECT_EQ(DecodeBigEndian16(Hex("FF FF").data()), 65535);
}

TEST(BytesLeftTest, CountsWhatCanStillBeReadInEveryShapeOfStream) {
    std::strstream grown;
    EXPECT_EQ(BytesLeft(grown), 0U);
    Put(grown, ByteVector(100, 7));
    EXPECT_EQ(BytesLeft(grown), 100U);
    grown.get();
    Put(grown, ByteVector(200, 7));  // beyond the area that the read before made visible
    EXPECT_EQ(BytesLeft(grown), 299U);
    EXPECT_EQ(grown.tellg(), 1);

    std::array<char, 6> room{1, 2, 3, 4, 5, 6};
    std::strstream over(room.data(), 6, std::ios::in | std::ios::out);
    over.seekp(6);
    over.get();
    EXPECT_EQ(BytesLeft(over), 5U);
    over.ignore(6);
    EXPECT_EQ(BytesLeft(over), 0U);
}

TEST(ByteStream, TypedValuesAreBigEndian) {
    std::strstream stream;
    CZurByteStream out(&stream);
    out << 'a' << std::uint8_t{200} << std::int16_t{-2} << std::uint16_t{0xABCD} << std::int32_t{-3}
        << std::uint32_t{0x01020304};
    EXPECT_EQ(Written(stream), Hex("61 C8 FF FE AB CD FF FF FF FD 01 02 03 04"));
    char character = 0;
    std::uint8_t byte = 0;
    std::int16_t half = 0;
    std::uint16_t wideHalf = 0;
    std::int32_t word = 0;
    std::uint32_t wideWord = 0;
    CZurByteStream in(&stream);
    in >> character >> byte >> half >> wideHalf >> word;
    in.Peek(wideWord);
    EXPECT_EQ(in.TellRead(), 10);
    wideWord = 0;
    in >> wideWord;
    EXPECT_EQ(std::tie(character, byte, half, wideHalf, word, wideWord),
              std::make_tuple('a', 200, -2, 0xABCD, -3, 0x01020304U));
    EXPECT_EQ(in.TellRead(), 14);
}

TEST(ByteStream, RawValuesPassThroughUntouched) {
    std::strstream stream;
    CZurByteStream adapter(&stream);
    adapter << 1.5F << -0.25;
    float four = 0;
    double eight = 0;
    adapter >> four >> eight;
    EXPECT_EQ(four, 1.5F);
    EXPECT_EQ(eight, -0.25);
    EXPECT_EQ(adapter.TellWrite(), 12);
}

TEST(ByteStream, ShortReadLeavesZerosAndShowsInThePosition) {
    std::strstream stream;
    Put(stream, Hex("11 22"));
    CZurByteStream adapter(&stream);
    std::uint32_t value = 0xEEEEEEEE;
    adapter >> value;
    EXPECT_EQ(value, 0x11220000U);
    EXPECT_EQ(adapter.TellRead(), -1);
    std::array<std::uint8_t, 2> bytes{9, 9};
    EXPECT_EQ(adapter.ReadBytes(bytes.data(), 2), -1);
    EXPECT_THAT(bytes, testing::Each(0));
}

TEST(ByteStream, BytesAndPositions) {
    std::strstream stream;
    CZurByteStream adapter(&stream);
    EXPECT_EQ(adapter.WriteBytes("\1\2\3\4", 4), 4);
    adapter.SeekWrite(1);
    EXPECT_EQ(adapter.WriteBytes("\x7", 1), 2);
    adapter.SeekWrite(4);
    std::array<char, 3> got{};
    EXPECT_EQ(adapter.ReadBytes(got.data(), 3), 3);
    EXPECT_THAT(got, testing::ElementsAre(1, 7, 3));
    adapter.SeekRead(1);
    EXPECT_EQ(adapter.TellRead(), 1);
    EXPECT_EQ(adapter.ReadBytes(got.data(), 0), 0);
    EXPECT_EQ(adapter.ReadBytes(nullptr, 1), 0);
    EXPECT_EQ(adapter.WriteBytes(got.data(), -1), 0);
    EXPECT_EQ(adapter.TellRead(), 1);
    EXPECT_EQ(adapter.TellWrite(), 4);
}

TEST(ByteStream, DoesNothingWithoutAStream) {
    CZurByteStream adapter(nullptr, true);
    std::uint32_t word = 77;
    double raw = 0.5;
    adapter >> word >> raw;
    adapter.Peek(word).Peek(raw) << word << raw;
    adapter.SeekRead(3);
    adapter.SeekWrite(3);
    EXPECT_EQ(word, 77U);
    EXPECT_EQ(raw, 0.5);
    EXPECT_EQ(adapter.TellRead(), 0);
    EXPECT_EQ(adapter.TellWrite(), 0);
    EXPECT_EQ(adapter.ReadBytes(&word, 4), 0);
    EXPECT_EQ(adapter.WriteBytes(&word, 4), 0);
}

TEST(ByteStream, DestroysAnOwnedStreamOnly) {
    struct Watched : std::strstream {
        explicit Watched(int& counter) : alive(counter) { ++alive; }
        ~Watched() override { --alive; }
        int& alive;
    };
    int alive = 0;
    auto* const first = new Watched(alive);
    { const CZurByteStream borrowed(first); }
    EXPECT_EQ(alive, 1);
    { const CZurByteStream owner(first, true); }
    EXPECT_EQ(alive, 0);
}

}  // namespace
