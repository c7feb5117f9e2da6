#include "bench/full_table.h"

namespace {

constexpr int kMeasures = 256;
constexpr std::uint32_t kTicksPerMeasure = 1920;

_tagEvent3D TimeSig(int measure) {
    _tagEvent3D event;
    event.type = kEventTimeSig;
    event.numerator = 4;
    event.denominator = 4;
    event.tick = static_cast<std::uint32_t>(measure) * kTicksPerMeasure;
    return event;
}

_tagEvent3D Position(int number) {
    _tagEvent3D event;
    event.id = static_cast<std::uint8_t>(number % kSourceCount);
    event.tick = static_cast<std::uint32_t>(number) * 479U;
    event.distance = static_cast<std::uint16_t>((number * 37) % 256 * 50);
    event.azimuth = static_cast<std::int16_t>((number * 11) % 120 * 3 - 180);
    event.elevation = static_cast<std::int16_t>((number * 7) % 61 * 3 - 90);
    return event;
}

}  // namespace

C3DEventData FullTable() {
    C3DEventData table;
    for (int measure = 0; measure < kMeasures; ++measure) {
        _tagEvent3D event = TimeSig(measure);
        table.AddEvent(&event, 1);
    }
    for (int number = 0; number < kSourceCount * kMaxEventsPerId; ++number) {
        _tagEvent3D event = Position(number);
        table.AddEvent(&event, 0);
    }
    table.SortEvents();
    table.ClearHistory();
    return table;
}

void StoreFullTable(CQelCPB_3DPattern& pattern) {
    FullTable().StoreToPattern(&pattern, "Full");
}
