#include <QScrollBar>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <set>
#include <tuple>

#include "dialog/manager.h"
#include "monkey/monkey.h"
#include "views/position_arithmetic.h"

// An explicit instantiation may name a private member: the one way to the manager that leaves the
// dialog's class as it is.
C3DManager& Reach(COrbixMainDlg& dialog);
template <auto Member>
struct Opened {
    friend C3DManager& Reach(COrbixMainDlg& dialog) { return dialog.*Member; }
};
template struct Opened<&COrbixMainDlg::manager_>;

C3DManager& ManagerOf(COrbixMainDlg& dialog) {
    return Reach(dialog);
}

namespace {

// An event as its row says it, without the image; the uid and the mark of visibility, which undo
// does not promise, are not in it.
std::string Words(const _tagEvent3D& event, const t_MBT& place = {}) {
    const std::string time = " " + std::to_string(place.measure) + " " +
                             std::to_string(place.beat) + " " + std::to_string(place.tick) + " ";
    if (event.type == kEventTimeSig) {
        return std::to_string(event.numerator) + " / " + std::to_string(event.denominator) + time +
               "- - - -";
    }
    return "-" + time + std::to_string(event.id) + " " + MetresText(event.distance) + " " +
           std::to_string(event.azimuth) + " " + std::to_string(event.elevation);
}

// What the table says, without the order of equal events.
std::multiset<std::string> Picture(const C3DEventData& store) {
    std::multiset<std::string> events;
    for (const _tagEvent3D& event : Table(store)) {
        events.insert(std::to_string(event.tick) + ": " + Words(event));
    }
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

bool ListShowsTable(Editor& editor, const C3DManager& manager) {
    const C3DEventData& store = manager.Store();
    Lines expected;
    for (const _tagEvent3D& event : Table(store)) {
        if (event.type != kEventPosition || editor.driver->Checked(kChkIdAll) ||
            editor.driver->Checked(kChkId0 + event.id)) {
            expected.push_back(" " + Words(event, store.TickToMBT(event.tick)));
        }
    }
    Lines rows = editor.Rows();
    if (store.Mode() == kRangeMode) {
        rows.erase(rows.begin());
        rows.pop_back();
    }
    return std::ranges::equal(rows, expected, {},
                              [](const std::string& row) { return row.substr(row.find(' ')); });
}

bool GraphShowsTable(const C3DManager& manager) {
    std::vector<std::tuple<int, int, int>> dots, events;
    for (int id = 0; id < kSourceCount; ++id) {
        for (const tag3DGraphPoint& point : manager.Graph().Points(id)) {
            dots.emplace_back(id, point.distance, point.visible);
        }
        for (int row = 0; row < manager.ViewSize(); ++row) {
            const _tagEvent3D& event = manager.EventInRow(row);
            if (event.type == kEventPosition && event.id == id) {
                events.emplace_back(id, event.distance, event.visible);
            }
        }
    }
    return dots == events;
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
        if (shown.tick != event.tick || Words(shown) != Words(event)) {
            return "the fields show " + Words(event) + ", not " + Words(shown);
        }
    }
    return "";
}

// The first way back may differ from what was recorded, since a change of an ID alone is not;
// after that both ends stand.
bool HistoryIsSteady(C3DManager& manager, int depth) {
    const auto walk = [&manager](int (C3DManager::*step)(), int most) {
        int steps = 0;
        while (steps < most && (manager.*step)() == 1) {
            ++steps;
        }
        return steps;
    };
    const int back = walk(&C3DManager::Undo, depth);
    const auto oldest = Picture(manager.Store());
    bool steady = walk(&C3DManager::Redo, back) == back;
    const auto newest = Picture(manager.Store());
    steady = steady && walk(&C3DManager::Undo, back) == back && Picture(manager.Store()) == oldest;
    return steady && walk(&C3DManager::Redo, back) == back && Picture(manager.Store()) == newest;
}

}  // namespace

std::optional<std::string> BrokenInvariant(Editor& editor, int depth) {
    C3DManager& manager = ManagerOf(editor.dialog);
    const C3DEventData& store = manager.Store();
    for (const auto& [holds, claim] :
         {std::pair{IsOrdered(store), "the table is ordered"},
          {IsMapInStep(store), "map and events are in step"},
          {IsInRange(store), "all events are in range"},
          {ListShowsTable(editor, manager), "the list shows the table"},
          {GraphShowsTable(manager), "the graph shows the table"}}) {
        if (!holds) {
            return claim;
        }
    }
    if (std::string fault = FaultOfFields(editor, manager); !fault.empty()) {
        return fault;
    }
    if (!HistoryIsSteady(manager, depth)) {
        return "undo all and redo all give the same tables";
    }
    return ListShowsTable(editor, manager)
               ? std::nullopt
               : std::optional("the list shows the table after undo and redo");
}
