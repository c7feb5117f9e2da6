#pragma once

#include "platform/window.h"

/// One run of DoDataExchange.
class CDataExchange {
public:
    /// What Fail throws and UpdateData catches.
    struct Failure {};

    CDataExchange(CWnd* dialog, BOOL saveAndValidate)
        : m_pDlgWnd(dialog), m_bSaveAndValidate(saveAndValidate) {}

    /// Ends the exchange: the focus goes to the control last prepared, UpdateData gives FALSE.
    [[noreturn]] void Fail();

    CWnd* m_pDlgWnd;
    BOOL m_bSaveAndValidate;
    CWnd* m_pLastControl = nullptr;
};

/// Puts `control` in the place of the plain object of control `id`, the first time it runs.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
void DDX_Text(CDataExchange* exchange, int id, CString& value);
/// A text that is no whole number fails with a message to the user and leaves the value.
void DDX_Text(CDataExchange* exchange, int id, int& value);
/// The radio group that begins with control `firstId`: the index of the checked one, -1 for none.
void DDX_Radio(CDataExchange* exchange, int firstId, int& index);
void DDX_Slider(CDataExchange* exchange, int id, int& position);
/// Limits typing to `limit` bytes; a longer value fails with a message. Follows its DDX_Text.
void DDV_MaxChars(CDataExchange* exchange, const CString& value, int limit);
