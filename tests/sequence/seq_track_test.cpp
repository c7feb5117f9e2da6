#include "sequence/seq_track.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>

#include "sequence/seq_codes.h"
#include "tests/sequence/tracks.h"
#include "tests/support/data.h"

namespace {

/// An event that writes itself in its own way.
struct ShoutingEvent : CZurSeqEvent {
    void Save(std::strstream& stream) const override { stream << "HEY"; }
};

TEST(SeqTrack, ChunkBytes) {
    CZurSeqTrack track = TrackOf("1 90 3C 40; 200 3C");
    track.InsertEvent(2, new ShoutingEvent);
    EXPECT_EQ(Hex(BytesOf(track)), "4D 54 72 6B 00 00 00 0A 01 90 3C 40 48 45 59 81 48 3C");
    std::string tag;
    CZurSeqTrack(0x58464948).GetChunkTag(tag);
    EXPECT_EQ(tag, "XFIH");
    std::strstream stream;
    TrackOf("1 90 3C 40; 268435456 90 3C 40").Write(stream);
    EXPECT_TRUE(stream.fail());  // a delta that fits no file
    // Reading appends, and keeps what it got.
    std::strstream broken;
    Put(broken, Bytes("4D 54 72 6B 00 00 00 09 00 90 3C 40 05 3E 40 00"));
    track = TrackOf("7 C0 01");
    EXPECT_EQ(CodeOf([&] { track.Read(broken); }), kSeqBadTrackEvents);
    EXPECT_EQ(Text(track), "7 C0 01; 0 90 3C 40; 5 90 3E 40");
}

TEST(SeqTrack, InsertEventAtTime) {
    for (const auto& row : TestTable("insert_at_time.txt")) {
        CZurSeqTrack track = TrackOf(row[0]);
        const auto tick = static_cast<std::uint32_t>(std::stoul(row[1]));
        track.InsertEventAtTime(tick, nullptr);
        track.InsertEventAtTime(tick, NewEvent("AA", 999));
        EXPECT_EQ(Text(track), row[2]);
    }
}

TEST(SeqTrack, NumbersCountFromOne) {
    CZurSeqTrack track = TrackOf("1 01; 2 02");
    track.InsertEvent(0, NewEvent("03", 3));
    track.InsertEvent(4, NewEvent("04", 4));
    track.InsertEvent(1, NewEvent("00"));
    track.InsertEvent(1, nullptr);
    EXPECT_EQ(Text(track), "0 00; 1 01; 2 02; 3 03; 4 04");
    CZurSeqEvent* event = nullptr;
    EXPECT_FALSE(track.GetEvent(0, event) || track.GetEvent(6, event));
    EXPECT_EQ(event, nullptr);
    ASSERT_TRUE(track.GetEvent(4, event));
    EXPECT_EQ(track.GetEventIndex(event), 4U);
    EXPECT_EQ(track.GetEventIndex(nullptr), 0U);
    EXPECT_EQ(track.GetElapsedTime(4), 6U);
    EXPECT_EQ(track.GetElapsedTime(10), 10U);
}

TEST(SeqTrack, RemovalKeepsTheTicksBehind) {
    CZurSeqTrack track = TrackOf("1 01; 2 02; 4 03; 8 04");
    track.RemoveEventAt(0, true);
    track.RemoveEventAt(5, true);
    track.RemoveEventAt(4, true);
    CZurSeqEvent* event = nullptr;
    track.GetEvent(1, event);
    track.RemoveEvent(event, false);
    EXPECT_EQ(Text(track), "3 02; 4 03");
    track.RemoveEvent(event, true);  // no longer in the track
    EXPECT_EQ(event->GetDelta(), 1U);
    delete event;
}

TEST(SeqTrack, FindsByTimeAndByBytes) {
    const CZurSeqTrack track = TrackOf("0 90; 0 FF 03 01 41; 5 90 3C 40; 0 90 3C; 2 FF 03 00");
    const std::unique_ptr<CZurSeqEvent> key(NewEvent("90 3C", 77));
    const CZurSeqEvent empty;
    EXPECT_EQ(track.FindEvent(5, key.get()), 3U);
    EXPECT_EQ(track.FindEvent(0, key.get()), 0U);
    EXPECT_EQ(TrackOf("5 90 3C 40").FindEvent(5, key.get()), 1U);
    EXPECT_EQ(track.FindEvent(5, nullptr) + track.FindEvent(5, &empty), 0U);
    EXPECT_EQ(track.GetEventIndex(track.GetNameEvent()), 2U);
    EXPECT_EQ(TrackOf("0 90 3C 40").GetNameEvent(), nullptr);
    CZurSeqEvent* event = nullptr;
    EXPECT_FALSE(track.FindEventByBytes({{0, 0x90}}, event, 1));
    EXPECT_FALSE(track.FindEventByBytes({{0, 0xAA}}, event, 0));
    EXPECT_EQ(event, nullptr);
    EXPECT_TRUE(track.FindEventByBytes({{0, 0x90}, {1, 0x3C}}, event, 0));
    EXPECT_EQ(track.GetEventIndex(event), 1U);  // position 1 lies outside the first
    EXPECT_TRUE(TrackOf("0 80 3C 00; 0 91 3C 00").FindFirstNoteOn(event));
}

TEST(SeqTrack, LocateTime) {
    const CZurSeqTrack track = TrackOf("10 01; 10 02; 10 03");
    const std::array<std::uint32_t, 4> cases[] = {{15, 0, 10, 1}, {30, 0, 30, 3}, {20, 2, 20, 1},
                                                  {20, 1, 20, 2}, {9, 0, 0, 0},   {99, 0, 30, 3},
                                                  {30, 9, 30, 3}, {30, 3, 30, 2}, {10, 1, 10, 0}};
    for (const auto& [tick, given, expectedTime, expectedIndex] : cases) {
        std::uint32_t index = given;
        std::uint32_t time = 0;
        track.LocateTime(tick, time, index);
        EXPECT_EQ(std::tie(time, index), std::tie(expectedTime, expectedIndex)) << tick;
    }
}

TEST(SeqTrack, RescaleCarriesTheError) {
    CZurSeqTrack track = TrackOf("1 01; 1 02; 1 03");
    track.Rescale(480, 240);
    EXPECT_EQ(Text(track), "0 01; 1 02; 0 03");
    track = TrackOf("1 01; 1 02; 4294967295 03");
    track.Rescale(2, 5);
    track.Rescale(0, 5);
    EXPECT_EQ(Text(track), "2 01; 3 02; 4294967295 03");
}

TEST(SeqTrack, SortIsStableAndCountsFromZero) {
    const auto sorted = [&](std::uint32_t first, std::uint32_t last) {
        CZurSeqTrack track = TrackOf("1 03; 2 02 01; 3 02 02; 4 01");
        track.SortEvents(ByStatus, first, last);
        track.SortEvents(nullptr, 0, 0);
        return Text(track);
    };
    EXPECT_EQ(sorted(0, 0), "4 01; 2 02 01; 3 02 02; 1 03");
    EXPECT_EQ(sorted(0, 3), "2 02 01; 3 02 02; 1 03; 4 01");
    EXPECT_EQ(sorted(2, 99), "1 03; 2 02 01; 4 01; 3 02 02");
    EXPECT_EQ(sorted(3, 2), "1 03; 2 02 01; 3 02 02; 4 01");
}

TEST(SeqTrack, CopiesAreDeepAndMarksStayBehind) {
    const CZurSeqTrack track = TrackOf("1 01; 2 02");
    CZurSeqEvent* event = nullptr;
    track.GetEvent(2, event);
    event->SetMarked(1);
    CZurSeqTrack copy(0x41424344);
    copy = track;
    copy = *&copy;
    EXPECT_TRUE(track.HasMarkedEvents());
    EXPECT_FALSE(copy.HasMarkedEvents());
    EXPECT_EQ(copy.GetEventIndex(event), 0U);
    EXPECT_EQ(BytesOf(copy), BytesOf(track));
}

TEST(SeqTrack, CountNoteLayers) {
    // Three notes of one key that overlap, and one of another key and channel between.
    const CZurSeqTrack track = TrackOf(
        "0 FF 03 00; 0 90 3C 40; 0 91 3C 40; 0 90 3C 41; 0 90 3E 40; 0 90 3C 42; 0 80 3C 00;"
        "0 90 3C 00; 0 81 3C 00; 0 90 3C 43; 0 80 3C 00; 0 90");
    // The walk back ends at event 1, which sets the count to 0.
    const CZurSeqTrack first = TrackOf("0 90 3C 40; 0 80 3C 00; 0 90 3C 40; 0 80 3C 00");
    const std::tuple<const CZurSeqTrack*, std::uint32_t, bool, std::uint32_t, std::uint32_t>
        cases[] = {// number, found, count in, count out
                   {&track, 1, true, 5, 0},   {&track, 2, true, 5, 5},   {&track, 4, true, 5, 6},
                   {&track, 6, true, 0, 1},   {&track, 5, false, 3, 3},  {&track, 10, true, 0, 2},
                   {&track, 12, false, 3, 3}, {&track, 13, false, 3, 3}, {&track, 0, false, 3, 3},
                   {nullptr, 1, false, 3, 3}, {&first, 3, true, 3, 0}};
    for (const auto& [notes, number, found, given, expected] : cases) {
        std::uint32_t count = given;
        EXPECT_EQ(CountNoteLayers(notes, number, count), found) << number;
        EXPECT_EQ(count, expected) << number;
    }
}

}  // namespace
