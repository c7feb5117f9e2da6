#include "platform/file_dialog.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "platform/files.h"
#include "platform/hooks.h"

const CRuntimeClass CFileDialog::classCFileDialog{"CFileDialog", &CDialog::classCDialog};

namespace {

class WindowScope {
public:
    explicit WindowScope(HWND window) : window_(window) {}
    ~WindowScope() { native::DestroyWindow(window_); }
    WindowScope(const WindowScope&) = delete;
    WindowScope& operator=(const WindowScope&) = delete;

private:
    HWND window_;
};

CString TextOf(const char* text) {
    return text == nullptr ? CString() : CString(text);
}

CString FolderOf(const CString& path) {
    return std::filesystem::path(path).parent_path().string();
}

CString NameOf(const CString& path) {
    return std::filesystem::path(path).filename().string();
}

void Refuse(const CString& text) {
    AfxMessageBox(text, MB_ICONWARNING);
}

}  // namespace

CFileDialog::CFileDialog(BOOL open, const char* defaultExtension, const char* fileName, DWORD flags,
                         const char* filter, CWnd* parent)
    : CDialog(0, parent), open_(open != FALSE) {
    m_ofn.Flags = flags;
    m_ofn.lpstrFilter = TextOf(filter);
    std::replace(m_ofn.lpstrFilter.begin(), m_ofn.lpstrFilter.end(), '|', '\0');
    m_ofn.lpstrFile = TextOf(fileName);
    m_ofn.lpstrDefExt = TextOf(defaultExtension);
}

const CRuntimeClass* CFileDialog::GetRuntimeClass() const {
    return &classCFileDialog;
}

const MessageMap* CFileDialog::GetMessageMap() const {
    static constexpr MessageEntry entries[] = {
        OnNotify<&CFileDialog::OnFileOk>(0, CDN_FILEOK),
        OnNotify<&CFileDialog::OnFileTypeChange>(0, CDN_TYPECHANGE),
    };
    static const MessageMap map{CDialog::GetMessageMap(), entries};
    return &map;
}

int CFileDialog::DoModal() {
    if (m_hWnd != nullptr || !native::EnsureToolkit()) {
        return -1;
    }
    HWND window = native::CreateFileDialog(
        {open_, m_ofn.lpstrInitialDir, m_ofn.lpstrFile, FileTypes()}, *this);
    const WindowScope scope(window);
    const int result = native::RunModal(window);
    if (result == IDOK) {
        m_ofn.lpstrFile = PathInField();
        SetCurrentFolder(FolderOf(m_ofn.lpstrFile));
    }
    return result;
}

std::vector<native::FileType> CFileDialog::FileTypes() const {
    std::vector<native::FileType> types;
    std::istringstream texts(m_ofn.lpstrFilter);
    native::FileType type;
    while (std::getline(texts, type.description, '\0') && !type.description.empty() &&
           std::getline(texts, type.patterns, '\0')) {
        types.push_back(type);
    }
    return types;
}

BOOL CFileDialog::OnFileNameOK() {
    return FALSE;
}

void CFileDialog::OnTypeChange() {}

void CFileDialog::OnFileOk(NMHDR* /*header*/, LRESULT* result) {
    *result = OnFileNameOK() == FALSE && IsAccepted(PathInField()) ? 0 : 1;
}

void CFileDialog::OnFileTypeChange(NMHDR* header, LRESULT* /*result*/) {
    m_ofn.nFilterIndex = reinterpret_cast<const OFNOTIFY*>(header)->nFilterIndex;
    OnTypeChange();
}

bool CFileDialog::IsAccepted(const CString& path) const {
    const CString name = "\"" + NameOf(path) + "\"";
    const PathKind kind = KindOfPath(path);
    if ((kind == PathKind::file || kind == PathKind::other) &&
        (m_ofn.Flags & OFN_OVERWRITEPROMPT) != 0) {
        return AfxMessageBox(name + " is there already.\nReplace it?",
                             MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2) == IDYES;
    }
    if (kind == PathKind::none && KindOfPath(FolderOf(path)) != PathKind::folder) {
        Refuse("There is no folder \"" + FolderOf(path) + "\".");
        return false;
    }
    if (kind == PathKind::none && (m_ofn.Flags & OFN_FILEMUSTEXIST) != 0) {
        Refuse("There is no file " + name + " in this folder.");
        return false;
    }
    return true;
}

CString CFileDialog::GetFileName() const {
    const CWnd* window = GetParent();
    return window == nullptr ? NameOf(m_ofn.lpstrFile)
                             : window->GetDlgItem(native::kFileNameField)->GetWindowText();
}

CString CFileDialog::PathInField() const {
    CWnd* window = GetParent();
    CString folder(static_cast<std::size_t>(window->SendMessage(CDM_GETFOLDERPATH)), '\0');
    window->SendMessage(CDM_GETFOLDERPATH, folder.size(), reinterpret_cast<LPARAM>(folder.data()));
    folder.pop_back();
    return (std::filesystem::path(folder) / GetFileName()).string();
}
