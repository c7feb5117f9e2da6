#include "sequence/seq_event.h"

#include <gtest/gtest.h>

#include <thread>

#include "sequence/seq_codes.h"
#include "tests/sequence/tracks.h"

namespace {

CZurSeqEvent Event(const std::string& hex, std::uint32_t delta = 0) {
    const std::unique_ptr<CZurSeqEvent> event(NewEvent(hex, delta));
    return *event;
}

/// The bytes in hexadecimal, "-" for none.
std::string DataOf(const CZurSeqEvent& event) {
    const auto* const data = reinterpret_cast<const char*>(event.GetData());
    return data ? Hex({data, event.GetLength()}) : "-";
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
        {0, "00 F1 80 80 01 43", 0, "F1 01 43", -1},
        {0, "07 3C", 7, "-", -1},
        {0x90, "00 3C", 0, "90 3C FF", 0},  // the end shows one read late
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.stream);
        InEveryShape(Bytes(each.stream), [&](std::strstream& stream) {
            const CZurSeqEvent event(stream, each.running);
            EXPECT_EQ(event.GetDelta(), each.delta);
            EXPECT_EQ(event.GetKind(), each.kind);
            EXPECT_EQ(DataOf(event), each.data);
        });
    }
}

TEST(SeqEvent, RaisesOnWhatIsNotThere) {
    for (const char* const text : {"", "00", "81", "00 90", "00 FF", "00 FF 51", "00 FF 51 03 07",
                                   "00 F0 02 43", "81 80 80 80 00 90 3C 40"}) {
        SCOPED_TRACE(text);
        InEveryShape(Bytes(text), [](std::strstream& stream) {
            CZurSeqEvent event;
            EXPECT_EQ(CodeOf([&] { event.Read(stream, 0x90); }), kSeqEndOfStream);
            EXPECT_EQ(DataOf(event) + std::to_string(event.GetLength()), "-0");
            stream.clear();
            stream.seekg(0);
            stream.setstate(std::ios::failbit);  // counts as the end
            EXPECT_EQ(CodeOf([&] { CZurSeqEvent(stream, 0x90); }), kSeqBadEvent);
        });
    }
}

TEST(SeqEvent, WritesTheStatusAlwaysAndNoDeltaThatFitsNoFile) {
    EXPECT_EQ(Hex(BytesOf(Event("90 3C 40", 200))), "81 48 90 3C 40");
    EXPECT_EQ(Hex(BytesOf(CZurSeqEvent())), "00");
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
    EXPECT_EQ(DumpOf(copy), DumpOf(event));
    EXPECT_NE(copy.GetData(), event.GetData());
    event = Event("90 3C 40 41 42 43 44 45 46", 3);
    EXPECT_EQ(event.IsMarked(), 7);
    copy = event;
    copy = *&copy;
    EXPECT_EQ(DataOf(copy), "90 3C 40 41 42 43 44 45 46");
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
    EXPECT_EQ(DataOf(event), "3C 41");
}

TEST(SeqEvent, ByteEditsKeepTheQuantityRight) {
    struct Case {
        const char* data;
        std::uint32_t index;
        const char* removed;   ///< null: refused
        const char* inserted;  ///< with 55
    };
    const std::string longer = "FF 01 81 00 55" + Hex(std::string(127, 'x')).insert(0, " ");
    const std::string shorter = "FF 01 7F" + longer.substr(14);
    const Case cases[] = {
        {"90 3C 40", 1, nullptr, nullptr},
        {"FF 01 02 61 62", 2, nullptr, nullptr},
        {"FF 01 02 61 62", 3, "FF 01 01 62", "FF 01 03 55 61 62"},
        {"FF 01 02 61 62", 5, nullptr, "FF 01 03 61 62 55"},
        {"FF 01 02 61 62", 6, nullptr, nullptr},
        {"F0 03 43 12 F7", 1, nullptr, nullptr},
        {"F0 03 43 12 F7", 3, "F0 02 43 F7", "F0 04 43 55 12 F7"},
        {"F0 03 43 12 F7", 4, nullptr, "F0 04 43 12 55 F7"},
        {"F0 03 43 12 F7", 5, nullptr, nullptr},
        {"F7 02 43 F7", 3, "F7 01 43", "F7 03 43 55 F7"},
        {"F7 00", 2, nullptr, "F7 01 55"},
        {"F1 02 43 44", 2, nullptr, nullptr},
        {"F7 81 81", 2, nullptr, nullptr},        // a quantity without an end
        {"FF 01 05 61 62", 3, nullptr, nullptr},  // one that does not agree
        {"FF", 0, nullptr, nullptr},
        {longer.c_str(), 3, nullptr, nullptr},  // inside a quantity of two bytes
        {shorter.c_str(), 2, nullptr, nullptr},
    };
    for (const Case& each : cases) {
        CZurSeqEvent less = Event(each.data);
        CZurSeqEvent more = Event(each.data);
        EXPECT_EQ(less.RemoveDataByte(each.index), each.removed != nullptr) << each.data;
        EXPECT_EQ(more.InsertDataByte(each.index, 0x55), each.inserted != nullptr) << each.data;
        EXPECT_EQ(DataOf(less), each.removed ? each.removed : each.data);
        EXPECT_EQ(DataOf(more), each.inserted ? each.inserted : each.data);
    }
    CZurSeqEvent event = Event(shorter);
    EXPECT_TRUE(event.InsertDataByte(3, 0x55));
    EXPECT_EQ(DataOf(event), longer);
    EXPECT_TRUE(event.RemoveDataByte(4));
    EXPECT_EQ(DataOf(event), shorter);
    EXPECT_FALSE(CZurSeqEvent().RemoveDataByte(0));
    EXPECT_FALSE(CZurSeqEvent(0, 4, nullptr).InsertDataByte(2, 1));
}

TEST(SeqEvent, MatchesAndEquals) {
    const CZurSeqEvent name = Event("FF 03 01 41");
    EXPECT_TRUE(name.MatchesBytes({{0, 0xFF}, {1, 0x03}, {4, 9}, {0xFFFFFFFF, 9}}));
    EXPECT_FALSE(name.MatchesBytes({{0, 0xFF}, {1, 0x51}}));
    EXPECT_TRUE(name.MatchesBytes({}));
    EXPECT_FALSE(CZurSeqEvent().MatchesBytes({}));
    EXPECT_TRUE(Event("90 3C 40", 1).IsEqual(Event("90 3C 40", 2)));
    EXPECT_FALSE(Event("90 3C 40").IsEqual(Event("90 3C 41")));
    EXPECT_FALSE(Event("90 3C").IsEqual(Event("90 3C 41")));
    EXPECT_FALSE(Event("90 3C").IsEqual(CZurSeqEvent(0, 2, nullptr)));
    EXPECT_TRUE(CZurSeqEvent().IsEqual(CZurSeqEvent()));
}

TEST(SeqEvent, MayBeMadeInOneThreadAndDestroyedInAnother) {
    for (int round = 0; round < 20; ++round) {
        CZurSeqTrack track;
        std::thread maker([&track] {
            for (std::uint32_t i = 0; i < 700; ++i)  // more than a slab holds
                track.InsertEvent(0,
                                  NewEvent(i % 2 ? "90 3C 40" : "F0 07 01 02 03 04 05 06 F7", i));
        });
        maker.join();
        ASSERT_EQ(track.GetElapsedTime(700), 699U * 350U);
    }
}

}  // namespace
