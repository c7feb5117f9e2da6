#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "params/param_block.h"
#include "patch/patch_edit.h"
#include "platform/controls.h"
#include "platform/dialog.h"

class CZurSMWMan;
struct st_cmd3DInitialPosition;

/// Numbers of the patch dialog's controls, commands and resources, as in its template.
enum PatchControlId : int {
    kPatchIdentifier = 4101,
    kPatchLength = 4102,
    kPatchTable = 4103,
    kPatchRow = 4104,
    kPatchApply = 4105,
    kPatchUndo = 4106,
    kPatchRedo = 4107,
    kPatchRowLabel = 4108,
};
inline constexpr UINT kPatchDialog = 4100;
inline constexpr UINT kPatchKeys = 4100;

/// Shows the host's parameter block, identifier, length and bytes, and lets the user change it.
/// The bytes stand in a table of 16 a row; the row that is selected is edited as hexadecimal text
/// below it. Enter, "Apply", another row and OK take over what was typed; a text that makes no
/// sense is refused with a message and stays. Undo and redo reach back to the opening. Main thread
/// only.
class CQel_3DPatchDialog : public CDialog {
public:
    /// `block` is read and never changed; null opens an empty one. The initial positions are not
    /// looked at. `link` is borrowed for the dialog's life.
    CQel_3DPatchDialog(CWnd* parent, CZurParamBlock* block,
                       std::vector<st_cmd3DInitialPosition>* initialPositions, CZurSMWMan& link);
    ~CQel_3DPatchDialog() override;

    const MessageMap* GetMessageMap() const override;
    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;

    /// The edited block after DoModal gave IDOK; it belongs to the dialog. Null before, and when
    /// there was none and none was made.
    CZurParamBlock* GetParamBlock() const { return result_.get(); }
    CZurSMWMan& GetSMWManRef() const { return link_; }

private:
    void OnBnClickedApply() { ApplyFields(); }
    void OnBnClickedUndo();
    void OnBnClickedRedo();
    void OnEnChangeField() { EnableUndo(); }
    void OnLvnItemChangedTable(NMHDR* header, LRESULT* result);

    bool IsFieldFocused() const;
    bool HasPendingText() const;
    bool ApplyFields();
    /// What the fields say; nothing, after a message, when one makes no sense.
    std::optional<std::vector<std::uint8_t>> TypedRow() const;
    std::optional<std::uint32_t> TypedIdentifier() const;
    std::optional<std::uint32_t> TypedLength() const;
    void Refuse(int control, const CString& words) const;

    void ShowAll();
    void EnableUndo();
    void ShowTable();
    void ShowTableRow(int row);
    void ShowFields();
    void SelectRow(int row);
    void MarkRow(int row);
    std::vector<std::uint8_t> RowBytes(int row) const;
    int RowCount() const;
    CListCtrl& Table() const { return *GetDlgItemAs<CListCtrl>(kPatchTable); }
    CString Text(int control) const { return GetDlgItem(control)->GetWindowText(); }

    PatchEdit edit_;
    CZurSMWMan& link_;
    std::unique_ptr<CZurParamBlock> result_;
    std::vector<std::uint8_t> shown_;  // the bytes that the table shows
    int row_ = -1;                     // the row that the field below the table shows
    bool settingSelection_ = false;
    HACCEL keys_;
};
