#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "midi/pattern_events.h"
#include "midi/pattern_midi.h"
#include "params/pattern_requests.h"
#include "params/position_block.h"
#include "sequence/byte_stream.h"

namespace {

constexpr std::uint64_t kMostTick = 999999999;
constexpr std::uint64_t kMostTimeSigTick = std::numeric_limits<std::uint32_t>::max();
// What a load of the pattern counts to.
constexpr std::size_t kMostPositions = 32767;
// A load takes the low 16 bits; what is further away is as far as they say.
constexpr std::uint32_t kMostDistance = 0xFFFF;
constexpr std::uint32_t kMostDenominator = 0x8000;
constexpr std::uint32_t kPlacement = 2800;

struct Placement {
    std::uint64_t tick;
    DeviceMessage message;
};

std::unique_ptr<CQelCPB_3DPosition> PositionFrom(const Placement& placement) {
    // As parameters they would be limited without a word; a load has words.
    std::array<std::uint8_t, 14> bytes = {};
    EncodeBigEndian32(static_cast<std::uint32_t>(placement.tick), bytes.data());
    bytes[4] = placement.message.id;
    bytes[8] = placement.message.azimuth;
    bytes[9] = placement.message.elevation;
    EncodeBigEndian32(std::min(placement.message.distance, kMostDistance), bytes.data() + 10);
    auto block = std::make_unique<CQelCPB_3DPosition>();
    st_paramData data{kPlacement, -1, bytes.data(), bytes.size()};
    block->SetParam(8, &data, kSizeParamData);
    return block;
}

bool HasBytes(const CZurSeqEvent& event, const EventBytes& bytes) {
    return event.GetData() && event.GetLength() == bytes.size() &&
           std::equal(bytes.begin(), bytes.end(), event.GetData());
}

bool IsMeta(const CZurSeqEvent& event, std::uint8_t type) {
    return event.GetKind() == 1 && event.GetLength() > 1 && event.GetData()[1] == type;
}

/// True for one that the sequence gives a record for.
bool IsTimeSignature(const CZurSeqEvent& event) {
    return IsMeta(event, kMetaTimeSignature) && event.GetLength() > 4;
}

std::optional<DeviceMessage> MessageOf(const CZurSeqEvent& event) {
    if (event.GetKind() != 2 || event.GetLength() != kDeviceMessageSize + 1) {
        return std::nullopt;
    }
    DeviceMessageBytes bytes = {0xF0};
    std::copy_n(event.GetData() + 2, bytes.size() - 1, bytes.begin() + 1);
    return DecodeDeviceMessage(bytes);
}

/// Takes the events of a sequence, one track after the other.
class PatternReader {
public:
    explicit PatternReader(const CZurSequence& sequence) : sequence_(sequence) {}

    PatternFromMidi Read() {
        CZurSeqTrack* track = nullptr;
        for (std::int32_t number = 1; sequence_.GetTrack(number, track); ++number) {
            const CZurSeqEvent* const nameEvent = number == 1 ? track->GetNameEvent() : nullptr;
            TakeTrack(*track, number == 1, nameEvent);
        }
        const std::uint32_t failures = SwallowedFailures();
        result_.pattern = std::make_unique<CQelCPB_3DPattern>();
        RaiseFailuresSince(failures);  // One that holds nothing takes all, and keeps nothing.
        PutDivision();
        PutTimeSigs();
        PutPositions();
        RaiseFailuresSince(failures);
        return std::move(result_);
    }

private:
    void TakeTrack(const CZurSeqTrack& track, bool isConductor, const CZurSeqEvent* nameEvent) {
        std::uint64_t tick = 0;  // in 32 bits it would wrap
        CZurSeqEvent* event = nullptr;
        for (std::uint32_t number = 1; track.GetEvent(number, event); ++number) {
            tick += event->GetDelta();
            if (event == nameEvent) {
                TakeName(*event);
            } else if (const auto message = MessageOf(*event)) {
                placements_.push_back({tick, *message});
            } else if (isConductor && IsTimeSignature(*event)) {
                ++(tick <= kMostTimeSigTick ? timeSigs_ : result_.metaEvents);
            } else if (!IsExpected(*event, isConductor, tick)) {
                CountOther(*event);
            }
        }
    }

    /// True for what is taken over in another way, and for what says nothing that gets lost.
    static bool IsExpected(const CZurSeqEvent& event, bool isConductor, std::uint64_t tick) {
        if (event.GetKind() != 1) {
            return false;
        }
        if (IsMeta(event, kMetaEndOfTrack) || HasBytes(event, MetaEvent(kMetaText, ""))) {
            return true;
        }
        if (isConductor) {
            return tick == 0 && HasBytes(event, TempoEvent(kDefaultTempo));
        }
        for (int id = 0; id < kIdTracks; ++id) {
            if (HasBytes(event, IdTrackName(id))) {
                return true;
            }
        }
        return false;
    }

    void CountOther(const CZurSeqEvent& event) {
        const std::int32_t kind = event.GetKind();
        ++(kind == 0   ? result_.channelMessages
           : kind == 1 ? result_.metaEvents
                       : result_.systemMessages);
    }

    void TakeName(const CZurSeqEvent& event) {
        std::array<std::uint8_t, 4> quantity{};
        const std::uint32_t start =
            2 + EncodeVarLen(DecodeVarLen(event.GetData() + 2), quantity.data());
        result_.name.emplace(event.GetData() + start, event.GetData() + event.GetLength());
    }

    void PutDivision() {
        st_paramValue division{-1, static_cast<std::uint32_t>(sequence_.GetDivision())};
        result_.pattern->SetParam(kPatternDivision, &division, kSizeParamValue);
    }

    void PutTimeSigs() {
        std::vector<t_tSigMapRec> map;
        sequence_.GetTimeSignatures(map);
        map.resize(timeSigs_);  // the ticks of later ones have wrapped
        std::vector<t_tSigRec> records;
        records.reserve(map.size());
        for (const t_tSigMapRec& each : map) {
            records.push_back({0, each.measure, each.beat, each.tick, each.numerator,
                               std::min(each.denominator, kMostDenominator)});
        }
        st_paramTimeSigRecords reference{&records};
        result_.pattern->SetParam(kPatternTimeSigs, &reference, kSizeReference);
    }

    void PutPositions() {
        const auto late =
            std::erase_if(placements_, [](const Placement& each) { return each.tick > kMostTick; });
        std::ranges::stable_sort(placements_, {}, &Placement::tick);
        const std::size_t count = std::min(placements_.size(), kMostPositions);
        result_.positionsLeftOut = static_cast<std::uint32_t>(late + (placements_.size() - count));
        for (std::size_t i = 0; i < count; ++i) {
            auto block = PositionFrom(placements_[i]);
            st_paramChild child{0, static_cast<std::int32_t>(i), block.get()};
            if (result_.pattern->SetParam(kPatternPosition, &child, kSizeParamChild)) {
                static_cast<void>(block.release());
            }
        }
    }

    const CZurSequence& sequence_;
    PatternFromMidi result_;
    std::vector<Placement> placements_;
    std::uint32_t timeSigs_ = 0;
};

}  // namespace

PatternFromMidi PatternFromSequence(const CZurSequence& sequence) {
    return PatternReader(sequence).Read();
}
