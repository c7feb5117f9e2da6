#include "event/event_check.h"

namespace {

constexpr std::uint32_t kMaxTimeField = 99999;
constexpr std::uint32_t kMaxNumerator = 64;
constexpr int kDistanceStep = 50;
constexpr int kDistanceHigh = 12750;
constexpr int kAngleStep = 3;
constexpr int kTurn = 360;
constexpr int kHalfTurn = 180;

bool IsTimeCount(std::uint32_t count) {
    return count >= 1 && count <= kMaxTimeField;
}

bool IsTimeSigFraction(const _tagEvent3D& event) {
    const std::uint32_t denominator = event.denominator;
    return event.numerator >= 1 && event.numerator <= kMaxNumerator &&
           (denominator == 2 || denominator == 4 || denominator == 8 || denominator == 16 ||
            denominator == 32);
}

void MoveToMeasureStart(int index, t_MBT& mbt, C3DReport& report) {
    if (mbt.beat == 1 && mbt.tick == 0) {
        return;
    }
    const t_MBT old = mbt;
    mbt = {old.measure + 1, 1, 0};
    report.Add(kTimeSigMoved,
               {index, old.measure, old.beat, old.tick, mbt.measure, mbt.beat, mbt.tick});
}

// Whether the tick reckoned for a measure is that of another one: it has no room in 32 bits. What
// comes out before the last record needs no search for the measure that it hit.
bool IsBeyondTicks(const C3DTimeSigMap& map, std::uint32_t measure, std::uint32_t tick) {
    const std::vector<t_tSigMapRec>& records = map.Records();
    const bool isBehind = !records.empty() && measure > records.back().measure;
    return (isBehind && tick <= records.back().totalTick) || map.TickToMBT(tick).measure != measure;
}

int CheckTimeSig(int index, C3DTimeSigMap& map, _tagEvent3D& event, t_MBT& mbt, C3DReport& report) {
    if (!IsTimeSigFraction(event)) {
        report.Add(kTimeSigIgnored, {index, event.numerator, event.denominator});
        return kTimeSigIgnored;
    }
    MoveToMeasureStart(index, mbt, report);
    event.tick = map.MBTToTick(mbt);
    if (IsBeyondTicks(map, mbt.measure, event.tick)) {
        report.Add(kMeasureIgnored, {index});
        return kMeasureIgnored;
    }
    if (map.AddTimeSig(event) != 0) {
        report.Add(kTimeSigDoubled, {index});
        return kTimeSigDoubled;
    }
    return 0;
}

// The sum is taken in an int: 65535 must not wrap round to a near distance.
int OnDistanceGrid(int distance) {
    const int rounded = (distance + kDistanceStep / 2) / kDistanceStep * kDistanceStep;
    return rounded > kDistanceHigh ? kDistanceHigh : rounded;
}

int OnAngleGrid(int degrees) {
    const int rest = degrees % kTurn;
    return (rest + (rest < 0 ? -1 : 1)) / kAngleStep * kAngleStep;
}

int InAzimuthLimits(int azimuth) {
    if (azimuth < -kHalfTurn) {
        return azimuth + kTurn;
    }
    return azimuth > kHalfTurn - kAngleStep ? azimuth - kTurn : azimuth;
}

int InElevationTurn(int elevation) {
    if (elevation > kTurn - kHalfTurn / 2) {
        return elevation - kTurn;
    }
    return elevation < kHalfTurn / 2 - kTurn ? elevation + kTurn : elevation;
}

// Past a pole the source is seen from the other side.
void FoldOverPole(int& azimuth, int& elevation) {
    if (elevation > kHalfTurn / 2) {
        elevation = kHalfTurn - elevation;
    } else if (elevation < -kHalfTurn / 2) {
        elevation = -kHalfTurn - elevation;
    } else {
        return;
    }
    azimuth += azimuth < 0 ? kHalfTurn : -kHalfTurn;
}

void NormalizePosition(_tagEvent3D& event) {
    if (event.id >= kSourceCount) {
        event.id = 0;
    }
    int azimuth = InAzimuthLimits(OnAngleGrid(event.azimuth));
    int elevation = InElevationTurn(OnAngleGrid(event.elevation));
    FoldOverPole(azimuth, elevation);
    event.distance = static_cast<std::uint16_t>(OnDistanceGrid(event.distance));
    event.azimuth = static_cast<std::int16_t>(azimuth);
    event.elevation = static_cast<std::int16_t>(elevation);
}

int CheckPosition(int index, const EventRange& range, _tagEvent3D& event, C3DReport& report) {
    if (!range.Admits(event.tick)) {
        report.Add(kTimeIgnored, {index});
        return kTimeIgnored;
    }
    const _tagEvent3D old = event;
    NormalizePosition(event);
    const struct {
        int code;
        int before;
        int after;
    } fields[] = {{kIdChanged, old.id, event.id},
                  {kDistanceChanged, old.distance, event.distance},
                  {kAzimuthChanged, old.azimuth, event.azimuth},
                  {kElevationChanged, old.elevation, event.elevation}};
    for (const auto& field : fields) {
        if (field.before != field.after) {
            report.Add(field.code, {index, field.before, field.after});
        }
    }
    return 0;
}

}  // namespace

int CheckEvent(int index, const EventRange& range, C3DTimeSigMap& map, _tagEvent3D& event,
               t_MBT& mbt, C3DReport& report) {
    if (!IsTimeCount(mbt.measure) || !IsTimeCount(mbt.beat)) {
        report.Add(kMeasureIgnored, {index});
        return kMeasureIgnored;
    }
    if (mbt.tick > kMaxTimeField) {
        report.Add(kTickIgnored, {index});
        return kTickIgnored;
    }
    switch (event.type) {
        case kEventTimeSig:
            return CheckTimeSig(index, map, event, mbt, report);
        case kEventPosition:
            return CheckPosition(index, range, event, report);
        default:
            return 0;
    }
}
