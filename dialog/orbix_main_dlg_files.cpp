#include "dialog/orbix_main_dlg.h"
#include "platform/files.h"
#include "platform/hooks.h"
#include "views/file_dialog_ex.h"

// Event files in and out: by button, by key and by dropping a file on the dialog.

namespace {

constexpr char kCsvExtension[] = "csv";
constexpr char kCsvFilter[] = "3D Event CSV File (*.csv)|*.csv||";
constexpr DWORD kLoadFlags = OFN_LONGNAMES | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
constexpr DWORD kSaveFlags = OFN_LONGNAMES | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;

bool ChooseFile(CFileDialogEx& chooser, const CString& folder) {
    CString tooLong;
    GetReportText(kErrorPathTooLong, tooLong);
    chooser.SetPathTooLongMessage(tooLong.c_str());
    chooser.m_ofn.lpstrInitialDir = folder;
    return chooser.DoModal() == IDOK;
}

// The file dialog leaves the process in the folder where the user went.
void RememberFolder(CString& folder) {
    folder = CurrentFolder().value_or(folder);
}

bool IsCsvPath(const CString& path) {
    return LowerExtension(path) == ".csv";
}

}  // namespace

void COrbixMainDlg::OnBnClickedBtnCsvLoad() {
    CFileDialogEx chooser(TRUE, kCsvExtension, nullptr, kLoadFlags, kCsvFilter, nullptr);
    if (IsDragging() || !ChooseFile(chooser, csvLoadFolder_)) {
        return;
    }
    const CWaitCursor wait;
    Load3DFile(chooser.GetPathName().c_str());
    RememberFolder(csvLoadFolder_);
}

// The key comes also while the button is disabled.
void COrbixMainDlg::OnBnClickedBtnCsvSave() {
    CFileDialogEx chooser(FALSE, kCsvExtension, nullptr, kSaveFlags, kCsvFilter, nullptr);
    if (IsDragging() || manager_.Store().CountEvents(-1) == 0 ||
        !ChooseFile(chooser, csvSaveFolder_)) {
        return;
    }
    const CWaitCursor wait;
    if (const int code = manager_.Store().SaveCsv(chooser.GetPathName()); code != 0) {
        ShowError(code);
    }
    RememberFolder(csvSaveFolder_);
}

int COrbixMainDlg::Load3DFile(const char* path) {
    if (path == nullptr || *path == '\0') {
        return 0;
    }
    if (manager_.Store().CountEvents(-1) > 0 &&
        AfxMessageBox("Current event data will be replaced?", MB_OKCANCEL | MB_ICONQUESTION) ==
            IDCANCEL) {
        return 0;
    }
    if (!IsCsvPath(path)) {
        ShowError(kErrorExtension);
        return 0;
    }
    report_.Clear();
    if (const int code = manager_.LoadCsv(path, report_); code != 0) {
        ShowError(code);
        return 0;
    }
    ShowReport(report_);
    MakeList();
    SetModified(true);
    SetEnableSettingType(kSettingPosition);
    return 1;
}

void COrbixMainDlg::OnDropFiles(HDROP drop) {
    if (IsDragging()) {
        return;
    }
    if (drop->size() != 1) {
        ShowError(kErrorMultiFile);
        return;
    }
    SetForegroundWindow();
    const CWaitCursor wait;
    TakeDroppedFile(drop->front());
}

void COrbixMainDlg::TakeDroppedFile(const CString& path) {
    if (path.size() > kMaxPath) {
        ShowError(kErrorPathTooLong);
        return;
    }
    if (KindOfPath(path) == PathKind::folder) {
        ShowError(kErrorDirectory);
        return;
    }
    if (!IsCsvPath(path)) {
        ShowError(kErrorExtension);
    } else {
        Load3DFile(path.c_str());
    }
    Default();
}
