#include "dialog/orbix_main_dlg.h"

// The bridge between the fields of one event and the event table.

void COrbixMainDlg::CopyEvent3DFromDialog(_tagEvent3D& event) const {
    event.id = static_cast<std::uint8_t>(idBox_.GetCurSel());
    event.tick = manager_.Store().MBTToTick({static_cast<std::uint32_t>(measure_.value),
                                             static_cast<std::uint32_t>(beat_.value),
                                             static_cast<std::uint32_t>(tick_.value)});
    event.distance = static_cast<std::uint16_t>(position_.distance);
    event.azimuth = static_cast<std::int16_t>(position_.azimuth);
    event.elevation = static_cast<std::int16_t>(position_.elevation);
    event.type = settingType_ == kSettingTimeSig ? kEventTimeSig : kEventPosition;
    if (event.type == kEventTimeSig) {
        t_tSigMapRec timeSig;
        timeSig_.GetTimeSig(timeSig);
        event.id = kTimeSigId;
        event.distance = 0;
        event.azimuth = 0;
        event.elevation = 0;
        event.numerator = timeSig.numerator;
        event.denominator = timeSig.denominator;
    }
}

void COrbixMainDlg::CopyDialogValueFromCallback(const _tagEvent3D* event) {
    if (event != nullptr) {
        const t_MBT mbt = manager_.Store().TickToMBT(event->tick);
        measure_.value = static_cast<int>(mbt.measure);
        beat_.value = static_cast<int>(mbt.beat);
        tick_.value = static_cast<int>(mbt.tick);
        settingType_ = event->type == kEventTimeSig ? kSettingTimeSig : kSettingPosition;
        if (event->type == kEventPosition) {
            idBox_.SetCurSel(event->id);
            position_ = {event->distance, event->azimuth, event->elevation};
            SendPosition(sphericalPage_);
            SendPosition(cartesianPage_);
        }
        timeSig_.SetTimeSig(manager_.Store().TimeSigAt(event->tick));
    }
    SetEnableButtonFrom3DEventList(event);
    UpdateData(FALSE);
    SetEnableSettingType();
}

void COrbixMainDlg::SendPosition(CWnd& page) {
    page.SendMessage(WM_SET3DPOS, reinterpret_cast<WPARAM>(&position_), kFromSphericalPage);
}

LRESULT COrbixMainDlg::OnSet3DPos(WPARAM wParam, LPARAM lParam) {
    position_ = *reinterpret_cast<const tag3DPosMsg*>(wParam);
    if (lParam == kFromSphericalPage) {
        SendPosition(cartesianPage_);
    } else if (lParam == kFromCartesianPage) {
        SendPosition(sphericalPage_);
    }
    return 0;
}

void COrbixMainDlg::SetEnableButtonFrom3DEventList(const _tagEvent3D* /*event*/) const {
    const bool hasCurrent = manager_.CurrentRow() >= 0;
    EnableControl(kBtnUpdate, hasCurrent);
    EnableControl(kBtnDelete, hasCurrent);
    EnableControl(kBtnCsvSave, manager_.Store().CountEvents(-1) > 0);
    EnableControl(kBtnUndo, manager_.Store().CanUndo());
    EnableControl(kBtnRedo, manager_.Store().CanRedo());
}

void COrbixMainDlg::SetEnableSettingType(int settingType) {
    settingType_ = settingType;
    UpdateData(FALSE);
    SetEnableSettingType();
}

void COrbixMainDlg::SetEnableSettingType() {
    UpdateData(TRUE);
    if (settingType_ == kSettingTimeSig) {
        beat_.value = 1;
        tick_.value = 0;
        UpdateData(FALSE);
    }
    if (manager_.IsRangeMode()) {
        settingType_ = kSettingPosition;
        UpdateData(FALSE);
        EnableControl(kRadioTimeSig, false);
    }
    timeSig_.EnableAll(settingType_ != kSettingPosition);
    EnablePositionFields(settingType_ == kSettingPosition);
}

void COrbixMainDlg::EnablePositionFields(bool enable) {
    idBox_.EnableWindow(enable);
    EnableControl(kFramePosition, enable);
    EnableControl(kLabelId, enable);
    tab_.EnableWindow(enable);
    sphericalPage_.SendMessage(WM_ENABLEPAGE, enable ? 1 : 0);
    cartesianPage_.SendMessage(WM_ENABLEPAGE, enable ? 1 : 0);
    beat_.Enable(enable);
    tick_.Enable(enable);
}

void COrbixMainDlg::OnBnClickedBtnAdd() {
    RunFieldCommand(&C3DManager::Add);
}

void COrbixMainDlg::OnBnClickedBtnUpdate() {
    RunFieldCommand(&C3DManager::Update);
}

void COrbixMainDlg::RunFieldCommand(int (C3DManager::*command)(_tagEvent3D)) {
    if (IsDragging() || UpdateData(TRUE) == FALSE) {
        return;
    }
    _tagEvent3D event;
    CopyEvent3DFromDialog(event);
    const int code = (manager_.*command)(event);
    if (code == 0) {
        manager_.SelectCurrent();
        SetModified(true);
    } else if (code == kErrorCountLimit) {
        ShowMessage(FormatReport(code, {event.id}));
    } else {
        ShowError(code);
    }
}

void COrbixMainDlg::OnBnClickedBtnDelete() {
    if (IsDragging()) {
        return;
    }
    if (const int code = manager_.Delete(); code != 0) {
        ShowError(code);
        return;
    }
    manager_.SelectCurrent();
    SetModified(true);
}

void COrbixMainDlg::OnBnClickedBtnUndo() {
    if (!IsDragging()) {
        manager_.Undo();
    }
}

void COrbixMainDlg::OnBnClickedBtnRedo() {
    if (!IsDragging()) {
        manager_.Redo();
    }
}

void COrbixMainDlg::SetCurrentPointFromCallback(int id, int index) {
    const int row = manager_.RowOfIdIndex(id, index);
    if (row >= 0) {
        manager_.SelectRow(row);
    }
}

void COrbixMainDlg::SetCurrentMoveFromCallback(int id, int index, const _tagEvent3D& event) {
    const int row = manager_.RowOfIdIndex(id, index);
    if (row < 0) {
        return;
    }
    _tagEvent3D moved = manager_.EventInRow(row);
    moved.distance = event.distance;
    moved.azimuth = event.azimuth;
    moved.elevation = event.elevation;
    manager_.Update(moved);
    manager_.SelectCurrent();
    SetModified(true);
}
