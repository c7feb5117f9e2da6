#include "sequence/seq_event.h"

#include <gtest/gtest.h>

#include <thread>
#include <tuple>

#include "sequence/seq_codes.h"
#include "tests/sequence/tracks.h"
#include "tests/support/data.h"

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

// What a whole event reads as is tested with files.
TEST(SeqEvent, ReadsAtTheEndAndWithoutAStatus) {
    const std::tuple<const char*, std::uint8_t, const char*> cases[] = {
        {"00 3C", 0x90, "0\t\t90 3C FF \r"},  // the end shows one read late
        {"81 00 7F", 0xD1, "128\t\tD1 7F \r"},
        {"07 3C", 0, "7\t\t\r"}};
    for (const auto& [bytes, status, line] : cases) {
        InEveryShape(Bytes(bytes), [&, status = status, line = line](std::strstream& stream) {
            EXPECT_EQ(DumpOf(CZurSeqEvent(stream, status)), line);
        });
    }
    for (const char* const text : {"", "00 90", "00 FF 51", "00 F0 02 43"}) {
        CZurSeqEvent event = Event("C0 01");
        std::strstream stream;
        Put(stream, Bytes(text));
        EXPECT_EQ(CodeOf([&] { event.Read(stream, 0x90); }), kSeqEndOfStream) << text;
        EXPECT_EQ(DataOf(event) + std::to_string(event.GetLength()), "-0") << text;
        EXPECT_EQ(CodeOf([&] { CZurSeqEvent(stream, 0x90); }), kSeqBadEvent) << text;
    }
    std::strstream failed;
    Put(failed, Bytes("00 3C 40"));
    failed.setstate(std::ios::failbit);
    EXPECT_EQ(CodeOf([&] { CZurSeqEvent(failed, 0x90); }), kSeqBadEvent) << "counts as the end";
}

TEST(SeqEvent, KindGoesByTheStatus) {
    const std::pair<const char*, int> cases[] = {{"80 3C 00", 0}, {"EF 00 40", 0}, {"FF 2F 00", 1},
                                                 {"F0 00", 2},    {"F1 00", -1},   {"F7 00", -1},
                                                 {"FE 00", -1},   {"7F", -1},      {"", -1}};
    for (const auto& [bytes, kind] : cases)
        EXPECT_EQ(Event(bytes).GetKind(), kind) << bytes;
    EXPECT_EQ(CZurSeqEvent(0, 3, nullptr).GetKind(), -1);
}

TEST(SeqEvent, WritesNoDeltaThatFitsNoFileAndDumpsOneLine) {
    EXPECT_EQ(Hex(BytesOf(CZurSeqEvent())), "00");
    std::strstream stream;
    Event("90 3C 40", 0x10000000).Save(stream);
    EXPECT_TRUE(stream.fail());
    EXPECT_EQ(stream.pcount(), 0);
    EXPECT_EQ(DumpOf(Event("8F", 4294967295U)), "4294967295\t\t8F \r");
    EXPECT_EQ(DumpOf(CZurSeqEvent(5, 3, nullptr)), "5\t\t\r");
}

TEST(SeqEvent, CopiesStartUnmarkedAndAssignmentKeepsTheMark) {
    CZurSeqEvent event = Event("F0 02 43 F7", 9);
    event.SetMarked(7);
    CZurSeqEvent copy(event);
    EXPECT_EQ(copy.IsMarked(), 0);
    EXPECT_NE(copy.GetData(), event.GetData());
    EXPECT_EQ(DumpOf(copy), "9\t\tF0 02 43 F7 \r");
    event = Event("90 3C 40 41 42 43 44 45 46", 3);
    event = *&event;
    EXPECT_EQ(event.IsMarked(), 7);
    EXPECT_EQ(DumpOf(event), "3\t\t90 3C 40 41 42 43 44 45 46 \r");
    const CZurSeqEvent hollow(CZurSeqEvent(1, 12, nullptr));
    EXPECT_EQ(DataOf(hollow) + std::to_string(hollow.GetLength()), "-12");
}

TEST(SeqEvent, SetDataOfNothingChangesNothing) {
    CZurSeqEvent event = Event("90 3C 40", 5);
    event.SetData(9, nullptr, 3);
    event.SetData(9, event.GetData(), 0);
    EXPECT_EQ(DumpOf(event), "5\t\t90 3C 40 \r");
    event.SetData(6, event.GetData() + 1, 2);  // out of its own bytes
    const std::unique_ptr<std::uint8_t[]> copy(event.CopyData());
    *event.GetByteAt(1) = 0x41;
    EXPECT_EQ(DumpOf(event), "6\t\t3C 41 \r");
    EXPECT_EQ(copy[1], 0x40);
    EXPECT_EQ(CZurSeqEvent().CopyData(), nullptr);
}

TEST(SeqEvent, ByteEditsKeepTheQuantityRight) {
    for (const auto& row : TestTable("byte_edits.txt")) {
        const auto index = static_cast<std::uint32_t>(std::stoul(row[1]));
        CZurSeqEvent shorter = Event(row[0]);
        CZurSeqEvent longer = Event(row[0]);
        const bool removed = shorter.RemoveDataByte(index);
        const bool inserted = longer.InsertDataByte(index, 0x55);
        EXPECT_EQ(removed ? DataOf(shorter) : "refused", row[2]) << row[0];
        EXPECT_EQ(inserted ? DataOf(longer) : "refused", row[3]) << row[0];
        EXPECT_TRUE(removed || DataOf(shorter) == row[0]);
        EXPECT_TRUE(inserted || DataOf(longer) == row[0]);
    }
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
