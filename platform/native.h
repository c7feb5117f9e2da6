#pragma once

#include <memory>
#include <span>

#include "platform/controls.h"
#include "platform/dialog_template.h"
#include "platform/messages.h"

/// The seam to the toolkit: free functions on opaque handles, declared here and defined once in
/// platform/qt. The linker joins the halves; there is no factory and no base class of peers.
/// Everything runs on the toolkit's thread. A null handle is taken by every function: it does
/// nothing and gives 0, false or an empty value.
namespace native {

// --- toolkit ---------------------------------------------------------------------------------

/// True when windows can be made here and now. Makes the toolkit's application object when the
/// host has none and installs those hooks that are empty. False, with nothing changed, when there
/// is no reachable display, the host's application is console-only, or the thread is wrong.
bool EnsureToolkit();

// --- file dialog -----------------------------------------------------------------------------

struct FileType {
    CString description;
    CString patterns;  ///< "*.csv", several of them with ";" between.
};

struct FileDialogSetup {
    bool open;  ///< Else for saving.
    CString folder;
    CString name;
    std::vector<FileType> types;
};

/// Makes the toolkit's file dialog, hidden: a window of its own, the name field kFileNameField in
/// it, and a child window that `owner` stands for; sets owner.m_hWnd. The child gets CDN_FILEOK
/// and CDN_TYPECHANGE. A name that leads into a folder moves the dialog there first, so that at
/// CDN_FILEOK the field holds the file's name alone, but for a folder that isn't there. RunModal
/// and DestroyWindow take the window that is given back.
HWND CreateFileDialog(const FileDialogSetup& setup, CWnd& owner);
inline constexpr int kFileNameField = 1152;

// --- windows ---------------------------------------------------------------------------------

/// Makes the dialog's window, hidden, with all its controls, each owned by a plain object from
/// MakePlainControl; sets owner.m_hWnd. A child dialog sits inside `parent`.
HWND CreateDialogWindow(const DialogTemplate& dialog, HWND parent, CWnd& owner);
/// First clears m_hWnd of every object in the window, then takes the window apart. May be called
/// from a handler of that window: the records stay readable, without owner, until the event that
/// is being handled has ended.
void DestroyWindow(HWND window);
/// Shows the dialog and runs the event loop until EndModal; gives the result. Rethrows the first
/// exception that a handler let out.
int RunModal(HWND dialog);
/// Called before RunModal it makes RunModal return at once.
void EndModal(HWND dialog, int result);
/// Whether the window is a borderless child dialog.
bool IsChildDialog(HWND window);

HWND GetDlgItem(HWND dialog, int id);
int GetControlId(HWND window);
HWND GetParent(HWND window);
CWnd* GetOwner(HWND window);
/// Binds both ways: clears the old owner's m_hWnd, sets the new one's. Null puts the plain object
/// back.
void SetOwner(HWND window, CWnd* owner);

CString GetText(HWND window);
void SetText(HWND window, const CString& text);
void Enable(HWND window, bool enable);
bool IsEnabled(HWND window);
void Show(HWND window, bool show);
bool IsVisible(HWND window);
void SetForeground(HWND window);
void SetFocus(HWND window);
HWND GetFocus();
/// Focus to the next (or previous) control of the dialog in tab order.
void FocusNext(HWND dialog, bool backwards);
/// Focus to the first control in tab order.
void FocusFirst(HWND dialog);
/// A routing rule for mouse messages, no grab of the display.
void SetCapture(HWND window);
HWND GetCapture();
RECT GetClientRect(HWND window);
RECT GetWindowRect(HWND window);
/// In the parent's client coordinates.
void Move(HWND window, const RECT& rect);
void Invalidate(HWND window);
void Update(HWND window);

CDC* GetDC(HWND window);
void ReleaseDC(HWND window, CDC* dc);
/// Between the two a context clipped to the invalid region.
CDC* BeginPaint(HWND window);
void EndPaint(HWND window, CDC* dc);
COLORREF SysColor(int index);

void SetTimer(HWND window, UINT id, DWORD milliseconds);
void KillTimer(HWND window, UINT id);

/// What the toolkit itself does with a message: for input and painting it hands the stored event
/// to the widget in place; edits know WM_CUT, WM_COPY, WM_PASTE, WM_UNDO, EM_LIMITTEXT; buttons
/// know WM_LBUTTONUP without an event (it pops the button out). Else 0.
LRESULT DefaultProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// --- controls --------------------------------------------------------------------------------

/// The control that Enter clicks: the focused push button, else the dialog's default button.
HWND DefaultButton(HWND dialog);
/// Clicks as a user does, with the notification; nothing on a disabled button.
void Click(HWND button);
int GetCheck(HWND button);
void SetCheck(HWND button, int check);
void SetIcon(HWND button, UINT iconId);
/// The radio buttons from `firstId` on, in the template's order, up to the next group's start.
int RadioGroupSize(HWND dialog, int firstId);
HWND RadioGroupMember(HWND dialog, int firstId, int place);

void EditGetSelection(HWND edit, int& start, int& end);
void EditSetSelection(HWND edit, int start, int end);

int ComboAdd(HWND combo, const CString& text);
int ComboCount(HWND combo);
int ComboGetSelection(HWND combo);
void ComboSetSelection(HWND combo, int row);
CString ComboText(HWND combo, int row);

void SliderSetRange(HWND slider, int low, int high);
int SliderGetPosition(HWND slider);
void SliderSetPosition(HWND slider, int position);

void SpinSetRange(HWND spin, int low, int high);
void SpinGetRange(HWND spin, int& low, int& high);
void SpinSetPosition(HWND spin, int position);
HWND SpinBuddy(HWND spin);

int TabInsert(HWND tab, int index, const CString& title);
int TabCount(HWND tab);
int TabGetSelection(HWND tab);
void TabSetSelection(HWND tab, int index);

void ListSetExtendedStyle(HWND list, DWORD style);
void ListSetImages(HWND list, const CImageList* images);
void ListInsertColumn(HWND list, int column, const CString& title, int width);
int ListInsertItem(HWND list, int row, int image);
void ListSetText(HWND list, int row, int column, const CString& text);
CString ListGetText(HWND list, int row, int column);
void ListSetImage(HWND list, int row, int image);
int ListGetImage(HWND list, int row);
void ListDeleteItem(HWND list, int row);
void ListDeleteAll(HWND list);
int ListCount(HWND list);
int ListNext(HWND list, int row, UINT flags);
void ListSetState(HWND list, int row, UINT state, UINT mask);
UINT ListGetState(HWND list, int row, UINT mask);
void ListEnsureVisible(HWND list, int row);
void ListSetDescription(HWND list, int row, const CString& sentence);

void SetToolTip(HWND window, const CString& text);

/// Of a placeFrame only; other windows have children of their own.
void SetVirtualItems(HWND window, std::function<std::vector<VirtualItem>()> provider);

}  // namespace native

/// The other direction: what the toolkit's half calls in the neutral half.
namespace dispatch {

/// A plain object for a control of this kind, owned by the window's record.
std::unique_ptr<CWnd> MakePlainControl(ControlKind kind);
/// Runs PreTranslateMessage from the window up to its outermost dialog; true when taken.
bool PreTranslate(MSG& message);
/// Sends to the owner's WindowProc; 0 without an owner.
LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// A control's command notification to its parent, unless the parent is held back by UpdateData.
void Command(HWND control, UINT code);
/// A control's notification record: first the control's own reflected map, then the parent.
/// hdr.hwndFrom and hdr.code must be set; idFrom is filled in.
LRESULT Notify(NMHDR& header);

}  // namespace dispatch
