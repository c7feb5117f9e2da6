#pragma once

#include "platform/dialog.h"
#include "platform/native.h"

/// Flags of a file dialog. Long names are all there are here, and no read-only box is shown.
inline constexpr DWORD OFN_OVERWRITEPROMPT = 0x000002;
inline constexpr DWORD OFN_HIDEREADONLY = 0x000004;
inline constexpr DWORD OFN_FILEMUSTEXIST = 0x001000;
inline constexpr DWORD OFN_LONGNAMES = 0x200000;

/// What a file dialog starts with, and what came of it.
struct OPENFILENAME {
    DWORD Flags = 0;
    /// File types as pairs of description and patterns, each text ended by a null character.
    CString lpstrFilter;
    DWORD nFilterIndex = 0;   ///< The type chosen, counted from 1; 0: the first, as it begins.
    CString lpstrFile;        ///< The name to start with, less than kMaxPath bytes; then the path.
    CString lpstrInitialDir;  ///< The process's current folder when it names none.
    CString lpstrDefExt;      ///< Without its dot; for derived classes.
};

/// The platform's dialog for the name of a file. The object is a window inside the dialog's
/// window, which is its parent and holds the name field (control native::kFileNameField).
class ORBIX_API CFileDialog : public CDialog {
public:
    static const CRuntimeClass classCFileDialog;

    /// `open` else for saving. `filter`: descriptions and patterns, each ended by "|", and a last
    /// "|". Texts may be null. `parent` is not asked: the dialog belongs to the window in front.
    CFileDialog(BOOL open, const char* defaultExtension, const char* fileName, DWORD flags,
                const char* filter, CWnd* parent);

    const CRuntimeClass* GetRuntimeClass() const override;
    const MessageMap* GetMessageMap() const override;

    /// IDOK, and then GetPathName is the file and its folder the process's current folder; else
    /// IDCANCEL, or -1 when no dialog can be shown. With OFN_FILEMUSTEXIST a name without a file,
    /// and with either flag a folder that isn't there, is refused with a message; with
    /// OFN_OVERWRITEPROMPT the user is asked before a file is to be replaced.
    int DoModal() override;

    /// Looks at the name when the user has accepted it; 1 keeps the dialog open. The name field is
    /// read afterwards, so it may be changed here.
    virtual BOOL OnFileNameOK();  // 11
    /// Another file type has been chosen.
    virtual void OnTypeChange();  // 12

    /// What stands in the name field; while no dialog is shown, the name part of the path.
    CString GetFileName() const;
    const CString& GetPathName() const { return m_ofn.lpstrFile; }

    OPENFILENAME m_ofn;

protected:
    /// The pairs of the filter.
    std::vector<native::FileType> FileTypes() const;

private:
    void OnFileOk(NMHDR* header, LRESULT* result);
    void OnFileTypeChange(NMHDR* header, LRESULT* result);
    bool IsAccepted(const CString& path) const;
    CString PathInField() const;

    bool open_;
};
