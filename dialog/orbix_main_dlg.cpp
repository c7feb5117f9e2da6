#include "dialog/orbix_main_dlg.h"

#include <cstring>

#include "dialog/pattern_name.h"
#include "params/pattern_block.h"
#include "params/pattern_form.h"
#include "params/pattern_requests.h"
#include "platform/data_exchange.h"
#include "platform/hooks.h"
#include "platform/named_guard.h"
#include "platform/native.h"

namespace {

CString FolderText(const char* folder) {
    return folder == nullptr ? CString() : CString(folder);
}

// A pattern that can't be copied leaves the editor without one; it then shows an empty table and
// its OK writes nothing.
std::unique_ptr<CQelCPB_3DPattern> CopyOrNew(const CQelCPB_3DPattern* source) {
    try {
        return source == nullptr ? std::make_unique<CQelCPB_3DPattern>() : CopyPattern(*source);
    } catch (...) {
        return nullptr;
    }
}

}  // namespace

const CRuntimeClass COrbixMainDlg::classCOrbixMainDlg{"COrbixMainDlg", &CDialog::classCDialog};

COrbixMainDlg::COrbixMainDlg(CWnd* parent, CQelCPB_3DPattern* pattern,
                             CZurParamBlock* outParameters,
                             std::vector<st_cmd3DInitialPosition>* initialPositions,
                             CZurSMWMan& link, std::vector<t_tSigRec>* /*unusedTimeSigs*/,
                             unsigned short /*unusedNumber*/, unsigned long rangeStart,
                             unsigned long rangeEnd, bool freeMode, const char* csvLoadFolder,
                             const char* csvSaveFolder)
    : CDialog(kEditorDialog, parent),
      manager_(this, freeMode ? kFreeMode : kRangeMode, static_cast<std::uint32_t>(rangeStart),
               static_cast<std::uint32_t>(rangeEnd)),
      nameEditable_(freeMode),
      pattern_(CopyOrNew(pattern)),
      outParameters_(outParameters),
      initialPositions_(initialPositions),
      link_(link),
      csvLoadFolder_(FolderText(csvLoadFolder)),
      csvSaveFolder_(FolderText(csvSaveFolder)),
      accelerators_(LoadAccelerators(kEditorKeys)) {}

COrbixMainDlg::~COrbixMainDlg() = default;

const CRuntimeClass* COrbixMainDlg::GetRuntimeClass() const {
    return &classCOrbixMainDlg;
}

const MessageMap* COrbixMainDlg::GetMessageMap() const {
    using Dlg = COrbixMainDlg;
    constexpr auto onSettingType = static_cast<void (Dlg::*)()>(&Dlg::SetEnableSettingType);
    static constexpr MessageEntry entries[] = {
        OnNotify<&Dlg::OnLvnItemChangedList3DEvent>(kListEvents, LVN_ITEMCHANGED),
        OnNotify<&Dlg::OnNMCustomDrawListCtrl>(kListEvents, NM_CUSTOMDRAW),
        OnNotify<&Dlg::OnNMRclickList3DEvent>(kListEvents, NM_RCLICK),
        OnNotify<&Dlg::OnNMDblclkList3DEvent>(kListEvents, NM_DBLCLK),
        OnCommand<&Dlg::OnBnClickedBtnAdd>(kBtnAdd),
        OnCommand<&Dlg::OnBnClickedBtnUpdate>(kBtnUpdate),
        OnCommand<&Dlg::OnBnClickedBtnDelete>(kBtnDelete),
        OnCommand<&Dlg::OnBnClickedBtnDelete>(kCommandDelete),
        OnCommand<&Dlg::OnBnClickedBtnUndo>(kBtnUndo),
        OnCommand<&Dlg::OnBnClickedBtnUndo>(kCommandUndo),
        OnCommand<&Dlg::OnBnClickedBtnRedo>(kBtnRedo),
        OnCommand<&Dlg::OnBnClickedBtnRedo>(kCommandRedo),
        OnCommand<&Dlg::OnBnClickedButtonOk>(kBtnOk),
        OnCommand<&Dlg::OnBnClickedCancel>(kBtnCancel),
        OnCommand<&Dlg::OnBnClickedBtnCsvLoad>(kBtnCsvLoad),
        OnCommand<&Dlg::OnBnClickedBtnCsvLoad>(kCommandOpen),
        OnCommand<&Dlg::OnBnClickedBtnCsvSave>(kBtnCsvSave),
        OnCommand<&Dlg::OnBnClickedBtnCsvSave>(kCommandSave),
        OnMessage<&Dlg::OnDropFiles>(WM_DROPFILES),
        OnMessage<&Dlg::OnClose>(WM_CLOSE),
        OnMessage<&Dlg::OnSet3DPos>(WM_SET3DPOS),
        OnMessage<&Dlg::OnPaint>(WM_PAINT),
        OnMessage<&Dlg::OnCtlColor>(WM_CTLCOLOR),
        OnCommand<&Dlg::OnEnChangeEditName>(kEditName, EN_CHANGE),
        OnCommand<&Dlg::OnBnClickedButtonPatch>(kBtnPatch),
        OnCommand<&Dlg::OnBnClickedButtonSend>(kBtnSend),
        OnMessage<&Dlg::OnLButtonDown>(WM_LBUTTONDOWN),
        OnMessage<&Dlg::OnMouseMove>(WM_MOUSEMOVE),
        OnMessage<&Dlg::OnLButtonUp>(WM_LBUTTONUP),
        OnMessage<&Dlg::OnCaptureChanged>(WM_CAPTURECHANGED),
        OnCommand<&Dlg::OnBnClickedChkIdall>(kChkIdAll),
        OnCommand<&Dlg::OnBnClickedChkId0>(kChkId0),
        OnCommand<&Dlg::OnBnClickedChkId1>(kChkId1),
        OnCommand<&Dlg::OnBnClickedChkId2>(kChkId2),
        OnCommand<&Dlg::OnBnClickedChkId3>(kChkId3),
        OnCommand<&Dlg::OnCbnSelchangeCmbZoom>(kComboZoom, CBN_SELCHANGE),
        OnCommand<&Dlg::OnBnClickedChkXaxisreverse>(kChkXReverse),
        OnCommand<&Dlg::OnBnClickedChkYaxisreverse>(kChkYReverse),
        OnCommand<&Dlg::OnBnClickedChkZaxisreverse>(kChkZReverse),
        OnCommand<&Dlg::OnBnClickedChkIndexview>(kChkIndexView),
        OnCommand<&Dlg::OnBnClickedChkIndexLine>(kChkIndexLine),
        OnCommand<onSettingType>(kRadioPosition),
        OnCommand<onSettingType>(kRadioTimeSig),
    };
    static const MessageMap map{CDialog::GetMessageMap(), entries};
    return &map;
}

void COrbixMainDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kListEvents, manager_.List());
    DDX_Control(exchange, kComboId, idBox_);
    DDX_Control(exchange, kEditMeasure, measure_.edit);
    DDX_Control(exchange, kSpinMeasure, measure_.spin);
    DDX_Control(exchange, kEditBeat, beat_.edit);
    DDX_Control(exchange, kSpinBeat, beat_.spin);
    DDX_Control(exchange, kEditTick, tick_.edit);
    DDX_Control(exchange, kSpinTick, tick_.spin);
    DDX_Control(exchange, kTabPages, tab_);
    timeSig_.BindControls(exchange);
    DDX_Text(exchange, kEditName, name_);
    DDV_MaxChars(exchange, name_, static_cast<int>(kNameLimit));
    DDX_Text(exchange, kEditMeasure, measure_.value);
    DDX_Text(exchange, kEditBeat, beat_.value);
    DDX_Text(exchange, kEditTick, tick_.value);
    DDX_Radio(exchange, kRadioPosition, settingType_);
}

BOOL COrbixMainDlg::PreTranslateMessage(MSG* message) {
    // In a text field Delete and Ctrl+Z are the field's own.
    if (accelerators_ != nullptr && !IsTextFieldFocused() &&
        TranslateAcceleratorA(m_hWnd, accelerators_, message) != FALSE) {
        return TRUE;
    }
    return CDialog::PreTranslateMessage(message);
}

bool COrbixMainDlg::IsTextFieldFocused() const {
    for (const int id : {kEditName, kEditMeasure, kEditBeat, kEditTick, kEditNumerator}) {
        const CWnd* field = GetDlgItem(id);
        if (field != nullptr && field == GetFocus()) {
            return true;
        }
    }
    return false;
}

int COrbixMainDlg::DoModal() {
    const CNamedGuard guard("COrbixMainDlg");
    if (guard.IsHeld()) {
        return CDialog::DoModal();
    }
    if (native::EnsureToolkit()) {  // Nothing has made it yet, and the message needs it.
        ShowError(kErrorAlreadyOpen);
    }
    return -1;
}

void COrbixMainDlg::LoadPattern(CQelCPB_3DPattern* pattern) {
    SetModified(manager_.LoadFromPattern(pattern, report_) == 1);
}

std::optional<CString> COrbixMainDlg::NameInPattern() const {
    st_paramName name;
    if (pattern_ == nullptr || !pattern_->GetParam(kPatternName, &name, kSizeParamName)) {
        return std::nullopt;
    }
    return DisplayName({name.name, strnlen(name.name, sizeof name.name)});
}

void COrbixMainDlg::EnableControl(int id, bool enable) const {
    if (CWnd* control = GetDlgItem(id)) {
        control->EnableWindow(enable);
    }
}

bool COrbixMainDlg::IsChecked(int id) const {
    const CButton* box = Button(id);
    return box != nullptr && box->GetCheck() != 0;
}

bool COrbixMainDlg::IsNameModified() const {
    const std::optional<CString> stored = NameInPattern();
    return stored.has_value() && *stored != name_;
}

void COrbixMainDlg::SetModified(bool modified) {
    modified_ = modified;
    EnableControl(kBtnOk, modified);
}

void COrbixMainDlg::Reset3DManagerByTool3DPattern(CQelCPB_3DPattern* pattern) {
    LoadPattern(pattern);
    if (m_hWnd != nullptr) {
        MakeList();
    }
}

void COrbixMainDlg::Update3DPatternForTool(CQelCPB_3DPattern* pattern) {
    UpdateData(TRUE);
    manager_.Store().StoreToPattern(pattern, name_);
}

void COrbixMainDlg::OnEnChangeEditName() {
    if (!IsDragging()) {
        UpdateData(TRUE);
        SetModified(true);
    }
}

void COrbixMainDlg::OnBnClickedButtonOk() {
    if (IsDragging() || UpdateData(TRUE) == FALSE) {
        return;
    }
    manager_.Store().StoreToPattern(pattern_.get(), name_);
    SetModified(true);
    CDialog::OnOK();
}

void COrbixMainDlg::OnBnClickedCancel() {
    if (IsDragging()) {
        CClientDC dc(this);
        manager_.Graph().CancelDrag(this, dc);
        return;
    }
    if (IsNameModified() || modified_) {
        if (AfxMessageBox("Current event data has been edited.\n"
                          "Selecting cancel will undo the changes?",
                          MB_OKCANCEL | MB_ICONQUESTION) == IDCANCEL) {
            return;
        }
        SetModified(false);
    }
    CDialog::OnCancel();
}

void COrbixMainDlg::OnClose() {
    OnBnClickedCancel();
}
