#include <QCoreApplication>
#include <QItemSelectionModel>
#include <algorithm>
#include <utility>

#include "platform/qt/list_peer.h"

// The rows' states: what the program and the user select, kept in the model and brought in line
// with the toolkit's view.

namespace toolkit {

void ListPeer::SetState(int row, UINT state, UINT mask) {
    const DispatchScope scope;
    const unsigned generation = generation_;
    if ((state & mask & LVIS_FOCUSED) != 0) {
        for (int other = 0; other < model_.Count(); ++other) {
            if (other != row && !ChangeState(other, model_.Row(other).state & ~LVIS_FOCUSED)) {
                return;
            }
        }
    }
    const int first = row < 0 ? 0 : row;
    const int last = row < 0 ? model_.Count() - 1 : row;
    for (int at = first; at <= last && model_.HasRow(at) && generation == generation_; ++at) {
        ChangeState(at, (model_.Row(at).state & ~mask) | (state & mask));
    }
}

bool ListPeer::ChangeState(int row, UINT state) {
    const UINT before = std::exchange(model_.Row(row).state, state);
    return before == state || ReportState(row, before, state);
}

bool ListPeer::ReportState(int row, UINT before, UINT state) {
    const unsigned generation = generation_;
    statesStale_ = true;
    Schedule();
    NotifyRow(LVN_ITEMCHANGED, row, before, state);
    return Record() != nullptr && generation == generation_;
}

// One pass over whatever has gathered, with the loop's next turn.
void ListPeer::Schedule() {
    if (!scheduled_) {
        scheduled_ = true;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
}

void ListPeer::customEvent(QEvent* event) {
    if (event->type() == QEvent::User) {
        scheduled_ = false;
        Flush();
        viewport()->update();
    }
}

void ListPeer::Flush() {
    const bool outer = std::exchange(flushing_, true);
    if (rowsStale_) {
        rowsStale_ = false;
        statesStale_ = true;
        model_.Reset();
    }
    if (statesStale_) {
        statesStale_ = false;
        FlushStates();
    }
    if (rowToShow_ >= 0 && model_.HasRow(rowToShow_)) {
        scrollTo(model_.index(rowToShow_, 0));
    }
    rowToShow_ = -1;
    flushing_ = outer;
}

void ListPeer::FlushStates() {
    QItemSelection selection;
    QModelIndex focused;
    const int lastColumn = model_.columnCount() - 1;
    for (int row = 0; row < model_.Count(); ++row) {
        if ((model_.Row(row).state & LVIS_FOCUSED) != 0) {
            focused = model_.index(row, 0);
        }
        if ((model_.Row(row).state & LVIS_SELECTED) == 0) {
            continue;
        }
        int end = row;
        while (end + 1 < model_.Count() && (model_.Row(end + 1).state & LVIS_SELECTED) != 0 &&
               (model_.Row(end + 1).state & LVIS_FOCUSED) == 0) {
            ++end;
        }
        selection.select(model_.index(row, 0), model_.index(end, lastColumn));
        row = end;
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(focused, QItemSelectionModel::NoUpdate);
}

std::vector<UINT> ListPeer::StatesOfView() const {
    std::vector<UINT> states(static_cast<std::size_t>(model_.Count()), 0U);
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            states[static_cast<std::size_t>(row)] |= LVIS_SELECTED;
        }
    }
    if (const QModelIndex current = selectionModel()->currentIndex(); current.isValid()) {
        states[static_cast<std::size_t>(current.row())] |= LVIS_FOCUSED;
    }
    return states;
}

// All rows have their new state before the first notice: a handler that looks at the whole list
// would else take what is left of the old selection, one row say, for the user's choice. The rows
// that lose something come first, as the user's click takes the old mark away before it sets the
// new one.
void ListPeer::TakeStatesFromView() {
    if (!std::exchange(viewTouched_, false) || rowsStale_ || Record() == nullptr) {
        return;
    }
    struct Change {
        int row;
        UINT before;
        UINT state;
    };
    std::vector<Change> changes;
    for (int row = 0; const UINT state : StatesOfView()) {
        const UINT before = std::exchange(model_.Row(row).state, state);
        if (before != state) {
            changes.push_back({row, before, state});
        }
        ++row;
    }
    std::stable_partition(changes.begin(), changes.end(), [](const Change& change) {
        return (change.before & ~change.state) != 0;
    });
    for (const Change& change : changes) {
        if (!ReportState(change.row, change.before, change.state)) {
            return;
        }
    }
}

}  // namespace toolkit
