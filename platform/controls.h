#pragma once

#include <functional>
#include <vector>

#include "platform/window.h"

/// The standard controls. Changing one by program is silent (no notification to the dialog), but
/// for the text of an edit, which raises EN_CHANGE, and the selection of a list, which raises
/// LVN_ITEMCHANGED for each row whose state really changes: deselected rows first. What the user
/// selects raises the same, but only when all rows have their new state.

/// One thing that is painted inside a window and has no window of its own, as a screen reader is
/// told of it.
struct VirtualItem {
    CString text;
    RECT rect;  ///< In the client coordinates of the window's parent.
    bool isCurrent = false;
};

class ORBIX_API CStatic : public CWnd {
public:
    /// Exposes what stands in this static's place as a list of items. The provider is asked
    /// whenever a screen reader looks; it must stay callable as long as the window exists.
    void SetVirtualItems(std::function<std::vector<VirtualItem>()> provider);
};

class ORBIX_API CButton : public CWnd {
public:
    /// 0 or 1.
    int GetCheck() const;
    void SetCheck(int check);
    /// Shows the icon resource with this number.
    void SetIcon(UINT iconId);
};

class ORBIX_API CEdit : public CWnd {
public:
    /// Bytes that typing may bring the text to; 0 is no limit. Setting the text is not bound.
    void SetLimitText(int bytes);
    /// Selection as character positions; start equals end when nothing is selected.
    void GetSel(int& start, int& end) const;
    void SetSel(int start, int end);
};

class ORBIX_API CComboBox : public CWnd {
public:
    int AddString(const CString& text);
    int GetCount() const;
    /// -1 for none.
    int GetCurSel() const;
    int SetCurSel(int row);
    CString GetLBText(int row) const;
    /// Selects the first row behind `startAfter` (-1: from the top, going round at the end) that
    /// begins with `prefix`, without regard to case; -1, and no change, when there is none.
    int SelectString(int startAfter, const CString& prefix);
};

class ORBIX_API CSliderCtrl : public CWnd {
public:
    void SetRange(int low, int high);
    int GetPos() const;
    /// Held to the range. Silent.
    void SetPos(int position);
};

class ORBIX_API CSpinButtonCtrl : public CWnd {
public:
    void SetRange32(int low, int high);
    void GetRange(int& low, int& high) const;
    /// Writes the number, plain digits, into the buddy.
    void SetPos(int position);
    CWnd* GetBuddy() const;
};

/// Icons for a list, by number in the order of Add.
class ORBIX_API CImageList {
public:
    void Create(int width, int height);
    /// Adds the icon resource; gives its number.
    int Add(UINT iconId);

    SIZE ImageSize() const { return size_; }
    const std::vector<UINT>& Icons() const { return icons_; }

private:
    SIZE size_;
    std::vector<UINT> icons_;
};

class ORBIX_API CListCtrl : public CWnd {
public:
    static const CRuntimeClass classCListCtrl;
    const CRuntimeClass* GetRuntimeClass() const override;

    void SetExtendedStyle(DWORD style);
    /// Borrowed; must live as long as the control's window.
    void SetImageList(const CImageList* images);
    void InsertColumn(int column, const CString& title, int width);
    /// Inserts a row with an image; gives its number.
    int InsertItem(int row, int image);
    void SetItemText(int row, int column, const CString& text);
    CString GetItemText(int row, int column) const;
    void SetItemImage(int row, int image);
    int GetItemImage(int row) const;
    void DeleteItem(int row);
    void DeleteAllItems();
    int GetItemCount() const;
    /// The next row after `row` (-1: from the top) with the given LVNI_ flag, -1 for none.
    int GetNextItem(int row, UINT flags) const;
    /// Sets those LVIS_ bits of the row's state that are in the mask.
    void SetItemState(int row, UINT state, UINT mask);
    UINT GetItemState(int row, UINT mask) const;
    void EnsureVisible(int row);
    /// What a screen reader says for the row.
    void SetItemDescription(int row, const CString& sentence);
};

class ORBIX_API CTabCtrl : public CWnd {
public:
    int InsertItem(int index, const CString& title);
    int GetItemCount() const;
    int GetCurSel() const;
    /// Silent.
    int SetCurSel(int index);
};

/// Tool tips for the controls of one dialog.
class ORBIX_API CToolTipCtrl {
public:
    bool Create(CWnd* dialog);
    void AddTool(CWnd* tool, const CString& text);
    /// Tips show only while it is active.
    void Activate(bool active);

private:
    struct Tool {
        int controlId;
        CString text;
    };
    CWnd* dialog_ = nullptr;
    std::vector<Tool> tools_;
};
