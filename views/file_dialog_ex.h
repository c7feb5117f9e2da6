#pragma once

#include "platform/file_dialog.h"

/// The file dialog for event files. A name without an extension of the selected file type gets
/// one, and a path that would be too long is refused while the dialog stays open. The extensions
/// are read out of the filter. Main thread only.
class ORBIX_API CFileDialogEx : public CFileDialog {
public:
    static const CRuntimeClass classCFileDialogEx;

    /// As CFileDialog; a file name given gets an extension.
    CFileDialogEx(BOOL open, const char* defaultExtension, const char* fileName, DWORD flags,
                  const char* filter, CWnd* parent);

    const CRuntimeClass* GetRuntimeClass() const override;
    const MessageMap* GetMessageMap() const override;
    BOOL OnFileNameOK() override;
    void OnTypeChange() override;

    /// The text for a path that is too long; without one there is no message. FALSE, and the old
    /// text stays, for null, an empty text and one of 65536 bytes or more.
    BOOL SetPathTooLongMessage(const char* text);
    /// Reads the extensions of the selected file type out of the filter. Wildcards count as none.
    void ParseFilter();
    /// Gives `name` the first extension of the selected file type, unless it has one of its own
    /// that is part of the list (".c" and "." are part of ".CSV;"). `replace` puts it in the
    /// place of the extension that is there, else it comes behind. TRUE when the name changed.
    BOOL ApplyExtension(CString& name, BOOL replace);

private:
    CWnd* NameField() const;

    CString m_strExtList;  ///< Upper case, each with its dot and a ";" behind it.
    CString m_strDefExt;   ///< The first of them as the filter writes it.
    CString m_strPathTooLong;
};
