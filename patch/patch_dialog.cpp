#include "patch/patch_dialog.h"

#include <algorithm>
#include <cstdio>

#include "patch/hex_text.h"
#include "platform/hooks.h"

namespace {

constexpr int kRowBytes = 16;
constexpr int kTextColumn = 1 + kRowBytes;
constexpr int kOffsetWidth = 50;
constexpr int kByteWidth = 26;
constexpr int kTextWidth = 112;

CString Hex(const char* format, int number) {
    char text[16];
    std::snprintf(text, sizeof text, format, static_cast<unsigned>(number));
    return text;
}

CString CountText(std::size_t bytes) {
    return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
}

}  // namespace

CQel_3DPatchDialog::CQel_3DPatchDialog(CWnd* parent, CZurParamBlock* block,
                                       std::vector<st_cmd3DInitialPosition>* /*initialPositions*/,
                                       CZurSMWMan& link)
    : CDialog(kPatchDialog, parent),
      edit_(block),
      link_(link),
      keys_(LoadAccelerators(kPatchKeys)) {}

CQel_3DPatchDialog::~CQel_3DPatchDialog() = default;

const MessageMap* CQel_3DPatchDialog::GetMessageMap() const {
    using Dlg = CQel_3DPatchDialog;
    static constexpr MessageEntry entries[] = {
        OnCommand<&Dlg::OnBnClickedApply>(kPatchApply),
        OnCommand<&Dlg::OnBnClickedUndo>(kPatchUndo),
        OnCommand<&Dlg::OnBnClickedRedo>(kPatchRedo),
        OnCommand<&Dlg::OnEnChangeField>(kPatchIdentifier, EN_CHANGE),
        OnCommand<&Dlg::OnEnChangeField>(kPatchLength, EN_CHANGE),
        OnCommand<&Dlg::OnEnChangeField>(kPatchRow, EN_CHANGE),
        OnNotify<&Dlg::OnLvnItemChangedTable>(kPatchTable, LVN_ITEMCHANGED),
    };
    static const MessageMap map{CDialog::GetMessageMap(), entries};
    return &map;
}

BOOL CQel_3DPatchDialog::PreTranslateMessage(MSG* message) {
    if (IsFieldFocused()) {
        // Enter takes over what was typed instead of closing the dialog, and goes on to the next
        // row, so that a table can be typed in one go.
        if (message->message == WM_KEYDOWN && message->wParam == VK_RETURN) {
            const bool inRow = GetFocus() == GetDlgItem(kPatchRow);
            if (ApplyFields() && inRow) {
                SelectRow(std::min(row_ + 1, RowCount() - 1));
            }
            return TRUE;
        }
    } else if (keys_ != nullptr && TranslateAcceleratorA(m_hWnd, keys_, message) != FALSE) {
        return TRUE;
    }
    return CDialog::PreTranslateMessage(message);
}

bool CQel_3DPatchDialog::IsFieldFocused() const {
    const CWnd* const focus = GetFocus();
    return focus != nullptr &&
           (focus == GetDlgItem(kPatchIdentifier) || focus == GetDlgItem(kPatchLength) ||
            focus == GetDlgItem(kPatchRow));
}

BOOL CQel_3DPatchDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    CListCtrl& table = Table();
    table.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    table.InsertColumn(0, "Offset", kOffsetWidth);
    for (int column = 0; column < kRowBytes; ++column) {
        table.InsertColumn(1 + column, Hex("%02X", column), kByteWidth);
    }
    table.InsertColumn(kTextColumn, "Text", kTextWidth);
    ShowAll();
    return TRUE;
}

// --- taking over what was typed ------------------------------------------------------------------

bool CQel_3DPatchDialog::HasPendingText() const {
    return Text(kPatchIdentifier) != std::to_string(edit_.Identifier()) ||
           Text(kPatchLength) != std::to_string(edit_.Bytes().size()) ||
           Text(kPatchRow) != HexText(RowBytes(row_));
}

// All of it or nothing.
bool CQel_3DPatchDialog::ApplyFields() {
    const auto bytes = TypedRow();
    const auto id = bytes ? TypedIdentifier() : std::nullopt;
    const auto length = id ? TypedLength() : std::nullopt;
    if (!length) {
        return false;
    }
    if (row_ >= 0) {  // First, since a new length may take the row away.
        edit_.Overwrite(static_cast<std::size_t>(row_) * kRowBytes, *bytes);
    }
    edit_.SetIdentifier(*id);
    edit_.Resize(*length);
    ShowAll();
    return true;
}

std::optional<std::uint32_t> CQel_3DPatchDialog::TypedIdentifier() const {
    const std::optional<std::uint32_t> id = ParseNumber(Text(kPatchIdentifier));
    if (!id) {
        Refuse(kPatchIdentifier,
               "Error: Identifier expected from 0 to 4294967295, or 0x and hex digits");
    }
    return id;
}

std::optional<std::uint32_t> CQel_3DPatchDialog::TypedLength() const {
    const std::optional<std::uint32_t> length = ParseNumber(Text(kPatchLength));
    // A host's block above the limit is no fault of the user's.
    if (length && (*length == edit_.Bytes().size() || *length <= PatchEdit::kMaxLength)) {
        return length;
    }
    Refuse(kPatchLength,
           "Error: Length expected from 0 to " + std::to_string(PatchEdit::kMaxLength));
    return std::nullopt;
}

std::optional<std::vector<std::uint8_t>> CQel_3DPatchDialog::TypedRow() const {
    const std::size_t expected = RowBytes(row_).size();
    auto bytes = ParseHex(Text(kPatchRow));
    if (bytes && bytes->size() == expected) {
        return bytes;
    }
    Refuse(kPatchRow, "Error: Row expected as " + CountText(expected) + " of two hex digits" +
                          (bytes ? ", found " + CountText(bytes->size()) : ""));
    return std::nullopt;
}

void CQel_3DPatchDialog::Refuse(int control, const CString& words) const {
    AfxMessageBox(words, MB_OK | MB_ICONERROR);
    GetDlgItem(control)->SetFocus();
}

// --- commands ------------------------------------------------------------------------------------

// Text that was typed and not taken over is the first thing to take back.
void CQel_3DPatchDialog::OnBnClickedUndo() {
    if (!HasPendingText()) {
        edit_.Undo();
    }
    ShowAll();
}

void CQel_3DPatchDialog::OnBnClickedRedo() {
    if (ApplyFields()) {
        edit_.Redo();
        ShowAll();
    }
}

void CQel_3DPatchDialog::OnLvnItemChangedTable(NMHDR* /*header*/, LRESULT* /*result*/) {
    const int selected = Table().GetNextItem(-1, LVNI_SELECTED);
    const bool isOne = Table().GetNextItem(selected, LVNI_SELECTED) < 0;
    if (settingSelection_ || selected < 0 || (isOne && selected == row_)) {
        return;
    }
    // Of several rows the one that the user went to last.
    const int focused = Table().GetNextItem(-1, LVNI_FOCUSED);
    const int row = focused < 0 ? selected : focused;
    if (row == row_ || !ApplyFields()) {
        MarkRow(row_);  // What was typed stays.
    } else {
        SelectRow(std::min(row, RowCount() - 1));
    }
}

void CQel_3DPatchDialog::OnOK() {
    if (ApplyFields()) {
        result_ = edit_.MakeBlock();
        CDialog::OnOK();
    }
}

void CQel_3DPatchDialog::OnCancel() {
    if ((edit_.CanUndo() || HasPendingText()) &&
        AfxMessageBox("The block has been edited.\nSelecting cancel will undo the changes?",
                      MB_OKCANCEL | MB_ICONQUESTION) == IDCANCEL) {
        return;
    }
    CDialog::OnCancel();
}

// --- showing -------------------------------------------------------------------------------------

int CQel_3DPatchDialog::RowCount() const {
    return static_cast<int>((edit_.Bytes().size() + kRowBytes - 1) / kRowBytes);
}

std::vector<std::uint8_t> CQel_3DPatchDialog::RowBytes(int row) const {
    const std::vector<std::uint8_t>& bytes = edit_.Bytes();
    const std::size_t begin =
        row < 0 ? bytes.size() : std::min<std::size_t>(row * std::size_t{kRowBytes}, bytes.size());
    const std::size_t end = std::min<std::size_t>(begin + kRowBytes, bytes.size());
    return {bytes.begin() + static_cast<std::ptrdiff_t>(begin),
            bytes.begin() + static_cast<std::ptrdiff_t>(end)};
}

void CQel_3DPatchDialog::ShowAll() {
    ShowTable();
    SelectRow(std::clamp(row_, std::min(0, RowCount() - 1), RowCount() - 1));
    EnableUndo();
    GetDlgItem(kPatchRedo)->EnableWindow(edit_.CanRedo());
}

void CQel_3DPatchDialog::EnableUndo() {
    GetDlgItem(kPatchUndo)->EnableWindow(edit_.CanUndo() || HasPendingText());
}

// Only rows that differ from what the table shows are written anew.
void CQel_3DPatchDialog::ShowTable() {
    CListCtrl& table = Table();
    for (int row = table.GetItemCount(); row > RowCount(); --row) {
        table.DeleteItem(row - 1);
    }
    const std::vector<std::uint8_t>& bytes = edit_.Bytes();
    for (int row = 0; row < RowCount(); ++row) {
        const bool isNew = row >= table.GetItemCount();
        const std::size_t begin =
            std::min<std::size_t>(row * std::size_t{kRowBytes}, shown_.size());
        const std::size_t end = std::min<std::size_t>(begin + kRowBytes, shown_.size());
        if (isNew) {
            table.InsertItem(row, -1);
        }
        const std::vector<std::uint8_t> now = RowBytes(row);
        if (isNew ||
            !std::equal(now.begin(), now.end(), shown_.begin() + static_cast<std::ptrdiff_t>(begin),
                        shown_.begin() + static_cast<std::ptrdiff_t>(end))) {
            ShowTableRow(row);
        }
    }
    shown_ = bytes;
}

void CQel_3DPatchDialog::ShowTableRow(int row) {
    CListCtrl& table = Table();
    const std::vector<std::uint8_t> bytes = RowBytes(row);
    const CString offset = Hex("%06X", row * kRowBytes);
    table.SetItemText(row, 0, offset);
    for (int column = 0; column < kRowBytes; ++column) {
        const auto index = static_cast<std::size_t>(column);
        table.SetItemText(row, 1 + column,
                          index < bytes.size() ? Hex("%02X", bytes[index]) : CString());
    }
    table.SetItemText(row, kTextColumn, PlainText(bytes));
    table.SetItemDescription(row, "Offset " + offset + ": " + HexText(bytes));
}

void CQel_3DPatchDialog::ShowFields() {
    GetDlgItem(kPatchIdentifier)->SetWindowText(std::to_string(edit_.Identifier()));
    GetDlgItem(kPatchLength)->SetWindowText(std::to_string(edit_.Bytes().size()));
    GetDlgItem(kPatchRowLabel)
        ->SetWindowText(row_ < 0 ? CString("Row") : "Row " + Hex("%06X", row_ * kRowBytes));
    GetDlgItem(kPatchRow)->SetWindowText(HexText(RowBytes(row_)));
    GetDlgItem(kPatchRow)->EnableWindow(row_ >= 0);
}

void CQel_3DPatchDialog::SelectRow(int row) {
    MarkRow(row);
    row_ = row;
    ShowFields();
}

void CQel_3DPatchDialog::MarkRow(int row) {
    settingSelection_ = true;
    CListCtrl& table = Table();
    for (int each = table.GetNextItem(-1, LVNI_SELECTED); each >= 0;
         each = table.GetNextItem(each, LVNI_SELECTED)) {
        table.SetItemState(each, 0, LVIS_SELECTED);
    }
    if (row >= 0) {
        table.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
        table.EnsureVisible(row);
    }
    settingSelection_ = false;
}
