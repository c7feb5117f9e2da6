#include "platform/window.h"

#include "platform/data_exchange.h"
#include "platform/dispatch.h"
#include "platform/native.h"

const CRuntimeClass CWnd::classCWnd{"CWnd", nullptr};

namespace {

// Where a message's number and notification code stand depends on the message.
const MessageEntry* EntryFor(const CWnd& target, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) {
        return dispatch::FindEntry(target, message, static_cast<UINT>((wParam >> 16U) & 0xFFFFU),
                                   static_cast<UINT>(wParam & 0xFFFFU), false);
    }
    if (message == WM_NOTIFY) {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        return dispatch::FindEntry(target, message, static_cast<UINT>(header.code), header.idFrom,
                                   false);
    }
    return dispatch::FindEntry(target, message, 0, 0, false);
}

}  // namespace

const CRuntimeClass* CWnd::GetRuntimeClass() const {
    return &classCWnd;
}

CWnd::~CWnd() {
    if (m_hWnd != nullptr) {
        native::SetOwner(m_hWnd, nullptr);
    }
}

const MessageMap* CWnd::GetMessageMap() const {
    static const MessageMap empty;
    return &empty;
}

void CWnd::DoDataExchange(CDataExchange* /*exchange*/) {}

BOOL CWnd::PreTranslateMessage(MSG* /*message*/) {
    return FALSE;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const MessageEntry* entry = EntryFor(*this, message, wParam, lParam)) {
        MessageCall call{wParam, lParam, 0};
        entry->thunk(*this, call);
        return call.result;
    }
    return native::DefaultProc(m_hWnd, message, wParam, lParam);
}

bool CWnd::IsKindOf(const CRuntimeClass& wanted) const {
    for (const CRuntimeClass* record = GetRuntimeClass(); record != nullptr;
         record = record->m_pBaseClass) {
        if (record == &wanted) {
            return true;
        }
    }
    return false;
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return m_hWnd == nullptr ? 0 : dispatch::Send(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
    const dispatch::CurrentMessage* current = dispatch::Current();
    if (m_hWnd == nullptr || current == nullptr) {
        return 0;
    }
    return native::DefaultProc(m_hWnd, current->message, current->wParam, current->lParam);
}

CWnd* CWnd::GetDlgItem(int id) const {
    return native::GetOwner(native::GetDlgItem(m_hWnd, id));
}

int CWnd::GetDlgCtrlID() const {
    return native::GetControlId(m_hWnd);
}

CWnd* CWnd::GetParent() const {
    return native::GetOwner(native::GetParent(m_hWnd));
}

void CWnd::SetWindowText(const CString& text) {
    native::SetText(m_hWnd, text);
}

CString CWnd::GetWindowText() const {
    return native::GetText(m_hWnd);
}

void CWnd::EnableWindow(bool enable) {
    native::Enable(m_hWnd, enable);
}

bool CWnd::IsWindowEnabled() const {
    return native::IsEnabled(m_hWnd);
}

void CWnd::ShowWindow(int command) {
    native::Show(m_hWnd, command != SW_HIDE);
}

bool CWnd::IsWindowVisible() const {
    return native::IsVisible(m_hWnd);
}

void CWnd::SetForegroundWindow() {
    native::SetForeground(m_hWnd);
}

void CWnd::SetFocus() {
    native::SetFocus(m_hWnd);
}

CWnd* CWnd::GetFocus() {
    return native::GetOwner(native::GetFocus());
}

void CWnd::SetCapture() {
    native::SetCapture(m_hWnd);
}

void CWnd::ReleaseCapture() {
    native::SetCapture(nullptr);
}

CWnd* CWnd::GetCapture() {
    return native::GetOwner(native::GetCapture());
}

RECT CWnd::GetClientRect() const {
    return native::GetClientRect(m_hWnd);
}

RECT CWnd::GetWindowRect() const {
    return native::GetWindowRect(m_hWnd);
}

void CWnd::ScreenToClient(RECT& rect) const {
    const RECT origin = native::GetWindowRect(m_hWnd);
    rect = {rect.left - origin.left, rect.top - origin.top, rect.right - origin.left,
            rect.bottom - origin.top};
}

void CWnd::MoveWindow(const RECT& rect) {
    native::Move(m_hWnd, rect);
}

void CWnd::Invalidate() {
    native::Invalidate(m_hWnd);
}

void CWnd::UpdateWindow() {
    native::Update(m_hWnd);
}

CDC* CWnd::GetDC() {
    return native::GetDC(m_hWnd);
}

void CWnd::ReleaseDC(CDC* dc) {
    native::ReleaseDC(m_hWnd, dc);
}

void CWnd::SetTimer(UINT id, DWORD milliseconds) {
    native::SetTimer(m_hWnd, id, milliseconds);
}

void CWnd::KillTimer(UINT id) {
    native::KillTimer(m_hWnd, id);
}

BOOL CWnd::UpdateData(BOOL saveAndValidate) {
    if (m_hWnd == nullptr) {
        return FALSE;
    }
    const dispatch::LockoutScope lockout(m_hWnd);
    CDataExchange exchange(this, saveAndValidate);
    try {
        DoDataExchange(&exchange);
        return TRUE;
    } catch (const CDataExchange::Failure&) {
        return FALSE;
    }
}

CPaintDC::CPaintDC(CWnd* window) : window_(window), dc_(native::BeginPaint(window->m_hWnd)) {}

CPaintDC::~CPaintDC() {
    native::EndPaint(window_->m_hWnd, dc_);
}

COLORREF GetSysColor(int index) {
    return native::SysColor(index);
}
