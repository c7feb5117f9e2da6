#include "sequence/zur_sequence.h"

#include <gtest/gtest.h>

#include "sequence/seq_codes.h"
#include "tests/sequence/tracks.h"

namespace {

constexpr std::uint32_t kNoTime = 0xFFFFFFFF;

/// Time signatures or tempos, whatever the operation appends.
template <typename Record>
std::vector<Record> ListOf(void (CZurSequence::*operation)(std::vector<Record>&) const,
                           std::int16_t division, const std::string& conductor) {
    std::vector<Record> list;
    (SequenceOf(division, {conductor, "0 FF 58 04 05 02; 0 FF 51 03 01 01 01"}).*operation)(list);
    return list;
}

constexpr auto kSignatures = &CZurSequence::GetTimeSignatures;
constexpr auto kTempos = &CZurSequence::GetTempos;

TEST(Sequence, WritesItsHeader) {
    EXPECT_EQ(Hex(BytesOf(CZurSequence())), "4D 54 68 64 00 00 00 06 00 00 00 00 01 E0");
    EXPECT_EQ(Hex(BytesOf(SequenceOf(96, {"", "0 FF 2F 00"}))),
              "4D 54 68 64 00 00 00 06 00 01 00 02 00 60 4D 54 72 6B 00 00 00 00 "
              "4D 54 72 6B 00 00 00 04 00 FF 2F 00");
    const std::vector<std::string> eleven(11);
    EXPECT_NE(DumpOf(SequenceOf(480, eleven)).find("Track:9\rTrack:10\r"), std::string::npos);
}

TEST(Sequence, LoadReplacesReadAppendsAndFailuresLeaveWhatWasRead) {
    const std::string good = BytesOf(SequenceOf(96, {"0 C0 01", "0 FF 2F 00"}));
    std::string broken = good;
    broken.back() = 1;  // a payload of one byte that is not there
    CZurSequence sequence = SequenceOf(50, {"0 C0 07"});
    const auto run = [&](const std::string& bytes, auto operation) {
        std::strstream stream;
        Put(stream, bytes);
        return CodeOf([&] { (sequence.*operation)(stream); });
    };
    EXPECT_EQ(run(good, &CZurSequence::Read), 0);
    EXPECT_EQ(Text(sequence), "0 C0 07 | 0 C0 01 | 0 FF 2F 00");
    EXPECT_EQ(run(broken, &CZurSequence::Load), kSeqBadTrackEvents);
    EXPECT_EQ(DumpOf(sequence), "Format:1\rResolution:96\rTrack:0\r0\t\tC0 01 \r");
    EXPECT_EQ(run(Bytes("4D 54 68 64 00 00 00 06 00 01 00 02 E2 50"), &CZurSequence::Load),
              kSeqBadDivision);
    EXPECT_EQ(DumpOf(sequence), "Format:1\rResolution:-7600\r");
    EXPECT_EQ(run(good, &CZurSequence::Load), 0);
    EXPECT_EQ(BytesOf(sequence), good);
}

TEST(Sequence, TrackNumbersAndCopies) {
    CZurSequence sequence = SequenceOf(480, {"1 01", "2 02", "3 03"});
    sequence.InsertTrack(1, new CZurSeqTrack);
    sequence.InsertTrack(1, nullptr);
    sequence.DeleteTrack(5);
    sequence.DeleteTrack(0);
    EXPECT_EQ(Text(sequence), " | 1 01 | 2 02 | 3 03");
    for (const int number : {0, -1, 5})
        EXPECT_EQ(Track(sequence, number), nullptr);
    EXPECT_EQ(sequence.GetTrackIndex(Track(sequence, 3)), 3);
    EXPECT_EQ(sequence.GetTrackIndex(nullptr), 0);
    sequence.DeleteTrack(1);
    const CZurSequence copy(sequence);
    sequence.CopyFrom(sequence);
    EXPECT_EQ(Text(sequence), "1 01 | 2 02 | 3 03 | 1 01 | 2 02 | 3 03");
    sequence = copy;
    EXPECT_EQ(BytesOf(sequence), BytesOf(copy));
    sequence.SetFormat(1).SetDivision(7).Init();
    EXPECT_EQ(DumpOf(sequence).substr(0, 24), "Format:0\rResolution:480\r");
    EXPECT_EQ(sequence.GetTrackCount(), 3);
    sequence.Clear();
    EXPECT_EQ(sequence.GetTrackCount(), 0);
}

TEST(Sequence, EventOperationsGoToTheirTrack) {
    CZurSequence sequence = SequenceOf(480, {"5 01", "9 FF 2F 00"});
    CZurSeqEvent* event = NewEvent("02", 1);
    for (const int track : {0, 3}) {
        sequence.InsertEvent(track, 1, event);  // no such track: the caller keeps the event
        sequence.InsertEventAtTime(track, 1, event);
        sequence.AddEvent(track, {1, 1, 0}, event);
        sequence.RemoveEvent(track, event, true);
        sequence.RemoveEventAt(track, 1, true);
    }
    sequence.InsertEvent(1, 1, event);
    sequence.InsertEventAtTime(2, 4, NewEvent("03"));
    sequence.AddEvent(2, {2, 1, 3}, NewEvent("04"));
    sequence.AddEvent(2, {2, 1, 3}, nullptr);
    EXPECT_EQ(Text(sequence), "1 02; 5 01 | 4 03; 1919 04; 0 FF 2F 00");
    EXPECT_FALSE(sequence.GetTrackEvent(3, 0, 1, event));
    ASSERT_TRUE(sequence.GetTrackEvent(2, 99, 2, event));
    EXPECT_EQ(sequence.GetEventTime(2, event), 1923U);
    EXPECT_EQ(sequence.GetEventTime(3, event), 0U);
    event->SetMarked(1);
    EXPECT_TRUE(sequence.HasMarkedEvents());
    sequence.ClearMarks();
    EXPECT_FALSE(sequence.HasMarkedEvents());
    sequence.RemoveEvent(2, event, true);
    sequence.RemoveEventAt(1, 1, true);
    EXPECT_EQ(Text(sequence), "6 01 | 4 03; 1919 FF 2F 00");
}

TEST(SequenceTiming, SignaturesAreLaidOnTheGrid) {
    const std::pair<std::uint32_t, t_MBT> cases[] = {
        {3840, {3, 1, 0}}, {3845, {3, 1, 0}},  {3835, {3, 1, 0}},  {2390, {3, 1, 0}},
        {2410, {2, 2, 0}}, {2411, {2, 2, 11}}, {2389, {2, 1, 469}}};
    for (const auto& [tick, place] : cases)
        EXPECT_EQ(ListOf(kSignatures, 480, std::to_string(tick) + " FF 58 04 03 02 18 08"),
                  (std::vector<t_tSigMapRec>{{place.measure, place.beat, place.tick, tick, 3, 4}}));
    const CZurSequence whole = SequenceOf(480, {"3840 FF 58 04 03 02 18 08"});
    EXPECT_EQ(whole.GetTicksPerMeasure(3), 1440U);
    EXPECT_EQ(whole.GetTicksPerMeasure(1), 1920U);
    EXPECT_EQ(CZurSequence().GetTicksPerMeasure(9), 1920U);
}

TEST(SequenceTiming, TemposStandAtTheirTruePlaces) {
    // The walk keeps the signature at 1, 4, 475, so measure 2 begins 1440 ticks behind it.
    EXPECT_EQ(ListOf(kTempos, 480,
                     "0 FF 51 03 07 A1 20; 1915 FF 58 04 03 02 18 08; 1445 FF 51 03 00 00 00; "
                     "0 FF 51 02 01"),
              (std::vector<t_tTempoRec>{{1, 1, 0, 0, 500000}, {2, 1, 5, 3360, 0}}));
}

TEST(SequenceTiming, UncheckedSignaturesNeverDivideByZero) {
    const std::string conductor = "0 FF 58 04 00 FF 18 08; 5 FF 58 01 03; 7 FF 58 04 00 00";
    EXPECT_EQ(ListOf(kSignatures, 1, conductor),
              (std::vector<t_tSigMapRec>{{1, 1, 0, 0, 0, 0x80000000}, {13, 1, 0, 12, 0, 1}}));
}

TEST(SequenceTiming, SignatureAtAPlace) {
    const CZurSequence sequence =
        SequenceOf(480, {"1920 FF 58 04 03 02; 480 FF 58 04 05 03; 1920 FF 58 04 02 02"});
    // Both first records stand in measure 2; its ticks are reckoned from the second, so at 2, 1, 0
    // lies the first by its own place, too.
    const std::pair<t_MBT, t_tSigMapRec> cases[] = {{{1, 4, 479}, {7, 7, 7, 7, 4, 4}},
                                                    {{2, 1, 0}, {2, 1, 0, 1920, 3, 4}},
                                                    {{9, 1, 0}, {3, 4, 0, 4320, 2, 4}}};
    for (const auto& [place, expected] : cases) {
        t_tSigMapRec record{7, 7, 7, 7, 7, 7};
        sequence.GetTimeSignatureAt(place, record);
        EXPECT_EQ(record, expected) << record.totalTick;
    }
}

TEST(SequenceTiming, MoveEvent) {
    CZurSequence sequence = SequenceOf(480, {"0 01; 100 02; 50 FF 2F 00", "500 FF 2F 00"});
    CZurSeqTrack* const first = Track(sequence, 1);
    CZurSeqTrack* const second = Track(sequence, 2);
    CZurSeqEvent* event = nullptr;
    first->GetEvent(2, event);
    CZurSeqTrack foreign;
    sequence.MoveEvent(first, event, 5, &foreign);
    sequence.MoveEvent(second, event, 5, first);
    sequence.MoveEvent(nullptr, event, 5, first);
    sequence.MoveEventAt(1, 9, 5, 2);
    EXPECT_EQ(Text(sequence), "0 01; 100 02; 50 FF 2F 00 | 500 FF 2F 00");
    sequence.MoveEvent(first, event, 0, second);
    EXPECT_EQ(Text(sequence), "0 01; 150 FF 2F 00 | 100 02; 400 FF 2F 00");
    sequence.MoveEventAt(2, 1, -200, 1);
    EXPECT_EQ(Text(*first), "0 01; 0 02; 150 FF 2F 00");
    // A signature that moves: its place is read under the old list, 3, 3, 240 in 4/4, and written
    // under the list without it.
    sequence = SequenceOf(480, {"0 FF 58 04 02 02; 960 FF 58 04 04 02; 4000 FF 2F 00"});
    sequence.MoveEventAt(1, 2, 3120, 1);
    EXPECT_EQ(Text(sequence), "0 FF 58 04 02 02; 3120 FF 58 04 04 02; 1840 FF 2F 00");
}

TEST(SequenceTiming, Lengths) {
    const CZurSequence sequence =
        SequenceOf(480, {"0 FF 58 04 03 02", "10 90 3C 40; 10 90 3C 00; 5000 FF 2F 00",
                         "100 80 3C 00", "9000 90 3C 40; 0 90 3C", ""});
    EXPECT_EQ(CZurSequence().GetLastMeasure(), 0U);
    EXPECT_EQ(SequenceOf(480, {""}).GetLastMeasure(), 1U);
    EXPECT_EQ(sequence.GetLastMeasure(), 7U);
    EXPECT_EQ(sequence.GetEndTime(), 9000U);
    EXPECT_EQ(sequence.GetNoteEndTime(3, 99), 100U);
    EXPECT_EQ(sequence.GetNoteEndTime(0, 1), 0U);
    EXPECT_EQ(sequence.GetNoteEndTime(0, 2), 5020U);
    EXPECT_EQ(sequence.GetNoteEndTime(-5, 0x7FFFFFFF), 5020U);
    std::uint32_t number = 77;
    for (const int track : {0, 3, 9})
        EXPECT_EQ(sequence.GetFirstNoteTime(track, number), kNoTime) << track;
    EXPECT_EQ(number, 77U);
    EXPECT_EQ(sequence.GetFirstNoteTime(4, number), 9000U);
    EXPECT_EQ(number, 1U);
    EXPECT_EQ(sequence.GetFirstNoteTime(0), 10U);
    EXPECT_EQ(SequenceOf(480, {"7 90 3C 40", "9 90 3C 40"}).GetFirstNoteTime(0), 7U);
    EXPECT_EQ(sequence.GetFirstNoteTime(3), kNoTime);
}

TEST(SequenceTiming, SetDivisionRescaled) {
    CZurSequence sequence = SequenceOf(240, {"1 01; 3 02", "5 03"});
    for (const int division : {0, 240, -480})
        sequence.SetDivisionRescaled(static_cast<std::int16_t>(division));
    EXPECT_EQ(sequence.GetDivision(), 240);
    sequence.SetDivisionRescaled(480);
    EXPECT_EQ(sequence.GetDivision(), 480);
    EXPECT_EQ(Text(sequence), "2 01; 6 02 | 10 03");
}

TEST(SequenceTiming, SortTrackRunSortsWhatStandsBeforeTheStop) {
    const auto before = [](std::uint32_t tick, CZurSeqEvent*, void* end) {
        return tick < *static_cast<std::uint32_t*>(end);
    };
    const std::pair<std::uint32_t, const char*> cases[] = {{0, "1 03; 1 02; 1 01; 1 00"},
                                                           {4, "1 01; 1 02; 1 03; 1 00"},
                                                           {9, "1 00; 1 01; 1 02; 1 03"}};
    for (auto [limit, sorted] : cases) {
        CZurSequence sequence = SequenceOf(480, {"1 03; 1 02; 1 01; 1 00"});
        sequence.SortTrackRun(1, &limit, nullptr, ByStatus);
        sequence.SortTrackRun(1, &limit, before, nullptr);
        sequence.SortTrackRun(2, &limit, before, ByStatus);
        sequence.SortTrackRun(1, &limit, before, ByStatus);
        EXPECT_EQ(Text(sequence), sorted);
    }
}

}  // namespace
