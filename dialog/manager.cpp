#include "dialog/manager.h"

#include <utility>

#include "dialog/orbix_main_dlg.h"

namespace {

// Sets a flag for the length of a scope.
class FlagScope {
public:
    explicit FlagScope(bool& flag) : flag_(flag), previous_(std::exchange(flag, true)) {}
    ~FlagScope() { flag_ = previous_; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& flag_;
    bool previous_;
};

}  // namespace

C3DManager::C3DManager(COrbixMainDlg* dialog, int mode, std::uint32_t rangeStart,
                       std::uint32_t rangeEnd)
    : dialog_(dialog), list_(mode), store_(mode, rangeStart, rangeEnd) {
    graph_.SetCallbacks({
        [this](int id, int index) { dialog_->SetCurrentPointFromCallback(id, index); },
        [this](int id, int index, const _tagEvent3D& event) {
            dialog_->SetCurrentMoveFromCallback(id, index, event);
        },
    });
}

C3DManager::~C3DManager() = default;

int C3DManager::LoadFromPattern(CQelCPB_3DPattern* pattern, C3DReport& report) {
    view_.clear();  // Before, since the load shows its report itself.
    return store_.LoadFromPattern(pattern, report);
}

int C3DManager::LoadCsv(const CString& path, C3DReport& report) {
    const int code = store_.LoadCsv(path, report);
    if (code == 0) {
        view_.clear();
    }
    return code;
}

int C3DManager::RowState(std::int32_t currentUid, const _tagEvent3D& event) const {
    const bool isCurrent = event.uid == currentUid;
    switch (event.type) {
        case kEventPosition:
            if (graph_.IsInZoom(event.distance) == 0) {
                return kImageBeyondZoom;
            }
            if (event.visible == 1) {
                return isCurrent ? kImageCurrentShown : kImageShown;
            }
            return isCurrent ? kImageCurrentHidden : kImageHidden;
        case kEventRangeStart:
            return kImageRangeStart;
        case kEventRangeEnd:
            return kImageRangeEnd;
        default:
            return isCurrent ? kImageCurrentHidden : kImageHidden;
    }
}

void C3DManager::RebuildView() {
    const FlagScope quiet(settingMarks_);
    list_.DeleteAllItems();
    store_.BuildViewList(filter_, view_);
    KeepCurrentInView();
    if (IsRangeMode()) {
        InsertMarkerRow(kEventRangeStart, store_.RangeStart());
    }
    for (int row = 0; row < ViewSize(); ++row) {
        InsertEventRow(EventInRow(row));
    }
    if (IsRangeMode()) {
        InsertMarkerRow(kEventRangeEnd, store_.RangeEnd());
    }
    RefreshGraph();
}

void C3DManager::KeepCurrentInView() {
    if (view_.empty()) {
        store_.SetCurrentUid(kNoUid);
    } else if (CurrentRow() < 0) {
        store_.SetCurrentUid(EventInRow(0).uid);
    }
}

void C3DManager::InsertEventRow(const _tagEvent3D& event) {
    list_.InsertRow(RowState(store_.CurrentUid(), event), store_.TickToMBT(event.tick), event);
}

void C3DManager::InsertMarkerRow(std::uint32_t type, std::uint32_t tick) {
    _tagEvent3D marker;
    marker.type = type;
    marker.tick = tick;
    InsertEventRow(marker);
}

void C3DManager::DeleteViewRow(int viewRow) {
    const FlagScope quiet(settingMarks_);
    list_.DeleteRow(viewRow);
    store_.BuildViewList(filter_, view_);
    RefreshRowImages();
    RefreshGraph();
}

void C3DManager::SetViewFilter(const ViewFilter& filter) {
    filter_ = filter;
    RebuildView();
}

void C3DManager::RefreshRowImages() {
    for (int row = 0; row < ViewSize(); ++row) {
        list_.SetRowImage(RowState(store_.CurrentUid(), EventInRow(row)), row);
    }
}

void C3DManager::RefreshGraph() {
    for (int id = 0; id < kSourceCount; ++id) {
        graph_.ClearPoints(id);
    }
    for (int row = 0; row < ViewSize(); ++row) {
        graph_.AddEvent(EventInRow(row));
    }
    CClientDC dc(dialog_);
    graph_.Draw(dialog_, dc);
}

int C3DManager::CurrentRow() const {
    const std::int32_t uid = store_.CurrentUid();
    for (int row = 0; uid != kNoUid && row < ViewSize(); ++row) {
        if (EventInRow(row).uid == uid) {
            return row;
        }
    }
    return -1;
}

int C3DManager::SelectRow(int viewRow) {
    if (viewRow < 0 || viewRow >= ViewSize()) {
        MarkDot(-1, -1);
        dialog_->CopyDialogValueFromCallback(nullptr);
        return 0;
    }
    const int current = CurrentRow();
    if (viewRow == current) {
        return 0;
    }
    MoveMarks(current, viewRow);
    const _tagEvent3D event = EventInRow(viewRow);
    store_.SetCurrentUid(event.uid);
    if (event.type == kEventPosition) {
        MarkDot(event.id, PlaceAmongId(viewRow));
    } else {
        MarkDot(-1, -1);
    }
    dialog_->CopyDialogValueFromCallback(&event);
    return 1;
}

void C3DManager::MoveMarks(int fromRow, int toRow) {
    const FlagScope quiet(settingMarks_);
    if (fromRow >= 0) {
        list_.SetRowImage(RowState(kNoUid, EventInRow(fromRow)), fromRow);
        list_.DeselectRow(fromRow);
    }
    const _tagEvent3D& event = EventInRow(toRow);
    list_.SetRowImage(RowState(event.uid, event), toRow);
    list_.SelectListRow(toRow);
}

void C3DManager::MarkDot(int id, int index) {
    CClientDC dc(dialog_);
    graph_.SetCurrent(dialog_, dc, id, index);
}

int C3DManager::PlaceAmongId(int viewRow) const {
    const std::uint8_t id = EventInRow(viewRow).id;
    int place = 0;
    for (int row = 0; row < viewRow; ++row) {
        place += EventInRow(row).id == id ? 1 : 0;
    }
    return place;
}

void C3DManager::SelectCurrent() {
    const int row = CurrentRow();
    if (row >= 0) {
        store_.SetCurrentUid(kNoUid);  // Else the row would count as selected already.
    }
    SelectRow(row);
}

int C3DManager::RowOfIdIndex(int id, int n) const {
    for (int row = 0; row < ViewSize(); ++row) {
        if (EventInRow(row).id == id && n-- == 0) {
            return row;
        }
    }
    return -1;
}

int C3DManager::SelectedEvents(std::vector<int>& viewRows) const {
    list_.GetSelectedRows(viewRows);
    std::erase_if(viewRows, [this](int row) {
        return row >= ViewSize() || EventInRow(row).type != kEventPosition;
    });
    return static_cast<int>(viewRows.size());
}
