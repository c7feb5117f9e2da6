#include "sequence/byte_stream.h"

#include <gmock/gmock.h>

#include <array>
#include <tuple>

#include "tests/sequence/streams.h"

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
        std::string buffer(4, '\0');
        buffer.resize(EncodeVarLen(value, reinterpret_cast<std::uint8_t*>(buffer.data())));
        EXPECT_EQ(Hex(buffer), text);
        EXPECT_EQ(DecodeVarLen(Data(buffer)), value);
        std::strstream stream;
        WriteVarLen(value, stream);
        EXPECT_EQ(ReadVarLen(stream), value);
        EXPECT_EQ(Hex(Written(stream)), text);
    }
    EXPECT_EQ(DecodeVarLen(Data(Bytes("80 00"))), 0U);
    std::strstream stream;
    Put(stream, Bytes("FF FF FF FF FF 7F 05"));  // longer ones wrap at the word
    EXPECT_EQ(ReadVarLen(stream), 0xFFFFFFFFU);
    EXPECT_EQ(ReadVarLen(stream), 5U);
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

TEST(StreamBytes, TheEndIsNoticedOneReadLate) {
    std::strstream stream;
    Put(stream, "B");
    EXPECT_EQ(ReadStreamByte(stream), 'B');
    EXPECT_EQ(ReadStreamByte(stream), 0xFF);
    EXPECT_EQ(CodeOf([&] { ReadStreamByte(stream); }), -1);
    std::strstream failed;
    Put(failed, "B");
    failed.setstate(std::ios::failbit);
    EXPECT_EQ(CodeOf([&] { ReadStreamByte(failed); }), -1);
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
}

TEST(ByteOrder, WordsInMemory) {
    std::array<std::uint8_t, 4> word{};
    EncodeBigEndian32(0x01020304, word.data());
    EXPECT_THAT(word, testing::ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(DecodeBigEndian32(Data(Bytes("FF 00 00 06"))), 0xFF000006U);
    EncodeLittleEndian32(0x01020304, word.data());
    EXPECT_THAT(word, testing::ElementsAre(4, 3, 2, 1));
    EXPECT_EQ(DecodeLittleEndian32(word.data()), 0x01020304U);
    EncodeBigEndian16(-2, word.data());
    EXPECT_EQ(DecodeBigEndian16(word.data()), 0xFFFE);
}

TEST(ByteStream, TypedValues) {
    std::strstream stream;
    CZurByteStream out(&stream);
    out << 'a' << std::uint8_t{200} << std::int16_t{-2} << std::uint16_t{0xABCD} << std::int32_t{-3}
        << std::uint32_t{0x01020304};
    EXPECT_EQ(Hex(Written(stream)), "61 C8 FF FE AB CD FF FF FF FD 01 02 03 04");
    out << 1.5F << -0.25;  // raw, as they stand in memory
    EXPECT_EQ(out.TellWrite(), 26);
    std::tuple<char, std::uint8_t, std::int16_t, std::uint16_t, std::int32_t, std::uint32_t, float,
               double>
        got;
    CZurByteStream in(&stream);
    in >> std::get<0>(got) >> std::get<1>(got) >> std::get<2>(got) >> std::get<3>(got) >>
        std::get<4>(got);
    std::uint32_t peeked = 0;
    in.Peek(peeked);
    EXPECT_EQ(in.TellRead(), 10);
    in >> std::get<5>(got) >> std::get<6>(got) >> std::get<7>(got);
    EXPECT_EQ(got, std::make_tuple('a', 200, -2, 0xABCD, -3, peeked, 1.5F, -0.25));
    EXPECT_EQ(peeked, 0x01020304U);
}

TEST(ByteStream, ShortReadLeavesZerosAndShowsInThePosition) {
    std::strstream stream;
    Put(stream, Bytes("11 22"));
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
    EXPECT_EQ(adapter.ReadBytes(got.data(), 0) + adapter.ReadBytes(nullptr, 1), 0);
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
    EXPECT_EQ(std::tie(word, raw), std::make_tuple(77U, 0.5));
    EXPECT_EQ(adapter.TellRead() + adapter.TellWrite(), 0);
    EXPECT_EQ(adapter.ReadBytes(&word, 4) + adapter.WriteBytes(&word, 4), 0);
}

TEST(ByteStream, DestroysAnOwnedStreamOnly) {
    struct Watched : std::strstream {
        explicit Watched(bool& gone) : m_gone(gone) {}
        ~Watched() override { m_gone = true; }
        bool& m_gone;
    };
    bool gone = false;
    auto* const stream = new Watched(gone);
    { const CZurByteStream borrowed(stream); }
    EXPECT_FALSE(gone);
    { const CZurByteStream owner(stream, true); }
    EXPECT_TRUE(gone);
}

}  // namespace
