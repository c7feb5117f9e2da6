#include "dialog/orbix_main_dlg.h"

// How the editor starts: one step for each group of controls.

namespace {

constexpr int kTimeDigits = 5;
constexpr int kTimeHighest = 99999;
constexpr int kStartZoomRow = 6;

RECT ClientRectOf(const CWnd& dialog, int control) {
    const CWnd* frame = dialog.GetDlgItem(control);
    RECT rect = frame == nullptr ? RECT{} : frame->GetWindowRect();
    dialog.ScreenToClient(rect);
    return rect;
}

}  // namespace

BOOL COrbixMainDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    LoadPattern(pattern_.get());
    StartTimeFields();
    name_ = NameInPattern().value_or(name_);
    StartFilterAndId();
    StartPages();
    StartListAndGraph();
    StartZoom();
    StartPosition();
    StartViewSettings();
    GetBtnCsvLoad()->SetIcon(kIconLoad);
    GetBtnCsvSave()->SetIcon(kIconSave);
    EnableControl(kEditName, nameEditable_);
    UpdateData(FALSE);
    MakeList();
    SetEnableCheckFilter();
    SetEnableButtonFrom3DEventList(nullptr);
    StartTimeSig();
    SetEnableSettingType(kSettingPosition);
    StartToolTips();
    return TRUE;
}

void COrbixMainDlg::TimeField::Start(int lower, int upper) {
    edit.SetLimit(kTimeDigits);
    edit.SetRange(lower, upper);
    edit.SetFallback(lower);
    spin.SetRange32(lower, upper);
    spin.SetPos(lower);
}

void COrbixMainDlg::TimeField::Enable(bool enable) {
    edit.EnableWindow(enable);
    spin.EnableWindow(enable);
}

void COrbixMainDlg::StartTimeFields() {
    measure_.Start(1, kTimeHighest);
    beat_.Start(1, kTimeHighest);
    tick_.Start(0, kTimeHighest);
}

void COrbixMainDlg::StartFilterAndId() {
    for (const int id : {kChkIdAll, kChkId0, kChkId1, kChkId2, kChkId3}) {
        GetBtnChkID(id)->SetCheck(1);
    }
    idBox_.SetCurSel(0);
}

void COrbixMainDlg::StartPages() {
    tab_.AddPage(&sphericalPage_, CPage3DPosSpherical::kTemplateId, "Spherical");
    tab_.AddPage(&cartesianPage_, CPage3DPosCartesianal::kTemplateId, "Cartesianal");
    sphericalPage_.InitPage(m_hWnd);
    cartesianPage_.InitPage(m_hWnd, EditorLimits());
}

void COrbixMainDlg::StartListAndGraph() {
    manager_.List().SetupList();
    const ZoomRow& row = ZOOM_TABLE.front();
    manager_.Graph().Init(ClientRectOf(*this, kPlaneAbove), ClientRectOf(*this, kPlaneBehind),
                          row.zoom, static_cast<int>(row.ringCount), row.rings, EditorLimits());
    DescribePlane(kPlaneAbove, 0);
    DescribePlane(kPlaneBehind, 1);
    CComboBox& zoomBox = *GetCmbBoxZoom();
    for (const ZoomRow& each : ZOOM_TABLE) {
        zoomBox.AddString(MetresText(each.zoom));
    }
    zoomBox.SetCurSel(kStartZoomRow);
}

// The dots are painted, not controls; this is how a screen reader learns of them.
void COrbixMainDlg::DescribePlane(int control, int plane) {
    GetDlgItemAs<CStatic>(control)->SetVirtualItems(
        [this, plane] { return manager_.Graph().DescribeDots(plane); });
}

void COrbixMainDlg::StartZoom() {
    if (C3DGraph::s_strZoomText.empty()) {
        C3DGraph::s_strZoomText = GetCmbBoxZoom()->GetWindowText();
    } else {
        GetCmbBoxZoom()->SelectString(-1, C3DGraph::s_strZoomText);
    }
    OnCbnSelchangeCmbZoom();
}

void COrbixMainDlg::StartPosition() {
    tab_.SelectPage(0);
    SendPosition(cartesianPage_);
    SendPosition(sphericalPage_);
}

void COrbixMainDlg::StartViewSettings() {
    GetBtnChkXReverse()->SetCheck(C3DGraph::s_nXReverse);
    GetBtnChkYReverse()->SetCheck(C3DGraph::s_nYReverse);
    GetBtnChkZReverse()->SetCheck(C3DGraph::s_nZReverse);
    GetBtnChkIndexView()->SetCheck(C3DGraph::s_nIndexView);
    GetBtnChkIndexLine()->SetCheck(C3DGraph::s_nIndexLine);
}

void COrbixMainDlg::StartTimeSig() {
    if (manager_.CurrentRow() < 0) {  // Else the selection has filled it.
        timeSig_.SetTimeSig(manager_.Store().TimeSigAt(0));
    }
}

void COrbixMainDlg::StartToolTips() {
    struct Tip {
        int control;
        const char* text;
    };
    static constexpr Tip tips[] = {
        {kBtnUndo, "Undo [Ctrl+Z]"},
        {kBtnRedo, "Redo [Ctrl+Y]"},
        {kBtnAdd, "Add Event"},
        {kBtnUpdate, "Update Event"},
        {kBtnDelete, "Delete Event [Delete]"},
        {kBtnCsvLoad, "Open CSV [Ctrl+O]"},
        {kBtnCsvSave, "Save CSV [Ctrl+S]"},
    };
    toolTip_.Create(this);
    for (const Tip& tip : tips) {
        toolTip_.AddTool(GetDlgItem(tip.control), tip.text);
    }
    toolTip_.Activate(true);
}
