#include "platform/controls.h"

#include <algorithm>
#include <utility>

#include "platform/native.h"

const CRuntimeClass CListCtrl::classCListCtrl{"CListCtrl", &CWnd::classCWnd};

namespace {

char Folded(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool BeginsWith(const CString& text, const CString& prefix) {
    return text.size() >= prefix.size() &&
           std::equal(prefix.begin(), prefix.end(), text.begin(),
                      [](char a, char b) { return Folded(a) == Folded(b); });
}

}  // namespace

void CStatic::SetVirtualItems(std::function<std::vector<VirtualItem>()> provider) {
    native::SetVirtualItems(m_hWnd, std::move(provider));
}

int CButton::GetCheck() const {
    return native::GetCheck(m_hWnd);
}
void CButton::SetCheck(int check) {
    native::SetCheck(m_hWnd, check);
}
void CButton::SetIcon(UINT iconId) {
    native::SetIcon(m_hWnd, iconId);
}

void CEdit::SetLimitText(int bytes) {
    SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(bytes));
}
void CEdit::GetSel(int& start, int& end) const {
    native::EditGetSelection(m_hWnd, start, end);
}
void CEdit::SetSel(int start, int end) {
    native::EditSetSelection(m_hWnd, start, end);
}

int CComboBox::AddString(const CString& text) {
    return native::ComboAdd(m_hWnd, text);
}
int CComboBox::GetCount() const {
    return native::ComboCount(m_hWnd);
}
int CComboBox::GetCurSel() const {
    return native::ComboGetSelection(m_hWnd);
}

int CComboBox::SetCurSel(int row) {
    native::ComboSetSelection(m_hWnd, row);
    return GetCurSel();
}

CString CComboBox::GetLBText(int row) const {
    return native::ComboText(m_hWnd, row);
}

int CComboBox::SelectString(int startAfter, const CString& prefix) {
    const int count = GetCount();
    for (int step = 1; step <= count; ++step) {
        const int row = (startAfter + step) % count;
        if (BeginsWith(GetLBText(row), prefix)) {
            return SetCurSel(row);
        }
    }
    return -1;
}

void CSliderCtrl::SetRange(int low, int high) {
    native::SliderSetRange(m_hWnd, low, high);
}
int CSliderCtrl::GetPos() const {
    return native::SliderGetPosition(m_hWnd);
}
void CSliderCtrl::SetPos(int position) {
    native::SliderSetPosition(m_hWnd, position);
}

void CSpinButtonCtrl::SetRange32(int low, int high) {
    native::SpinSetRange(m_hWnd, low, high);
}

void CSpinButtonCtrl::GetRange(int& low, int& high) const {
    native::SpinGetRange(m_hWnd, low, high);
}

void CSpinButtonCtrl::SetPos(int position) {
    native::SpinSetPosition(m_hWnd, position);
}

CWnd* CSpinButtonCtrl::GetBuddy() const {
    return native::GetOwner(native::SpinBuddy(m_hWnd));
}

void CImageList::Create(int width, int height) {
    size_ = {width, height};
    icons_.clear();
}

int CImageList::Add(UINT iconId) {
    icons_.push_back(iconId);
    return static_cast<int>(icons_.size()) - 1;
}

const CRuntimeClass* CListCtrl::GetRuntimeClass() const {
    return &classCListCtrl;
}
void CListCtrl::SetExtendedStyle(DWORD style) {
    native::ListSetExtendedStyle(m_hWnd, style);
}
void CListCtrl::SetImageList(const CImageList* images) {
    native::ListSetImages(m_hWnd, images);
}

void CListCtrl::InsertColumn(int column, const CString& title, int width) {
    native::ListInsertColumn(m_hWnd, column, title, width);
}

int CListCtrl::InsertItem(int row, int image) {
    return native::ListInsertItem(m_hWnd, row, image);
}

void CListCtrl::SetItemText(int row, int column, const CString& text) {
    native::ListSetText(m_hWnd, row, column, text);
}

CString CListCtrl::GetItemText(int row, int column) const {
    return native::ListGetText(m_hWnd, row, column);
}

void CListCtrl::SetItemImage(int row, int image) {
    native::ListSetImage(m_hWnd, row, image);
}
int CListCtrl::GetItemImage(int row) const {
    return native::ListGetImage(m_hWnd, row);
}
void CListCtrl::DeleteItem(int row) {
    native::ListDeleteItem(m_hWnd, row);
}
void CListCtrl::DeleteAllItems() {
    native::ListDeleteAll(m_hWnd);
}
int CListCtrl::GetItemCount() const {
    return native::ListCount(m_hWnd);
}
int CListCtrl::GetNextItem(int row, UINT flags) const {
    return native::ListNext(m_hWnd, row, flags);
}

void CListCtrl::SetItemState(int row, UINT state, UINT mask) {
    native::ListSetState(m_hWnd, row, state, mask);
}

UINT CListCtrl::GetItemState(int row, UINT mask) const {
    return native::ListGetState(m_hWnd, row, mask);
}

void CListCtrl::EnsureVisible(int row) {
    native::ListEnsureVisible(m_hWnd, row);
}

void CListCtrl::SetItemDescription(int row, const CString& sentence) {
    native::ListSetDescription(m_hWnd, row, sentence);
}

int CTabCtrl::InsertItem(int index, const CString& title) {
    return native::TabInsert(m_hWnd, index, title);
}

int CTabCtrl::GetItemCount() const {
    return native::TabCount(m_hWnd);
}
int CTabCtrl::GetCurSel() const {
    return native::TabGetSelection(m_hWnd);
}

int CTabCtrl::SetCurSel(int index) {
    const int previous = GetCurSel();
    native::TabSetSelection(m_hWnd, index);
    return previous;
}

bool CToolTipCtrl::Create(CWnd* dialog) {
    dialog_ = dialog;
    return dialog != nullptr && dialog->m_hWnd != nullptr;
}

void CToolTipCtrl::AddTool(CWnd* tool, const CString& text) {
    if (tool != nullptr) {
        tools_.push_back({tool->GetDlgCtrlID(), text});
    }
}

void CToolTipCtrl::Activate(bool active) {
    for (const Tool& tool : tools_) {
        native::SetToolTip(native::GetDlgItem(dialog_->m_hWnd, tool.controlId),
                           active ? tool.text : CString());
    }
}
