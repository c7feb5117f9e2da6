#include "sequence/musical_time.h"

#include <algorithm>

#include "sequence/saturate.h"

namespace {

constexpr std::uint32_t kDefaultBpm = 120;
constexpr std::uint32_t kMicrosecondsPerMinute = 60000000;

std::uint32_t AsDivisor(std::uint32_t value) {
    return std::max(value, 1U);
}

std::uint32_t BeatTicks(std::uint32_t denominator, std::uint32_t division) {
    return std::max(division * 4 / AsDivisor(denominator), 1U);
}

std::uint32_t MeasureTicks(std::uint32_t numerator, std::uint32_t beatTicks) {
    return std::max(beatTicks * numerator, beatTicks);
}

/// The running sum of microseconds along a list of tempos.
class TempoClock {
public:
    explicit TempoClock(std::uint32_t division) : m_division(AsDivisor(division)) {}

    std::uint32_t MicrosecondsAt(std::uint32_t tick) const {
        return HeldToWord(static_cast<double>(tick - m_tick) * m_tempo / m_division +
                          m_microseconds);
    }

    void Pass(const t_tTempoRec& record) {
        m_microseconds = MicrosecondsAt(record.totalTick);
        m_tick = record.totalTick;
        m_tempo = record.tempo;
    }

    std::uint32_t Tick() const { return m_tick; }
    double MicrosecondsPerTick() const {
        return static_cast<double>(AsDivisor(m_tempo)) / m_division;
    }

private:
    std::uint32_t m_division;
    std::uint32_t m_microseconds = 0;
    std::uint32_t m_tick = 0;
    std::uint32_t m_tempo = BpmToTempo(kDefaultBpm);
};

// In 64 bits, so that a sum held at its largest value does not round up to 0.
std::uint32_t ToMilliseconds(std::uint32_t microseconds) {
    return static_cast<std::uint32_t>((std::uint64_t{microseconds} + 500) / 1000);
}

}  // namespace

void TickToMeasure(std::uint32_t totalTick, std::uint32_t division,
                   const std::vector<t_tSigMapRec>& signatures, t_MBT& position) {
    const auto record =
        std::find_if(signatures.rbegin(), signatures.rend(),
                     [=](const t_tSigMapRec& each) { return each.totalTick <= totalTick; });
    if (record == signatures.rend()) {
        SplitTicks(4, 4, division, totalTick, position);
    } else if (record->totalTick == totalTick) {
        position = record->Position();
    } else {
        SplitTicks(record->numerator, record->denominator, division, totalTick - record->totalTick,
                   position);
        position.measure += record->measure - 1;
    }
}

std::uint32_t MeasureToTick(const t_MBT& position, std::uint32_t division,
                            const std::vector<t_tSigMapRec>& signatures) {
    const auto found =
        std::find_if(signatures.rbegin(), signatures.rend(),
                     [&](const t_tSigMapRec& each) { return each.measure <= position.measure; });
    const t_tSigMapRec record = found == signatures.rend() ? t_tSigMapRec{} : *found;
    return JoinTicks(record.numerator, record.denominator, record.totalTick, record.measure,
                     division, position.measure, position.beat - 1, position.tick);
}

void SplitTicks(std::uint32_t numerator, std::uint32_t denominator, std::uint32_t division,
                std::uint32_t ticks, t_MBT& position) {
    const std::uint32_t beatTicks = BeatTicks(denominator, division);
    const std::uint32_t measureTicks = MeasureTicks(numerator, beatTicks);
    const std::uint32_t rest = ticks % measureTicks;
    position = {ticks / measureTicks + 1, rest / beatTicks + 1, rest % beatTicks};
}

std::uint32_t JoinTicks(std::uint32_t numerator, std::uint32_t denominator, std::uint32_t baseTick,
                        std::uint32_t baseMeasure, std::uint32_t division, std::uint32_t measure,
                        std::uint32_t beat, std::uint32_t tick) {
    const std::uint32_t beatTicks = BeatTicks(denominator, division);
    return baseTick + MeasureTicks(numerator, beatTicks) * (measure - baseMeasure) +
           beatTicks * beat + tick;
}

std::uint32_t TicksPerMeasure(std::uint32_t numerator, std::uint32_t denominator,
                              std::uint32_t division) {
    return numerator * division * 4 / AsDivisor(denominator);
}

std::uint32_t BpmToTempo(std::uint32_t beatsPerMinute) {
    return kMicrosecondsPerMinute / AsDivisor(beatsPerMinute);
}

double TempoToBpm(std::uint32_t tempo) {
    return static_cast<double>(kMicrosecondsPerMinute) / AsDivisor(tempo);
}

std::uint32_t TickToMilliseconds(std::uint32_t totalTick, std::uint32_t division,
                                 const std::vector<t_tTempoRec>& tempos) {
    TempoClock clock(division);
    for (const t_tTempoRec& record : tempos) {
        if (record.totalTick > totalTick)
            break;
        clock.Pass(record);
    }
    return ToMilliseconds(clock.MicrosecondsAt(totalTick));
}

std::uint32_t MillisecondsToTick(std::uint32_t milliseconds, std::uint32_t division,
                                 const std::vector<t_tTempoRec>& tempos) {
    TempoClock clock(division);
    std::uint32_t passed = 0;
    for (const t_tTempoRec& record : tempos) {
        const std::uint32_t moment = ToMilliseconds(clock.MicrosecondsAt(record.totalTick));
        if (moment > milliseconds)
            break;
        clock.Pass(record);
        passed = moment;
    }
    return HeldToWord(clock.Tick() +
                      (milliseconds - passed) * 1000.0 / clock.MicrosecondsPerTick());
}
