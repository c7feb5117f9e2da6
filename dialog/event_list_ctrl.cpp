#include "dialog/event_list_ctrl.h"

#include <array>
#include <string>

#include "views/position_arithmetic.h"

namespace {

struct Column {
    const char* title;
    int width;  // Pixels.
};

constexpr Column kColumns[] = {
    {"", 30},   {"TimeSig.", 55}, {"Meas.", 45}, {"Beat", 40},  {"Tick", 40},
    {"ID", 30}, {"Dist.", 50},    {"Azim.", 45}, {"Elev.", 45},
};
constexpr int kColumnCount = static_cast<int>(std::size(kColumns));
enum : unsigned { kTimeSig = 1, kMeasure, kBeat, kTick, kId, kDistance, kAzimuth, kElevation };

// By image number; the icons of the resources.
constexpr UINT kRowIcons[] = {1003, 1006, 1004, 1005, 1009, 1010, 1011};

// The texts of one row by column.
using Cells = std::array<CString, kColumnCount>;

CString Number(std::int64_t value) {
    return std::to_string(value);
}

void SetEventCells(Cells& cells, const _tagEvent3D& event) {
    if (event.type == kEventPosition) {
        cells[kTimeSig] = "-";
        cells[kId] = Number(event.id);
        cells[kDistance] = MetresText(event.distance);
        cells[kAzimuth] = Number(event.azimuth);
        cells[kElevation] = Number(event.elevation);
    } else if (event.type == kEventTimeSig) {
        cells[kTimeSig] = Number(event.numerator) + " / " + Number(event.denominator);
        cells[kId] = cells[kDistance] = cells[kAzimuth] = cells[kElevation] = "-";
    }
}

// The row as a sentence for a screen reader.
CString Sentence(const Cells& cells, std::uint32_t type) {
    const CString time =
        "measure " + cells[kMeasure] + ", beat " + cells[kBeat] + ", tick " + cells[kTick];
    switch (type) {
        case kEventRangeStart:
            return "range start, " + time;
        case kEventRangeEnd:
            return "range end, " + time;
        case kEventTimeSig:
            return time + ", time signature " + cells[kTimeSig];
        default:
            return time + ", ID " + cells[kId] + ", " + cells[kDistance] + " metres, azimuth " +
                   cells[kAzimuth] + ", elevation " + cells[kElevation];
    }
}

}  // namespace

const CRuntimeClass C3DEventListCtrl::classC3DEventListCtrl{"C3DEventListCtrl",
                                                            &CListCtrl::classCListCtrl};

const CRuntimeClass* C3DEventListCtrl::GetRuntimeClass() const {
    return &classC3DEventListCtrl;
}

const MessageMap* C3DEventListCtrl::GetMessageMap() const {
    static const MessageMap map{CListCtrl::GetMessageMap(), {}};
    return &map;
}

void C3DEventListCtrl::SetupList() {
    SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT | LVS_EX_HEADERDRAGDROP);
    for (int column = 0; column < kColumnCount; ++column) {
        InsertColumn(column, kColumns[column].title, kColumns[column].width);
    }
    images_.Create(16, 16);
    for (const UINT icon : kRowIcons) {
        images_.Add(icon);
    }
    SetImageList(&images_);
}

void C3DEventListCtrl::InsertRow(int image, const t_MBT& mbt, const _tagEvent3D& event) {
    Cells cells;
    cells[kMeasure] = Number(mbt.measure);
    cells[kBeat] = Number(mbt.beat);
    cells[kTick] = Number(mbt.tick);
    SetEventCells(cells, event);
    const int row = InsertItem(GetItemCount(), image);
    for (unsigned column = kTimeSig; column < cells.size(); ++column) {
        SetItemText(row, static_cast<int>(column), cells[column]);
    }
    SetItemDescription(row, Sentence(cells, event.type));
}

void C3DEventListCtrl::UpdateRow(int viewRow, const _tagEvent3D& event) {
    const int row = ListRow(viewRow);
    Cells cells;
    for (const unsigned column : {kMeasure, kBeat, kTick}) {
        cells[column] = GetItemText(row, static_cast<int>(column));
    }
    SetEventCells(cells, event);
    for (const unsigned column : {kTimeSig, kId, kDistance, kAzimuth, kElevation}) {
        SetItemText(row, static_cast<int>(column), cells[column]);
    }
    SetItemDescription(row, Sentence(cells, event.type));
}

bool C3DEventListCtrl::IsInView(int viewRow) const {
    const int extraRows = mode_ == kRangeMode ? 2 : 0;
    return viewRow >= 0 && viewRow < GetItemCount() - extraRows;
}

void C3DEventListCtrl::SetRowImage(int image, int viewRow) {
    if (IsInView(viewRow)) {
        SetItemImage(ListRow(viewRow), image);
    }
}

void C3DEventListCtrl::SelectListRow(int viewRow) {
    constexpr UINT marks = LVIS_FOCUSED | LVIS_SELECTED;
    if (mode_ == kRangeMode) {
        SetItemState(0, 0, marks);
        SetItemState(GetItemCount() - 1, 0, marks);
    }
    SetItemState(ListRow(viewRow), marks, marks);
    EnsureVisible(ListRow(viewRow));
}

void C3DEventListCtrl::DeselectRow(int viewRow) {
    SetItemState(ListRow(viewRow), 0, LVIS_FOCUSED | LVIS_SELECTED);
}

void C3DEventListCtrl::DeleteRow(int viewRow) {
    DeleteItem(ListRow(viewRow));
}

int C3DEventListCtrl::GetSelectedRows(std::vector<int>& viewRows) const {
    viewRows.clear();
    for (int row = GetNextItem(-1, LVNI_SELECTED); row >= 0;
         row = GetNextItem(row, LVNI_SELECTED)) {
        if (!IsBoundaryRow(row)) {
            viewRows.push_back(row - ListRow(0));
        }
    }
    return static_cast<int>(viewRows.size());
}

int C3DEventListCtrl::GetSingleSelectedRow() const {
    std::vector<int> rows;
    return GetSelectedRows(rows) == 1 ? rows.front() : -1;
}

bool C3DEventListCtrl::IsBoundaryRow(int listRow) const {
    return mode_ == kRangeMode && (listRow == 0 || listRow == GetItemCount() - 1);
}
