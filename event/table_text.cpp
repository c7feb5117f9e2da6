#include "event/table_text.h"

#include <array>
#include <cstdio>

namespace {

using Row = std::array<std::string, 8>;

constexpr std::array<int, 8> kWidths = {6, 5, 6, 6, 7, 6, 6, 11};

std::string Metres(std::uint16_t millimetres) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%.2f", millimetres * 0.001);
    return text.data();
}

Row RowOf(const C3DEventData& events, const _tagEvent3D& event) {
    const t_MBT mbt = events.TickToMBT(event.tick);
    Row row = {std::to_string(mbt.measure),
               std::to_string(mbt.beat),
               std::to_string(mbt.tick),
               std::to_string(event.numerator) + "/" + std::to_string(event.denominator),
               "-",
               "-",
               "-",
               std::to_string(event.tick)};
    if (event.type == kEventPosition) {
        row[3] = "ID " + std::to_string(event.id);
        row[4] = Metres(event.distance);
        row[5] = std::to_string(event.azimuth);
        row[6] = std::to_string(event.elevation);
    }
    return row;
}

std::string LineOf(const Row& row) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const auto width = static_cast<std::size_t>(kWidths[i]);
        line.append(row[i].size() < width ? width - row[i].size() : 1, ' ');
        line += row[i];
    }
    return line;
}

}  // namespace

std::vector<std::string> TableLines(const C3DEventData& events) {
    std::vector<std::string> lines = {
        LineOf({"Meas.", "Beat", "Tick", "Event", "Dist.", "Azim.", "Elev.", "Total tick"})};
    for (int i = 0; i < events.CountEvents(-1); ++i) {
        lines.push_back(LineOf(RowOf(events, events.EventAt(i))));
    }
    return lines;
}

std::string CountsText(const C3DEventData& store) {
    std::string text = std::to_string(store.CountEvents(-1)) + " (";
    for (int id = 0; id < kSourceCount; ++id) {
        text += "ID " + std::to_string(id) + ": " + std::to_string(store.CountEvents(id)) + ", ";
    }
    return text + "time signatures: " + std::to_string(store.CountEvents(kTimeSigId)) + ")";
}

// The table is in rising order of tick, so that its last event ends it.
std::string LengthText(const C3DEventData& store) {
    const int count = store.CountEvents(-1);
    const std::uint32_t tick = count == 0 ? 0 : store.EventAt(count - 1).tick;
    const t_MBT end = store.TickToMBT(tick);
    return std::to_string(tick) + " ticks, last event at " + std::to_string(end.measure) + ":" +
           std::to_string(end.beat) + ":" + std::to_string(end.tick);
}
