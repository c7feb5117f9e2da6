#include "dialog/manager.h"
#include "event/report.h"

// The rules of the editing commands. The store refuses what the table can't take; what is refused
// here depends on the mode and on the current event.

int C3DManager::Add(_tagEvent3D event) {
    if (IsRangeMode() && event.type == kEventTimeSig) {
        return kErrorTimeSigLocked;
    }
    if (const int code = store_.AddEvent(&event, 1); code != 0) {
        return code;
    }
    store_.SetCurrentUid(event.uid);
    RebuildView();
    return 0;
}

int C3DManager::Update(_tagEvent3D event) {
    if (IsRangeMode() && event.type == kEventTimeSig) {
        return kErrorTimeSigLocked;
    }
    const int row = CurrentRow();
    if (row < 0) {
        return 0;
    }
    const _tagEvent3D old = EventInRow(row);  // A copy: the store overwrites it.
    if (IsFirstTimeSig(old) && event.tick != old.tick) {
        return kErrorTimeSigLocked;
    }
    if (const int code = store_.ReplaceEvent(EventIndex(row), event); code != 0) {
        return code;
    }
    if (event.tick == old.tick && event.id == old.id && event.type != kEventTimeSig) {
        list_.UpdateRow(row, event);  // The order can't have changed.
        RefreshRowImages();
        RefreshGraph();
    } else {
        RebuildView();
    }
    return 0;
}

int C3DManager::Delete() {
    const int row = CurrentRow();
    if (row < 0) {
        return 0;
    }
    const _tagEvent3D event = EventInRow(row);
    if (event.type == kEventTimeSig && (IsRangeMode() || IsFirstTimeSig(event))) {
        return kErrorTimeSigLocked;
    }
    // Chosen before the event goes, so that the history keeps the choice as its selection.
    store_.SetCurrentUid(UidAfterDelete(row));
    store_.RemoveEvent(EventIndex(row));
    if (event.type == kEventTimeSig) {
        RebuildView();
    } else {
        DeleteViewRow(row);
    }
    return 0;
}

std::int32_t C3DManager::UidAfterDelete(int viewRow) const {
    if (ViewSize() == 1) {
        return kNoUid;
    }
    return EventInRow(viewRow + 1 < ViewSize() ? viewRow + 1 : viewRow - 1).uid;
}

bool C3DManager::IsFirstTimeSig(const _tagEvent3D& event) {
    return event.type == kEventTimeSig && event.tick == 0;
}

int C3DManager::Undo() {
    std::int32_t uid = kNoUid;
    if (store_.UndoEvent(uid) == 0) {
        return 0;
    }
    ShowAfterHistory(uid);
    return 1;
}

int C3DManager::Redo() {
    std::int32_t uid = kNoUid;
    if (store_.RedoEvent(uid) == 0) {
        return 0;
    }
    ShowAfterHistory(uid);
    return 1;
}

void C3DManager::ShowAfterHistory(std::int32_t uid) {
    store_.SetCurrentUid(uid);
    RebuildView();
    SelectCurrent();
}
