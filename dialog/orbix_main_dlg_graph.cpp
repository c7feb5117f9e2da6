#include "dialog/orbix_main_dlg.h"

// The dialog's share in the two planes: the device context they are painted on, the mouse, and the
// view settings beside them.

void COrbixMainDlg::OnPaint() {
    CPaintDC dc(this);
    manager_.Graph().Draw(this, dc);
}

void COrbixMainDlg::OnCtlColor(CDC* dc, CWnd* control) {
    const int id = control->GetDlgCtrlID();
    if (id >= kLabelId0 && id <= kLabelId3) {
        dc->SetTextColor(C3DGraph::GetIDColor(id - kLabelId0));
    }
}

void COrbixMainDlg::OnLButtonDown(POINT point) {
    manager_.Graph().OnMouseDown(this, point.x, point.y);
    Default();
}

void COrbixMainDlg::OnMouseMove(POINT point) {
    {
        CClientDC dc(this);
        manager_.Graph().OnMouseDrag(this, dc, point.x, point.y);
    }
    Default();
}

void COrbixMainDlg::OnLButtonUp(POINT point) {
    manager_.Graph().OnMouseUp(this, point.x, point.y);
    Default();
}

void COrbixMainDlg::OnCaptureChanged() {
    CClientDC dc(this);
    manager_.Graph().OnCaptureLost(this, dc);
}

void COrbixMainDlg::OnCbnSelchangeCmbZoom() {
    const int selected = GetCmbBoxZoom()->GetCurSel();
    if (selected < 0) {
        return;
    }
    C3DGraph::s_strZoomText = GetCmbBoxZoom()->GetWindowText();
    if (selected < static_cast<int>(ZOOM_TABLE.size())) {
        const ZoomRow& row = ZOOM_TABLE[static_cast<std::size_t>(selected)];
        CClientDC dc(this);
        manager_.Graph().SetZoom(this, dc, row.zoom, static_cast<int>(row.ringCount), row.rings);
    }
    manager_.RefreshRowImages();
    manager_.RefreshGraph();
    manager_.SelectCurrent();
}

void COrbixMainDlg::ApplyViewSetting(int control, void (C3DGraph::*set)(CWnd*, CDC*, int)) {
    CClientDC dc(this);
    (manager_.Graph().*set)(this, dc, IsChecked(control) ? 1 : 0);
}

void COrbixMainDlg::OnBnClickedChkXaxisreverse() {
    ApplyViewSetting(kChkXReverse, &C3DGraph::SetXReverse);
}

void COrbixMainDlg::OnBnClickedChkYaxisreverse() {
    ApplyViewSetting(kChkYReverse, &C3DGraph::SetYReverse);
}

void COrbixMainDlg::OnBnClickedChkZaxisreverse() {
    ApplyViewSetting(kChkZReverse, &C3DGraph::SetZReverse);
}

void COrbixMainDlg::OnBnClickedChkIndexview() {
    ApplyViewSetting(kChkIndexView, &C3DGraph::SetIndexView);
}

void COrbixMainDlg::OnBnClickedChkIndexLine() {
    ApplyViewSetting(kChkIndexLine, &C3DGraph::SetIndexLine);
}
