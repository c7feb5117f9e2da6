#include <algorithm>
#include <bit>
#include <utility>

#include "midi/pattern_events.h"
#include "midi/pattern_midi.h"
#include "params/pattern_requests.h"
#include "params/position_block.h"
#include "sequence/byte_stream.h"
#include "sequence/musical_time.h"

namespace {

constexpr std::uint32_t kMostDivision = 32767;
constexpr std::uint32_t kMostNumerator = 255;
// A metronome clicks once a beat: MIDI clocks in a whole note, of which 24 are a quarter.
constexpr std::uint32_t kClocks = 96;

/// An event on its way into a file; `track` counts from 0 and matters in format 1.
struct Moment {
    std::uint32_t tick;
    int track;
    EventBytes bytes;
};

/// Appends events at rising absolute ticks to a new track.
class TrackWriter {
public:
    void Add(std::uint32_t tick, const EventBytes& bytes) {
        // No delta time holds more: an empty text stands where it ends.
        while (tick - tick_ > kLargestVarLen) {
            Append(kLargestVarLen, MetaEvent(kMetaText, ""));
        }
        Append(tick - tick_, bytes);
    }

    CZurSeqTrack* Finish() {
        Append(0, MetaEvent(kMetaEndOfTrack, ""));
        return track_.release();
    }

private:
    void Append(std::uint32_t delta, const EventBytes& bytes) {
        track_->InsertEvent(
            0, new CZurSeqEvent(delta, static_cast<std::uint32_t>(bytes.size()), bytes.data()));
        tick_ += delta;
    }

    std::unique_ptr<CZurSeqTrack> track_ = std::make_unique<CZurSeqTrack>();
    std::uint32_t tick_ = 0;
};

std::string PlaceText(const t_tSigRec& record) {
    return std::to_string(record.measure) + ":" + std::to_string(record.beat) + ":" +
           std::to_string(record.tick) + " " + std::to_string(record.numerator) + "/" +
           std::to_string(record.denominator);
}

/// Collects the events of a pattern in the order in which they come at one tick.
class PatternWriter {
public:
    explicit PatternWriter(const CQelCPB_3DPattern& pattern)
        : pattern_(pattern), division_(PatternValue(pattern, kPatternDivision)) {}

    /// Words for what does not fit into a file, empty when all does.
    std::string Collect(std::uint32_t tempo) {
        if (division_ < 1 || division_ > kMostDivision) {
            return "division " + std::to_string(division_) + ": expected 1 to 32767";
        }
        st_paramName name;
        pattern_.GetParam(kPatternName, &name, kSizeParamName);
        moments_.push_back({0, 0, MetaEvent(kMetaTrackName, name.name)});
        moments_.push_back({0, 0, TempoEvent(tempo)});
        std::string refusal = CollectTimeSigs();
        CollectPositions();
        std::ranges::stable_sort(moments_, {}, &Moment::tick);
        return refusal;
    }

    std::unique_ptr<CZurSequence> Write(std::int16_t format) const {
        std::vector<TrackWriter> writers(format == 0 ? 1 : 1 + kIdTracks);
        for (std::size_t track = 1; track < writers.size(); ++track) {
            writers[track].Add(0, IdTrackName(static_cast<int>(track) - 1));
        }
        for (const Moment& moment : moments_) {
            writers[format == 0 ? 0 : static_cast<std::size_t>(moment.track)].Add(moment.tick,
                                                                                  moment.bytes);
        }
        auto sequence =
            std::make_unique<CZurSequence>(format, static_cast<std::int16_t>(division_));
        for (TrackWriter& writer : writers) {
            sequence->InsertTrack(0, writer.Finish());
        }
        return sequence;
    }

private:
    std::string CollectTimeSigs() {
        std::vector<t_tSigRec> records;
        st_paramTimeSigRecords reference{&records};
        pattern_.GetParam(kPatternTimeSigs, &reference, kSizeReference);
        std::vector<t_tSigMapRec> map;
        for (const t_tSigRec& record : records) {
            if (!AddTimeSig(record, map)) {
                return "time signature " + PlaceText(record) +
                       ": expected 1 to 255 beats of a power of two at a place of its own "
                       "within 4294967295 ticks";
            }
        }
        return "";
    }

    bool AddTimeSig(const t_tSigRec& record, std::vector<t_tSigMapRec>& map) {
        const t_MBT place{record.measure, record.beat, record.tick};
        const std::uint32_t tick = MeasureToTick(place, division_, map);
        t_MBT readBack;  // another one when the ticks wrapped
        TickToMeasure(tick, division_, map, readBack);
        if (!(readBack == place) || (!map.empty() && tick <= map.back().totalTick) ||
            record.numerator < 1 || record.numerator > kMostNumerator ||
            !std::has_single_bit(record.denominator)) {
            return false;
        }
        map.push_back(
            {record.measure, record.beat, record.tick, tick, record.numerator, record.denominator});
        const auto power = static_cast<char>(std::countr_zero(record.denominator));
        const auto clocks = static_cast<char>(std::max(kClocks / record.denominator, 1U));
        const std::string payload{static_cast<char>(record.numerator), power, clocks, 8};
        moments_.push_back({tick, 0, MetaEvent(kMetaTimeSignature, payload)});
        return true;
    }

    void CollectPositions() {
        const auto count = static_cast<int>(PatternValue(pattern_, kPatternPositionCount));
        for (int i = 0; i < count; ++i) {
            const auto value = [&](std::uint32_t id) { return PatternValue(pattern_, id, i); };
            const DeviceMessage message{
                static_cast<std::uint8_t>(value(kPatternPositionId)),
                value(kPatternPositionDistance),
                static_cast<std::uint8_t>(value(kPatternPositionAzimuth)),
                static_cast<std::uint8_t>(value(kPatternPositionElevation))};
            moments_.push_back({value(kPatternPositionTick),
                                1 + std::min<int>(message.id, kIdTracks - 1),
                                MessageEvent(message)});
        }
    }

    const CQelCPB_3DPattern& pattern_;
    std::uint32_t division_;
    std::vector<Moment> moments_;
};

}  // namespace

std::unique_ptr<CZurSequence> SequenceFromPattern(const CQelCPB_3DPattern& pattern,
                                                  const PatternMidiLayout& layout,
                                                  std::string& refusal) {
    PatternWriter writer(pattern);
    refusal = writer.Collect(layout.tempo);
    return refusal.empty() ? writer.Write(layout.format) : nullptr;
}
