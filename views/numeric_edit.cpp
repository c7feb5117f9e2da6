#include "views/numeric_edit.h"

#include <optional>

#include "platform/hooks.h"
#include "views/number_text.h"

namespace {

// The editing message that a key stands for with Ctrl, 0 for none. Key codes come in either case.
UINT EditingMessage(WPARAM key) {
    switch (key) {
        case 'C':
        case 'c':
            return WM_COPY;
        case 'V':
        case 'v':
            return WM_PASTE;
        case 'X':
        case 'x':
            return WM_CUT;
        case 'Z':
        case 'z':
            return WM_UNDO;
        default:
            return 0;
    }
}

}  // namespace

CNumericEdit::~CNumericEdit() = default;

const MessageMap* CNumericEdit::GetMessageMap() const {
    static constexpr MessageEntry entries[] = {
        OnMessage<&CNumericEdit::OnChar>(WM_CHAR),
        OnMessage<&CNumericEdit::OnKillFocus>(WM_KILLFOCUS),
        OnMessage<&CNumericEdit::OnKeyDown>(WM_KEYDOWN),
    };
    static const MessageMap map{CEdit::GetMessageMap(), entries};
    return &map;
}

BOOL CNumericEdit::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && message->wParam == VK_RETURN) {
        CommitText();
    }
    return CEdit::PreTranslateMessage(message);
}

LRESULT CNumericEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PASTE) {
        Paste();
        return 0;
    }
    if (message == EM_LIMITTEXT) {
        m_nLimit = static_cast<std::int16_t>(wParam);
    }
    return CEdit::WindowProc(message, wParam, lParam);
}

void CNumericEdit::SetRange(int lower, int upper) {
    m_nLower = lower;
    m_nUpper = upper;
}

int CNumericEdit::Normalize(CString& text) const {
    return NormalizeNumber(text, {m_nLimit, m_nLower, m_nUpper});
}

void CNumericEdit::SetValueText(const CString& text) {
    SetWindowText(text);
}

CString CNumericEdit::GetValueText() const {
    return GetWindowText();
}

void CNumericEdit::CommitText() {
    CString text = GetValueText();
    Normalize(text);
    if (text.empty()) {
        text = std::to_string(m_nFallback);
    }
    SetValueText(text);
}

// Replaces the whole text; what is no number is ignored.
void CNumericEdit::Paste() {
    std::optional<CString> text = GetClipboardText();
    if (text.has_value() && Normalize(*text) == 1) {
        SetValueText(*text);
    }
}

LRESULT CNumericEdit::OnChar(WPARAM wParam, LPARAM /*lParam*/) {
    if (wParam == VK_BACK) {
        return Default();
    }
    int start = 0;
    int end = 0;
    GetSel(start, end);
    const bool isFull = static_cast<std::ptrdiff_t>(GetWindowText().size()) >= m_nLimit;
    if ((start == end && isFull) || wParam < '0' || wParam > '9') {
        return 0;
    }
    return Default();
}

LRESULT CNumericEdit::OnKillFocus(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    CommitText();
    return Default();
}

LRESULT CNumericEdit::OnKeyDown(WPARAM wParam, LPARAM /*lParam*/) {
    const UINT editing = EditingMessage(wParam);
    if (editing == 0) {
        return Default();
    }
    if (GetKeyState(VK_CONTROL) < 0) {
        SendMessage(editing);
    }
    return 0;
}
