#include "sequence/seq_event.h"

#include <gtest/gtest.h>

#include "sequence/seq_codes.h"
#include "tests/sequence/shapes.h"

namespace {

CZurSeqEvent Event(const std::string& hex, std::uint32_t delta = 0) {
    const ByteVector bytes = Hex(hex);
    return {delta, static_cast<std::uint32_t>(bytes.size()), bytes.data()};
}

ByteVector DataOf(const CZurSeqEvent& event) {
    const std::uint8_t* const data = event.GetData();
    return data ? ByteVector(data, data + event.GetLength()) : ByteVector();
}

TEST(SeqEvent, ReadsEveryLayout) {
    struct Case {
        std::uint8_t running;
        const char* stream;
        std::uint32_t delta;
        const char* data;
        int kind;
    };
    const Case cases[] = {
        {0x90, "00 3C 40", 0, "90 3C 40", 0},
        {0x90, "00 C3 05", 0, "C3 05", 0},
        {0xD1, "81 00 7F", 128, "D1 7F", 0},
        {0, "00 E0 00 40", 0, "E0 00 40", 0},
        {0, "00 FF 2F 00", 0, "FF 2F 00", 1},
        {0, "60 FF 51 03 07 A1 20", 96, "FF 51 03 07 A1 20", 1},
        {0xFF, "00 01 01 61", 0, "FF 01 01 61", 1},
        {0, "00 F0 03 43 12 F7", 0, "F0 03 43 12 F7", 2},
        {0, "00 F7 03 43 12 F7", 0, "F7 03 43 12 F7", -1},
        {0, "00 F0 80 82 00 43 F7", 0, "F0 82 00 43 F7", 2},
        {0, "07 3C", 7, "", -1},
        {0x90, "00 3C", 0, "90 3C FF", 0},  // the end shows one read late
    };
    for (const Case& each : cases) {
        ByteVector bytes = Hex(each.stream);
        if (std::string(each.stream).find("82 00") != std::string::npos)
            bytes.resize(bytes.size() + 254, 0x11);
        InEveryShape(bytes, [&](std::strstream& stream) {
            const CZurSeqEvent event(stream, each.running);
            EXPECT_EQ(event.GetDelta(), each.delta) << each.stream;
            EXPECT_EQ(event.GetKind(), each.kind) << each.stream;
            ByteVector data = Hex(each.data);
            data.resize(std::max<std::size_t>(data.size(), event.GetLength()), 0x11);
            EXPECT_EQ(DataOf(event), data) << each.stream;
            EXPECT_EQ(event.GetLength(), data.size());
        });
    }
}

TEST(SeqEvent, RaisesOnWhatIsNotThere) {
    for (const char* const text : {"", "00", "81", "00 90", "00 FF", "00 FF 51", "00 FF 51 03 07",
                                   "00 F0 02 43", "81 80 80 80 00 90 3C 40"}) {
        InEveryShape(Hex(text), [text](std::strstream& stream) {
            CZurSeqEvent event;
            EXPECT_EQ(CodeOf([&] { event.Read(stream, 0x90); }), kSeqEndOfStream) << text;
            EXPECT_EQ(event.GetData(), nullptr);
            EXPECT_EQ(event.GetLength(), 0U);
        });
        InEveryShape(Hex(text), [text](std::strstream& stream) {
            EXPECT_EQ(CodeOf([&] { CZurSeqEvent(stream, 0x90); }), kSeqBadEvent) << text;
        });
    }
    std::strstream failed;
    Put(failed, Hex("00 90 3C 40"));
    failed.setstate(std::ios::failbit);
    EXPECT_EQ(CodeOf([&] { CZurSeqEvent(failed, 0); }), kSeqBadEvent);
}

TEST(SeqEvent, WritesTheStatusAlways) {
    EXPECT_EQ(BytesOf(Event("90 3C 40", 200)), Hex("81 48 90 3C 40"));
    EXPECT_EQ(BytesOf(CZurSeqEvent()), Hex("00"));
    std::strstream stream;
    Event("90 3C 40", 0x10000000).Save(stream);
    EXPECT_TRUE(stream.fail());
    EXPECT_EQ(stream.pcount(), 0);
}

TEST(SeqEvent, DumpsOneLine) {
    EXPECT_EQ(DumpOf(Event("90 3C 07", 96)), "96\t\t90 3C 07 \r");
    EXPECT_EQ(DumpOf(Event("8F", 4294967295U)), "4294967295\t\t8F \r");
    EXPECT_EQ(DumpOf(CZurSeqEvent(5, 3, nullptr)), "5\t\t\r");
}

TEST(SeqEvent, CopiesStartUnmarkedAndAssignmentKeepsTheMark) {
    CZurSeqEvent event = Event("F0 02 43 F7", 9);
    event.SetMarked(7);
    CZurSeqEvent copy(event);
    EXPECT_EQ(copy.IsMarked(), 0);
    EXPECT_TRUE(copy.IsEqual(event));
    EXPECT_EQ(copy.GetDelta(), 9U);
    EXPECT_NE(copy.GetData(), event.GetData());
    event = Event("90 3C 40 41 42 43 44 45 46", 3);
    EXPECT_EQ(event.IsMarked(), 7);
    copy = event;
    EXPECT_EQ(DataOf(copy), Hex("90 3C 40 41 42 43 44 45 46"));
    CZurSeqEvent& self = copy;
    copy = self;
    EXPECT_EQ(copy.GetLength(), 9U);
    const CZurSeqEvent hollow(CZurSeqEvent(1, 12, nullptr));
    EXPECT_EQ(hollow.GetLength(), 12U);
    EXPECT_EQ(hollow.GetData(), nullptr);
}

TEST(SeqEvent, SetDataOfNothingChangesNothing) {
    CZurSeqEvent event = Event("90 3C 40", 5);
    event.SetData(9, nullptr, 3);
    event.SetData(9, event.GetData(), 0);
    EXPECT_EQ(DumpOf(event), "5\t\t90 3C 40 \r");
    event.SetData(6, event.GetData() + 1, 2);  // out of its own bytes
    EXPECT_EQ(DumpOf(event), "6\t\t3C 40 \r");
    const std::unique_ptr<std::uint8_t[]> copy(event.CopyData());
    EXPECT_EQ(copy[1], 0x40);
    EXPECT_EQ(CZurSeqEvent().CopyData(), nullptr);
    *event.GetByteAt(1) = 0x41;
    EXPECT_EQ(event.GetData()[1], 0x41);
}

TEST(SeqEvent, ByteEditsKeepTheQuantityRight) {
    struct Case {
        const char* data;
        std::uint32_t index;
        const char* removed;   ///< null: refused
        const char* inserted;  ///< with 55
    };
    const Case cases[] = {
        {"90 3C 40", 1, nullptr, nullptr},
        {"FF 01 02 61 62", 2, nullptr, nullptr},
        {"FF 01 02 61 62", 3, "FF 01 01 62", "FF 01 03 55 61 62"},
        {"FF 01 02 61 62", 4, "FF 01 01 61", "FF 01 03 61 55 62"},
        {"FF 01 02 61 62", 5, nullptr, "FF 01 03 61 62 55"},
        {"FF 01 02 61 62", 6, nullptr, nullptr},
        {"F0 03 43 12 F7", 1, nullptr, nullptr},
        {"F0 03 43 12 F7", 3, "F0 02 43 F7", "F0 04 43 55 12 F7"},
        {"F0 03 43 12 F7", 4, nullptr, "F0 04 43 12 55 F7"},
        {"F0 03 43 12 F7", 5, nullptr, nullptr},
        {"F7 02 43 F7", 3, "F7 01 43", "F7 03 43 55 F7"},
        {"F1 02 43 44", 2, nullptr, nullptr},
        {"F7 81 81", 2, nullptr, nullptr},        // a quantity without an end
        {"FF 01 05 61 62", 3, nullptr, nullptr},  // one that does not agree
        {"FF", 0, nullptr, nullptr},
    };
    for (const Case& each : cases) {
        CZurSeqEvent less = Event(each.data);
        CZurSeqEvent more = Event(each.data);
        EXPECT_EQ(less.RemoveDataByte(each.index), each.removed != nullptr) << each.data;
        EXPECT_EQ(more.InsertDataByte(each.index, 0x55), each.inserted != nullptr) << each.data;
        EXPECT_EQ(DataOf(less), Hex(each.removed ? each.removed : each.data));
        EXPECT_EQ(DataOf(more), Hex(each.inserted ? each.inserted : each.data));
    }
    EXPECT_FALSE(CZurSeqEvent().RemoveDataByte(0));
    EXPECT_FALSE(CZurSeqEvent(0, 4, nullptr).InsertDataByte(2, 1));
}

TEST(SeqEvent, ByteEditsAcrossTheLengthOfTheQuantity) {
    ByteVector bytes = Hex("FF 01 7F");
    bytes.resize(130, 0x22);
    CZurSeqEvent event(0, 130, bytes.data());
    EXPECT_TRUE(event.InsertDataByte(3, 0x11));
    EXPECT_EQ(event.GetLength(), 132U);
    bytes = Hex("FF 01 81 00 11");
    bytes.resize(132, 0x22);
    EXPECT_EQ(DataOf(event), bytes);
    EXPECT_FALSE(event.RemoveDataByte(3));
    EXPECT_TRUE(event.RemoveDataByte(4));
    EXPECT_EQ(event.GetLength(), 130U);
    EXPECT_EQ(event.GetData()[2], 0x7F);
    EXPECT_EQ(event.GetData()[3], 0x22);
}

TEST(SeqEvent, MatchesBytesPassesOverWhatLiesOutside) {
    const CZurSeqEvent name = Event("FF 03 01 41");
    const SeqBytePattern pattern{{0, 0xFF}, {1, 0x03}};
    EXPECT_TRUE(name.MatchesBytes(pattern));
    EXPECT_FALSE(Event("FF 51 03 07 A1 20").MatchesBytes(pattern));
    EXPECT_TRUE(Event("FF").MatchesBytes(pattern));
    EXPECT_TRUE(name.MatchesBytes({{500, 9}, {0xFFFFFFFF, 9}}));
    EXPECT_TRUE(name.MatchesBytes({}));
    EXPECT_FALSE(CZurSeqEvent().MatchesBytes({}));
}

TEST(SeqEvent, EqualityLeavesTheDeltaOut) {
    EXPECT_TRUE(Event("90 3C 40", 1).IsEqual(Event("90 3C 40", 2)));
    EXPECT_FALSE(Event("90 3C 40").IsEqual(Event("90 3C 41")));
    EXPECT_FALSE(Event("90 3C").IsEqual(Event("90 3C 41")));
    EXPECT_FALSE(Event("90 3C").IsEqual(CZurSeqEvent(0, 2, nullptr)));
    EXPECT_TRUE(CZurSeqEvent().IsEqual(CZurSeqEvent()));
}

}  // namespace
