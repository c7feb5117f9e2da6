#pragma once

#include "platform/dialog_template.h"
#include "platform/window.h"

/// A dialog made from a template resource.
class ORBIX_API CDialog : public CWnd {
public:
    static const CRuntimeClass classCDialog;

    CDialog() = default;
    explicit CDialog(UINT templateId, CWnd* parent = nullptr)
        : templateId_(templateId), parent_(parent) {}
    ~CDialog() override;

    const CRuntimeClass* GetRuntimeClass() const override;
    const MessageMap* GetMessageMap() const override;
    BOOL PreTranslateMessage(MSG* message) override;

    /// Shows the dialog and runs until EndDialog; gives the result. -1 when it can't be shown:
    /// no such template, no reachable display, a console-only toolkit application in the host, or
    /// a thread that is not the toolkit's. Works with and without a toolkit application in the
    /// host. An exception of a handler ends the dialog and comes out of here.
    virtual int DoModal();  // 7
    /// Runs when all controls are made, before the dialog shows. TRUE lets the first control in
    /// tab order take the focus.
    virtual BOOL OnInitDialog();  // 8
    /// Takes the fields in with UpdateData and ends with IDOK; an entry that is bad keeps it open.
    virtual void OnOK();      // 9
    virtual void OnCancel();  // 10

    /// Makes a modeless dialog, hidden, as a child of `parent`; false when it can't be made.
    bool Create(UINT templateId, CWnd* parent);
    /// Ends DoModal, which gives `result`.
    void EndDialog(int result);
    /// May be called from a handler of the window, and when there is none.
    void DestroyWindow();

protected:
    UINT templateId_ = 0;

private:
    void OnClose() { OnCancel(); }
    bool TranslateDialogKey(const MSG& message);

    CWnd* parent_ = nullptr;
};

/// A page of the tab control: a borderless child dialog that is made when it is added.
class ORBIX_API CPropertyPage : public CDialog {
public:
    static const CRuntimeClass classCPropertyPage;

    explicit CPropertyPage(UINT templateId) : CDialog(templateId) {}
    const CRuntimeClass* GetRuntimeClass() const override;
};

/// Sends the window the command of the accelerator that the key message is, without asking
/// whether a button of that command is enabled; TRUE when there was one.
BOOL TranslateAcceleratorA(HWND window, HACCEL table, const MSG* message);
