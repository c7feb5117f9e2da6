#include <QScrollBar>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <cmath>
#include <tuple>

#include "dialog/manager.h"
#include "tests/dialog/monkey.h"

namespace {

// An explicit instantiation may name a private member: the one way to the manager that leaves the
// dialog's class as it is.
template <auto Member>
struct Opened {
    friend C3DManager& OpenManager(COrbixMainDlg& dialog) { return dialog.*Member; }
};
C3DManager& OpenManager(COrbixMainDlg& dialog);
template struct Opened<&COrbixMainDlg::manager_>;

using Said =
    std::tuple<std::uint32_t, std::uint32_t, int, int, int, int, std::uint32_t, std::uint32_t>;

// What the table says, without the order of equal events, the uids and the marks of visibility,
// which undo does not promise.
std::vector<Said> Picture(const C3DEventData& store) {
    std::vector<Said> events;
    for (const _tagEvent3D& event : Table(store)) {
        const bool isPosition = event.type == kEventPosition;
        events.emplace_back(event.tick, event.type, event.id, isPosition ? event.distance : 0,
                            isPosition ? event.azimuth : 0, isPosition ? event.elevation : 0,
                            isPosition ? 0 : event.numerator, isPosition ? 0 : event.denominator);
    }
    std::sort(events.begin(), events.end());
    return events;
}

bool IsOrdered(const C3DEventData& store) {
    const std::vector<_tagEvent3D> table = Table(store);
    return std::is_sorted(table.begin(), table.end(), [](const auto& left, const auto& right) {
        return std::tuple(left.tick, right.type, left.type == kEventPosition ? left.id : 0) <
               std::tuple(right.tick, left.type, right.type == kEventPosition ? right.id : 0);
    });
}

bool IsMapInStep(const C3DEventData& store) {
    std::vector<_tagEvent3D> events = Table(store);
    std::erase_if(events, [](const auto& event) { return event.type != kEventTimeSig; });
    return store.Mode() == kRangeMode ||
           std::ranges::equal(events, Map(store), [](const auto& event, const auto& record) {
               return C3DEventData::EventsEqual(event, TimeSigEventOf(record));
           });
}

bool IsInRange(const C3DEventData& store) {
    return std::ranges::all_of(Table(store), [&](const _tagEvent3D& event) {
        return store.Mode() == kFreeMode ||
               (event.tick >= store.RangeStart() && event.tick <= store.RangeEnd());
    });
}

bool PassesFilter(Editor& editor, const _tagEvent3D& event) {
    return event.type != kEventPosition || editor.driver->Checked(kChkIdAll) ||
           editor.driver->Checked(kChkId0 + event.id);
}

bool IsRowOf(const Lines& cells, const _tagEvent3D& event, const t_MBT& place) {
    const Lines time = {std::to_string(place.measure), std::to_string(place.beat),
                        std::to_string(place.tick)};
    if (!std::equal(time.begin(), time.end(), cells.begin() + 2)) {
        return false;
    }
    if (event.type == kEventTimeSig) {
        return cells[1] ==
               std::to_string(event.numerator) + " / " + std::to_string(event.denominator);
    }
    return cells[5] == std::to_string(event.id) &&
           std::lround(std::stod(cells[6]) * 1000.0) == event.distance &&
           cells[7] == std::to_string(event.azimuth) && cells[8] == std::to_string(event.elevation);
}

bool ListShowsTable(Editor& editor, const C3DManager& manager) {
    const C3DEventData& store = manager.Store();
    const std::vector<Lines> rows = editor.driver->RowTexts(kListEvents);
    const std::size_t margin = store.Mode() == kRangeMode ? 1 : 0;
    std::size_t row = margin;
    for (const _tagEvent3D& event : Table(store)) {
        if (!PassesFilter(editor, event)) {
            continue;
        }
        if (row >= rows.size() || !IsRowOf(rows[row], event, store.TickToMBT(event.tick))) {
            return false;
        }
        ++row;
    }
    return row + margin == rows.size() &&
           row - margin == static_cast<std::size_t>(manager.ViewSize());
}

bool GraphShowsTable(const C3DManager& manager) {
    for (int id = 0; id < kSourceCount; ++id) {
        const std::vector<tag3DGraphPoint>& points = manager.Graph().Points(id);
        std::size_t next = 0;
        for (int row = 0; row < manager.ViewSize(); ++row) {
            const _tagEvent3D& event = manager.EventInRow(row);
            if (event.type != kEventPosition || event.id != id) {
                continue;
            }
            if (next >= points.size() || points[next].distance != event.distance ||
                points[next].visible != event.visible) {
                return false;
            }
            ++next;
        }
        if (next != points.size()) {
            return false;
        }
    }
    return true;
}

std::string Words(const _tagEvent3D& event) {
    return event.type == kEventTimeSig
               ? std::to_string(event.tick) + ": " + std::to_string(event.numerator) + "/" +
                     std::to_string(event.denominator)
               : std::to_string(event.tick) + ": ID " + std::to_string(event.id) + " at " +
                     std::to_string(event.distance) + " " + std::to_string(event.azimuth) + " " +
                     std::to_string(event.elevation);
}

// At the left edge: columns may have been drawn wider than the list.
void ClickOnRow(Editor& editor, int row) {
    auto& view = dynamic_cast<QTreeView&>(editor.driver->Widget(kListEvents));
    const QModelIndex index = view.model()->index(row, 0);
    view.scrollTo(index);
    view.horizontalScrollBar()->setValue(0);
    const QPoint place(3, view.visualRect(index).center().y());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
}

// A click on another row brings its event into the fields. What is wrong with that, else nothing.
std::string FaultOfFields(Editor& editor, C3DManager& manager) {
    for (int row = 0; row < std::min(manager.ViewSize(), 3); ++row) {
        if (manager.CurrentRow() == row) {
            continue;
        }
        ClickOnRow(editor, row + (manager.IsRangeMode() ? 1 : 0));
        if (manager.CurrentRow() != row) {
            return "a click on row " + std::to_string(row) + " makes it current; selected are " +
                   std::to_string(editor.driver->SelectedRows(kListEvents).size());
        }
        const _tagEvent3D event = manager.EventInRow(row);
        if (event.type == kEventTimeSig && manager.IsRangeMode()) {
            continue;  // no field may show it there
        }
        _tagEvent3D shown;
        editor.dialog.CopyEvent3DFromDialog(shown);
        if (Words(shown) != Words(event)) {
            return "the fields show " + Words(event) + ", not " + Words(shown);
        }
    }
    return "";
}

// The first way back may differ from what was recorded, since a change of an ID alone is not;
// after that both ends stand.
bool HistoryIsSteady(C3DManager& manager, int depth) {
    std::vector<std::vector<Said>> ends;
    int back = 0;
    while (back < depth && manager.Undo() == 1) {
        ++back;
    }
    for (int round = 0; round < 2; ++round) {
        ends.push_back(Picture(manager.Store()));
        for (int step = 0; step < back; ++step) {
            if (manager.Redo() != 1) {
                return false;
            }
        }
        ends.push_back(Picture(manager.Store()));
        for (int step = 0; round == 0 && step < back; ++step) {
            if (manager.Undo() != 1) {
                return false;
            }
        }
    }
    return ends[0] == ends[2] && ends[1] == ends[3];
}

}  // namespace

C3DManager& ManagerOf(COrbixMainDlg& dialog) {
    return OpenManager(dialog);
}

std::optional<std::string> BrokenInvariant(Editor& editor, int depth) {
    C3DManager& manager = ManagerOf(editor.dialog);
    const C3DEventData& store = manager.Store();
    if (!IsOrdered(store)) {
        return "the table is ordered";
    }
    if (!IsMapInStep(store)) {
        return "map and events are in step";
    }
    if (!IsInRange(store)) {
        return "all events are in range";
    }
    if (!ListShowsTable(editor, manager)) {
        return "the list shows the table";
    }
    if (!GraphShowsTable(manager)) {
        return "the graph shows the table";
    }
    if (std::string fault = FaultOfFields(editor, manager); !fault.empty()) {
        return fault;
    }
    if (!HistoryIsSteady(manager, depth)) {
        return "undo all and redo all give the same tables";
    }
    if (!ListShowsTable(editor, manager)) {
        return "the list shows the table after undo and redo";
    }
    return std::nullopt;
}
