#include "dialog/orbix_main_dlg.h"
#include "link/smw_manager.h"
#include "params/device_placement.h"
#include "params/param_block.h"
#include "patch/patch_dialog.h"
#include "platform/hooks.h"

// The two commands that reach beyond the event table: to the device, and to the host's own block.

// The device gets the position in the fields, whatever row is current and whatever setting type is
// chosen. Nobody is told when it does not go out; the host's link may watch.
void COrbixMainDlg::OnBnClickedButtonSend() {
    if (IsDragging()) {
        return;
    }
    UpdateData(TRUE);
    const std::optional<std::string> message = DeviceMessageOf(
        {static_cast<std::uint8_t>(idBox_.GetCurSel()),
         static_cast<std::uint32_t>(position_.distance), position_.azimuth, position_.elevation});
    if (message) {
        link_.SendData(message->data(), static_cast<std::uint32_t>(message->size()));
    }
}

void COrbixMainDlg::OnBnClickedButtonPatch() {
    if (IsDragging()) {
        return;
    }
    CQel_3DPatchDialog patch(nullptr, outParameters_, initialPositions_, link_);
    if (patch.DoModal() != IDOK) {
        return;
    }
    const CZurParamBlock* result = patch.GetParamBlock();
    if (result != nullptr && outParameters_ != nullptr) {
        *outParameters_ = *result;
    }
    SetModified(true);
}
