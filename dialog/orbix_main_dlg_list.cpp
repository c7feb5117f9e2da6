#include "dialog/orbix_main_dlg.h"
#include "platform/hooks.h"

namespace {

constexpr UINT kShowGraph = 1;
constexpr UINT kHideGraph = 2;
constexpr COLORREF kBoundaryText = RGB(0, 0, 0);
constexpr COLORREF kBoundaryBackground = RGB(240, 230, 170);

}  // namespace

void COrbixMainDlg::MakeList() {
    C3DManager::ViewFilter filter{1, 1, 1, 1};
    if (!IsChecked(kChkIdAll)) {
        filter = {IsChecked(kChkId0), IsChecked(kChkId1), IsChecked(kChkId2), IsChecked(kChkId3)};
    }
    manager_.SetViewFilter(filter);
    manager_.SelectCurrent();
}

void COrbixMainDlg::SetEnableCheckFilter() const {
    const bool single = !IsChecked(kChkIdAll);
    for (const int id : {kChkId0, kChkId1, kChkId2, kChkId3}) {
        EnableControl(id, single);
    }
}

void COrbixMainDlg::ChangeViewFilter(int control) {
    if (IsDragging()) {
        return;
    }
    GetBtnChkID(control)->SetCheck(IsChecked(control) ? 0 : 1);
    SetEnableCheckFilter();
    MakeList();
}

void COrbixMainDlg::OnLvnItemChangedList3DEvent(NMHDR* /*header*/, LRESULT* /*result*/) {
    if (IsDragging() || manager_.IsSettingMarks()) {
        return;
    }
    const int row = manager_.List().GetSingleSelectedRow();
    if (row >= 0) {
        manager_.SelectRow(row);
    }
}

void COrbixMainDlg::OnNMCustomDrawListCtrl(NMHDR* header, LRESULT* result) {
    auto& draw = *reinterpret_cast<NMLVCUSTOMDRAW*>(header);
    *result = CDRF_DODEFAULT;
    if (draw.dwDrawStage == CDDS_PREPAINT) {
        *result = CDRF_NOTIFYITEMDRAW;
    } else if (draw.dwDrawStage == CDDS_ITEMPREPAINT) {
        *result = CDRF_NOTIFYSUBITEMDRAW;
    } else if (draw.dwDrawStage == (CDDS_ITEMPREPAINT | CDDS_SUBITEM) &&
               manager_.List().IsBoundaryRow(draw.iItem)) {
        draw.clrText = kBoundaryText;
        draw.clrTextBk = kBoundaryBackground;
        *result = CDRF_NEWFONT;
    }
}

void COrbixMainDlg::OnNMRclickList3DEvent(NMHDR* /*header*/, LRESULT* /*result*/) {
    std::vector<int> rows;
    if (IsDragging() || manager_.SelectedEvents(rows) == 0) {
        return;
    }
    const UINT command =
        TrackPopupMenu(m_hWnd, {{kShowGraph, "Show Graph"}, {kHideGraph, "Hide Graph"}});
    // While the menu stood open a host may have taken another table.
    if ((command != kShowGraph && command != kHideGraph) || manager_.SelectedEvents(rows) == 0) {
        return;
    }
    for (const int row : rows) {
        manager_.EventInRow(row).visible = command == kShowGraph ? 1 : 0;
    }
    ShowChangedVisibility();
}

void COrbixMainDlg::OnNMDblclkList3DEvent(NMHDR* /*header*/, LRESULT* /*result*/) {
    std::vector<int> rows;
    if (IsDragging() || manager_.SelectedEvents(rows) == 0) {
        return;
    }
    for (const int row : rows) {
        std::int32_t& visible = manager_.EventInRow(row).visible;
        visible = visible == 1 ? 0 : 1;
    }
    ShowChangedVisibility();
}

void COrbixMainDlg::ShowChangedVisibility() {
    manager_.RefreshRowImages();
    manager_.RefreshGraph();
    manager_.SelectCurrent();
}
