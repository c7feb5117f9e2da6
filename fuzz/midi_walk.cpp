// A random walk of operations on a sequence of tracks. Absolute ticks are the oracle: what an
// operation does not name keeps its own.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "fuzz/require.h"
#include "sequence/zur_sequence.h"
#include "tests/sequence/streams.h"

namespace {

using Moment = std::pair<std::uint32_t, const CZurSeqEvent*>;  // absolute tick and event

constexpr std::int32_t kTracks = 3;
constexpr std::uint32_t kLastTick = 1U << 20U;

std::vector<Moment> MomentsOf(const CZurSeqTrack& track) {
    std::vector<Moment> moments;
    std::uint32_t tick = 0;
    CZurSeqEvent* event = nullptr;
    for (std::uint32_t number = 1; track.GetEvent(number, event); ++number) {
        tick += event->GetDelta();
        moments.emplace_back(tick, event);
        Require(track.GetEventIndex(event) == number, "an event is found at its number");
        Require(track.GetElapsedTime(number) == tick, "elapsed time is the sum of deltas");
    }
    Require(moments.size() == track.GetEventCount(), "every event can be got");
    return moments;
}

bool IsEndMarker(const CZurSeqEvent& event) {
    const std::uint8_t* data = event.GetData();
    return event.GetLength() == 3 && data[0] == 0xFF && data[1] == 0x2F && data[2] == 0;
}

class Walk {
public:
    Walk(const std::uint8_t* data, std::size_t size) : input_(data, size), sequence_(1, 96) {
        for (std::int32_t number = 1; number <= kTracks; ++number) {
            sequence_.InsertTrack(0, new CZurSeqTrack);
        }
    }

    void Run() {
        while (input_.remaining_bytes() > 0) {
            Step(input_.ConsumeIntegralInRange(0, 12));
        }
        RequireSameAfterReading();
    }

private:
    CZurSeqTrack& AnyTrack() {
        CZurSeqTrack* track = nullptr;
        sequence_.GetTrack(input_.ConsumeIntegralInRange<std::int32_t>(1, kTracks), track);
        return *track;
    }
    std::int32_t AnyNumber() { return input_.ConsumeIntegralInRange<std::int32_t>(-1, 70); }
    std::uint32_t AnyTick() { return input_.ConsumeIntegralInRange(0U, kLastTick); }

    CZurSeqEvent* NewEvent() {
        static const std::vector<std::vector<std::uint8_t>> kinds = {
            {0x90, 60, 100}, {0x80, 60, 0},         {0xC1, 5},
            {0xFF, 0x2F, 0}, {0xF0, 2, 0x7E, 0xF7}, {0xFF, 0x58, 4, 3, 2, 24, 8},
            {0x90, 60, 0},   {0xFF, 0x03, 1, 'a'},  {0xFF, 0x51, 3, 7, 0xA1, 0x20},
        };
        std::vector<std::uint8_t> bytes =
            kinds[input_.ConsumeIntegralInRange<std::size_t>(0, kinds.size() - 1)];
        bytes.back() = static_cast<std::uint8_t>(bytes.size() == 2 ? 7 : bytes.back());
        return new CZurSeqEvent(input_.ConsumeIntegralInRange(0U, 1000U),
                                static_cast<std::uint32_t>(bytes.size()), bytes.data());
    }

    void Step(int command) {
        switch (command) {
            case 0:
                return AnyTrack().InsertEvent(static_cast<std::uint32_t>(AnyNumber()), NewEvent());
            case 1:
                return InsertAtTime();
            case 2:
                return Remove();
            case 3:
                return Move();
            case 4:
                return Edit();
            case 5:
                return AnyTrack().SortEvents(
                    [](const CZurSeqEvent* left, const CZurSeqEvent* right) {
                        return left->GetData()[0] < right->GetData()[0];
                    },
                    static_cast<std::uint32_t>(AnyNumber()),
                    static_cast<std::uint32_t>(AnyNumber()));
            case 6:
                return Rescale();
            case 7:
                return sequence_.InsertTrack(AnyNumber(), new CZurSeqTrack(AnyTrack()));
            case 8:
                if (sequence_.GetTrackCount() > kTracks) {
                    sequence_.DeleteTrack(AnyNumber());
                }
                return;
            case 9:
                return Add();
            default:
                return Ask();
        }
    }

    void Add() {
        std::unique_ptr<CZurSeqEvent> event(NewEvent());
        const std::size_t before = CountEvents();
        sequence_.AddEvent(AnyNumber(), {1 + AnyTick() % 99, 1, 0}, event.get());
        if (CountEvents() > before) {
            static_cast<void>(event.release());  // taken over
        }
    }

    void InsertAtTime() {
        CZurSeqTrack& track = AnyTrack();
        std::vector<Moment> expected = MomentsOf(track);
        const std::uint32_t tick = AnyTick();
        CZurSeqEvent* const event = NewEvent();
        track.InsertEventAtTime(tick, event);
        std::vector<Moment> moments = MomentsOf(track);
        const bool marked = !expected.empty() && IsEndMarker(*expected.back().second);
        if (marked && expected.back().first < tick) {
            expected.back().first = tick;
        }
        const auto closing = marked ? expected.end() - 1 : expected.end();
        const auto place = std::find_if(expected.begin(), closing, [tick](const Moment& moment) {
            return moment.first > tick;
        });
        expected.insert(place, {tick, event});
        Require(moments == expected, "an event goes in at its tick and moves no other");
    }

    void Remove() {
        CZurSeqTrack& track = AnyTrack();
        std::vector<Moment> expected = MomentsOf(track);
        const auto number = static_cast<std::uint32_t>(AnyNumber());
        track.RemoveEventAt(number, true);
        if (number >= 1 && number <= expected.size()) {
            expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(number) - 1);
        }
        Require(MomentsOf(track) == expected, "a removal moves no other event");
    }

    void Move() {
        const std::size_t before = CountEvents();
        sequence_.MoveEventAt(AnyNumber(), static_cast<std::uint32_t>(AnyNumber()),
                              static_cast<std::int32_t>(AnyTick()) - (1 << 19), AnyNumber());
        Require(CountEvents() == before, "a move loses no event");
    }

    void Edit() {
        CZurSeqEvent* event = nullptr;
        if (!AnyTrack().GetEvent(static_cast<std::uint32_t>(AnyNumber()), event)) {
            return;
        }
        const std::string before = BytesOf(*event);
        const auto index = static_cast<std::uint32_t>(AnyNumber());
        const bool inserted = event->InsertDataByte(index, 0x11);
        Require(inserted || BytesOf(*event) == before, "a refused edit changes nothing");
        if (inserted && event->RemoveDataByte(index)) {
            Require(BytesOf(*event) == before, "a byte put in and taken out leaves no trace");
        }
    }

    void Rescale() {
        const auto division = input_.ConsumeIntegralInRange<std::int16_t>(-1, 960);
        const std::size_t before = CountEvents();
        sequence_.SetDivisionRescaled(division);
        Require(CountEvents() == before, "rescaling keeps every event");
    }

    void Ask() {
        CZurSeqTrack& track = AnyTrack();
        const std::vector<Moment> before = MomentsOf(track);
        std::uint32_t time = 0;
        auto index = static_cast<std::uint32_t>(AnyNumber());
        track.LocateTime(AnyTick(), time, index);
        std::uint32_t layers = 0;
        CountNoteLayers(&track, static_cast<std::uint32_t>(AnyNumber()), layers);
        std::vector<t_tSigMapRec> signatures;
        sequence_.GetTimeSignatures(signatures);
        std::vector<t_tTempoRec> tempos;
        sequence_.GetTempos(tempos);
        sequence_.GetLastMeasure();
        sequence_.GetNoteEndTime(AnyNumber(), AnyNumber());
        sequence_.GetFirstNoteTime(AnyNumber());
        Require(MomentsOf(track) == before, "a question changes nothing");
    }

    std::size_t CountEvents() {
        std::size_t count = 0;
        CZurSeqTrack* track = nullptr;
        for (std::int32_t number = 1; sequence_.GetTrack(number, track); ++number) {
            count += MomentsOf(*track).size();
        }
        return count;
    }

    bool FitsAFile() {
        CZurSeqTrack* track = nullptr;
        for (std::int32_t number = 1; sequence_.GetTrack(number, track); ++number) {
            CZurSeqEvent* event = nullptr;
            for (std::uint32_t i = 1; track->GetEvent(i, event); ++i) {
                if (event->GetDelta() > 0x0FFFFFFF) {
                    return false;
                }
            }
        }
        return true;
    }

    void RequireSameAfterReading() {
        if (!FitsAFile()) {
            return;
        }
        std::strstream file;
        sequence_.Save(file);
        const CZurSequence again(file);
        Require(DumpOf(again) == DumpOf(sequence_), "what is saved loads as it was");
    }

    FuzzedDataProvider input_;
    CZurSequence sequence_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Walk(data, size).Run();
    return 0;
}
