#include "sequence/byte_stream.h"

#include <gmock/gmock.h>

#include <array>
#include <tuple>

#include "tests/sequence/streams.h"

namespace {

TEST(VarLen, ShortestFormBothWays) {
    std::string forms;
    for (const std::uint32_t value : {0U, 0x40U, 0x7FU, 0x80U, 0x2000U, 0x3FFFU, 0x4000U, 0x1FFFFFU,
                                      0x200000U, kLargestVarLen}) {
        std::string buffer(4, '\0');
        buffer.resize(EncodeVarLen(value, reinterpret_cast<std::uint8_t*>(buffer.data())));
        forms += Hex(buffer) + ", ";
        EXPECT_EQ(DecodeVarLen(Data(buffer)), value);
        std::strstream stream;
        WriteVarLen(value, stream);
        EXPECT_EQ(ReadVarLen(stream), value);
        EXPECT_EQ(Written(stream), buffer);
    }
    EXPECT_EQ(forms,
              "00, 40, 7F, 81 00, C0 00, FF 7F, 81 80 00, FF FF 7F, 81 80 80 00, FF FF FF 7F, ");
    EXPECT_EQ(DecodeVarLen(Data(Bytes("80 00"))), 0U);
    std::strstream stream;
    Put(stream, Bytes("FF FF FF FF FF 7F 05"));  // longer ones wrap at the word
    EXPECT_EQ(ReadVarLen(stream), 0xFFFFFFFFU);
    EXPECT_EQ(ReadVarLen(stream), 5U);
    std::array<std::uint8_t, 5> buffer{};
    EXPECT_EQ(EncodeVarLen(kLargestVarLen + 1, buffer.data()), 0U);
    EXPECT_THAT(buffer, testing::Each(0));
}

TEST(StreamBytes, LeftCountsWhatCanStillBeReadInEveryShape) {
    InEveryShape("abcdef", [](std::strstream& stream) {
        EXPECT_EQ(BytesLeft(stream), 6U);
        stream.ignore(2);
        EXPECT_EQ(BytesLeft(stream), 4U);
        stream.ignore(9);
        EXPECT_EQ(BytesLeft(stream), 0U);
    });
    std::strstream grown;
    EXPECT_EQ(BytesLeft(grown), 0U);
    Put(grown, std::string(100, 'x'));
    grown.get();
    Put(grown, std::string(200, 'x'));  // beyond the area that the read before made visible
    EXPECT_EQ(BytesLeft(grown), 299U);
    EXPECT_EQ(grown.tellg(), 1);
    std::string room = "abc" + std::string(9, '\0');
    std::strstream appending(room.data(), 9, std::ios::in | std::ios::out | std::ios::app);
    Put(appending, "defg");
    EXPECT_EQ(BytesLeft(appending), 7U);
}

TEST(ByteStream, TypedValues) {
    std::strstream stream;
    CZurByteStream adapter(&stream);
    std::tuple<char, std::uint8_t, std::int16_t, std::uint16_t, std::int32_t, std::uint32_t, float,
               double>
        values('a', 200, -2, 0xABCD, -3, 0x01020304, 1.5F, -0.25), got, peeked;
    std::apply([&](auto... each) { (adapter << ... << each); }, values);
    EXPECT_EQ(Hex(Written(stream)),
              "61 C8 FF FE AB CD FF FF FF FD 01 02 03 04 "
              "00 00 C0 3F 00 00 00 00 00 00 D0 BF");  // the last two as they stand in memory
    std::apply([&](auto&... each) { (adapter.Peek(each), ...); }, peeked);
    EXPECT_EQ(adapter.TellRead(), 0);
    EXPECT_EQ(std::get<5>(peeked), 0x61C8FFFEU);
    std::apply([&](auto&... each) { (adapter >> ... >> each); }, got);
    EXPECT_EQ(got, values);
    std::array<std::uint8_t, 4> word{};
    EncodeLittleEndian32(0x01020304, word.data());
    EXPECT_THAT(word, testing::ElementsAre(4, 3, 2, 1));
    EXPECT_EQ(DecodeLittleEndian32(word.data()), 0x01020304U);
}

TEST(ByteStream, BytesAndPositions) {
    std::strstream stream;
    CZurByteStream adapter(&stream);
    EXPECT_EQ(adapter.WriteBytes("\1\2\3\4", 4), 4);
    adapter.SeekWrite(1);
    EXPECT_EQ(adapter.WriteBytes("\x7", 1), 2);
    adapter.SeekWrite(4);
    EXPECT_EQ(adapter.TellWrite(), 4);
    std::array<char, 3> got{};
    EXPECT_EQ(adapter.ReadBytes(got.data(), 3), 3);
    EXPECT_THAT(got, testing::ElementsAre(1, 7, 3));
    adapter.SeekRead(2);
    EXPECT_EQ(adapter.ReadBytes(got.data(), 0) + adapter.ReadBytes(nullptr, 1), 0);
    EXPECT_EQ(adapter.WriteBytes(got.data(), -1), 0);
    std::uint32_t value = 0xEEEEEEEE;
    adapter >> value;
    EXPECT_EQ(value, 0x03040000U) << "zeros for what is missing";
    EXPECT_EQ(adapter.TellRead(), -1);
    EXPECT_EQ(adapter.ReadBytes(got.data(), 2), -1);
    EXPECT_THAT(got, testing::ElementsAre(0, 0, 3));
}

TEST(ByteStream, DoesNothingWithoutAStreamAndDestroysAnOwnedOne) {
    CZurByteStream adapter(nullptr, true);
    std::uint32_t word = 77;
    double raw = 0.5;
    adapter >> word >> raw;
    adapter.Peek(word).Peek(raw) << word << raw;
    adapter.SeekRead(3);
    adapter.SeekWrite(3);
    EXPECT_EQ(std::tie(word, raw), std::make_tuple(77U, 0.5));
    EXPECT_EQ(adapter.TellRead() + adapter.TellWrite(), 0);
    EXPECT_EQ(adapter.ReadBytes(&word, 4) + adapter.WriteBytes(&word, 4), 0);
    { const CZurByteStream owner(new std::strstream, true); }  // a leak where it does not
}

}  // namespace
