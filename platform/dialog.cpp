#include "platform/dialog.h"

#include "platform/hooks.h"
#include "platform/native.h"

const CRuntimeClass CDialog::classCDialog{"CDialog", &CWnd::classCWnd};
const CRuntimeClass CPropertyPage::classCPropertyPage{"CPropertyPage", &CDialog::classCDialog};

namespace {

// The window of a modal dialog goes on every way out, an exception's too.
class WindowScope {
public:
    explicit WindowScope(CDialog& dialog) : dialog_(dialog) {}
    ~WindowScope() { dialog_.DestroyWindow(); }
    WindowScope(const WindowScope&) = delete;
    WindowScope& operator=(const WindowScope&) = delete;

private:
    CDialog& dialog_;
};

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

}  // namespace

CDialog::~CDialog() {
    DestroyWindow();
}

const CRuntimeClass* CDialog::GetRuntimeClass() const {
    return &classCDialog;
}

const MessageMap* CDialog::GetMessageMap() const {
    static constexpr MessageEntry entries[] = {
        OnCommand<&CDialog::OnOK>(IDOK),
        OnCommand<&CDialog::OnCancel>(IDCANCEL),
        OnMessage<&CDialog::OnClose>(WM_CLOSE),
    };
    static const MessageMap map{CWnd::GetMessageMap(), entries};
    return &map;
}

BOOL CDialog::PreTranslateMessage(MSG* message) {
    if (message->message != WM_KEYDOWN || native::IsChildDialog(m_hWnd)) {
        return FALSE;  // A page leaves its keys to the dialog around it.
    }
    return TranslateDialogKey(*message) ? TRUE : FALSE;
}

bool CDialog::TranslateDialogKey(const MSG& message) {
    switch (message.wParam) {
        case VK_RETURN:
            native::Click(native::DefaultButton(m_hWnd));
            return true;
        case VK_ESCAPE:
            SendMessage(WM_COMMAND, IDCANCEL);
            return true;
        case VK_TAB:
            if (IsDown(VK_CONTROL) || IsDown(VK_MENU)) {
                return false;
            }
            native::FocusNext(m_hWnd, IsDown(VK_SHIFT));
            return true;
        default:
            return false;
    }
}

int CDialog::DoModal() {
    const DialogTemplate* dialog = FindDialogTemplate(templateId_);
    if (dialog == nullptr || m_hWnd != nullptr || !native::EnsureToolkit()) {
        return -1;
    }
    const WindowScope scope(*this);
    native::CreateDialogWindow(*dialog, parent_ == nullptr ? nullptr : parent_->m_hWnd, *this);
    if (m_hWnd == nullptr) {
        return -1;
    }
    if (OnInitDialog() != FALSE) {
        native::FocusFirst(m_hWnd);
    }
    return native::RunModal(m_hWnd);
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK() {
    if (UpdateData(TRUE) != FALSE) {
        EndDialog(IDOK);
    }
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

bool CDialog::Create(UINT templateId, CWnd* parent) {
    const DialogTemplate* dialog = FindDialogTemplate(templateId);
    if (dialog == nullptr || m_hWnd != nullptr || !native::EnsureToolkit()) {
        return false;
    }
    templateId_ = templateId;
    native::CreateDialogWindow(*dialog, parent == nullptr ? nullptr : parent->m_hWnd, *this);
    if (m_hWnd == nullptr) {
        return false;
    }
    OnInitDialog();
    return true;
}

void CDialog::EndDialog(int result) {
    native::EndModal(m_hWnd, result);
}

void CDialog::DestroyWindow() {
    native::DestroyWindow(m_hWnd);
}

BOOL TranslateAcceleratorA(HWND window, HACCEL table, const MSG* message) {
    if (table == nullptr || message->message != WM_KEYDOWN || IsDown(VK_SHIFT) || IsDown(VK_MENU)) {
        return FALSE;
    }
    const bool control = IsDown(VK_CONTROL);
    for (const Accelerator& accelerator : table->keys) {
        if (static_cast<WPARAM>(accelerator.key) == message->wParam &&
            accelerator.control == control) {
            dispatch::Send(window, WM_COMMAND, accelerator.command, 0);
            return TRUE;
        }
    }
    return FALSE;
}

const CRuntimeClass* CPropertyPage::GetRuntimeClass() const {
    return &classCPropertyPage;
}
