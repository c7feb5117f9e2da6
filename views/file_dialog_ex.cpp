#include "views/file_dialog_ex.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/hooks.h"

const CRuntimeClass CFileDialogEx::classCFileDialogEx{"CFileDialogEx",
                                                      &CFileDialog::classCFileDialog};

namespace {

constexpr std::size_t kMostMessageBytes = 65535;

// Only the letters of ASCII have two cases here. The bytes of longer characters lie above them, so
// text can be searched and changed byte by byte.
CString UpperCase(CString text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    return text;
}

// What fits into a buffer of kMaxPath bytes with its end character, in whole characters.
CString CutToBuffer(const CString& text) {
    std::size_t length = std::min(text.size(), kMaxPath - 1);
    while (length < text.size() && length > 0 &&
           (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
        --length;
    }
    return text.substr(0, length);
}

}  // namespace

CFileDialogEx::CFileDialogEx(BOOL open, const char* defaultExtension, const char* fileName,
                             DWORD flags, const char* filter, CWnd* parent)
    : CFileDialog(open, defaultExtension, fileName, flags, filter, parent) {
    if (ApplyExtension(m_ofn.lpstrFile, FALSE) != FALSE) {
        m_ofn.lpstrFile = CutToBuffer(m_ofn.lpstrFile);
    }
}

const CRuntimeClass* CFileDialogEx::GetRuntimeClass() const {
    return &classCFileDialogEx;
}

const MessageMap* CFileDialogEx::GetMessageMap() const {
    static const MessageMap map{CFileDialog::GetMessageMap(), {}};
    return &map;
}

BOOL CFileDialogEx::SetPathTooLongMessage(const char* text) {
    const CString message = text == nullptr ? CString() : CString(text);
    if (message.empty() || message.size() > kMostMessageBytes) {
        return FALSE;
    }
    m_strPathTooLong = message;
    return TRUE;
}

void CFileDialogEx::ParseFilter() {
    m_strExtList.clear();
    const std::vector<native::FileType> types = FileTypes();
    const std::size_t type = std::max<std::size_t>(m_ofn.nFilterIndex, 1) - 1;
    if (type >= types.size()) {
        m_strDefExt.clear();
        return;
    }
    const CString patterns = CutToBuffer(types[type].patterns);
    std::size_t dot = patterns.find('.');
    while (dot != CString::npos) {
        const std::size_t cut = patterns.find_first_of(" ;", dot);
        const CString piece = patterns.substr(dot, cut - dot);
        if (piece.find_first_of("*?") == CString::npos) {
            m_strExtList += piece + ";";
        }
        dot = cut == CString::npos ? cut : patterns.find('.', cut);
    }
    m_strDefExt = m_strExtList.substr(0, m_strExtList.find(';'));
    m_strExtList = UpperCase(m_strExtList);
}

BOOL CFileDialogEx::ApplyExtension(CString& name, BOOL replace) {
    ParseFilter();
    if (m_strExtList.empty() || name.empty()) {
        return FALSE;
    }
    const std::size_t dot = name.rfind('.');
    if (dot != CString::npos) {
        if (m_strExtList.find(UpperCase(name.substr(dot))) != CString::npos) {
            return FALSE;
        }
        if (replace != FALSE) {
            name.erase(dot);
        }
    }
    name += m_strDefExt;
    return TRUE;
}

CWnd* CFileDialogEx::NameField() const {
    const CWnd* dialog = GetParent();
    return dialog == nullptr ? nullptr : dialog->GetDlgItem(native::kFileNameField);
}

BOOL CFileDialogEx::OnFileNameOK() {
    CString name = GetFileName();
    if (name.empty()) {
        return TRUE;
    }
    const BOOL changed = ApplyExtension(name, FALSE);
    CWnd* dialog = GetParent();
    if (dialog == nullptr) {
        return FALSE;
    }
    if (changed != FALSE) {
        NameField()->SetWindowText(name);
    }
    char none[1];
    const auto folder = static_cast<std::size_t>(
        dialog->SendMessage(CDM_GETFOLDERPATH, sizeof none, reinterpret_cast<LPARAM>(none)));
    if (folder + name.size() <= kMaxPath) {
        return FALSE;
    }
    // The box stands over the dialog and bears its title.
    if (!m_strPathTooLong.empty()) {
        AfxMessageBox(m_strPathTooLong, MB_ICONWARNING);
    }
    return TRUE;
}

void CFileDialogEx::OnTypeChange() {
    CString name = GetFileName();
    if (ApplyExtension(name, TRUE) != FALSE && NameField() != nullptr) {
        NameField()->SetWindowText(name);
    }
}
