#include "platform/data_exchange.h"

#include <charconv>

#include "platform/controls.h"
#include "platform/hooks.h"
#include "platform/native.h"

namespace {

CWnd* Prepare(CDataExchange* exchange, int id) {
    exchange->m_pLastControl = exchange->m_pDlgWnd->GetDlgItem(id);
    return exchange->m_pLastControl;
}

bool ParseInteger(const CString& text, int& value) {
    const char* first = text.data();
    const char* last = first + text.size();
    while (first != last && *first == ' ') {
        ++first;
    }
    int parsed = 0;
    const auto [end, error] = std::from_chars(first, last, parsed);
    if (error != std::errc() || end != last) {
        return false;
    }
    value = parsed;
    return true;
}

[[noreturn]] void Refuse(CDataExchange* exchange, const CString& words) {
    AfxMessageBox(words, MB_OK | MB_ICONWARNING);
    exchange->Fail();
}

}  // namespace

void CDataExchange::Fail() {
    if (m_pLastControl != nullptr) {
        m_pLastControl->SetFocus();
    }
    throw Failure();
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
    HWND window = native::GetDlgItem(exchange->m_pDlgWnd->m_hWnd, id);
    if (control.m_hWnd == nullptr && window != nullptr) {
        native::SetOwner(window, &control);
    }
}

void DDX_Text(CDataExchange* exchange, int id, CString& value) {
    CWnd* control = Prepare(exchange, id);
    if (control == nullptr) {
        return;
    }
    if (exchange->m_bSaveAndValidate != FALSE) {
        value = control->GetWindowText();
    } else if (control->GetWindowText() != value) {
        control->SetWindowText(value);
    }
}

void DDX_Text(CDataExchange* exchange, int id, int& value) {
    CString text = std::to_string(value);
    DDX_Text(exchange, id, text);
    if (exchange->m_bSaveAndValidate != FALSE && !ParseInteger(text, value)) {
        Refuse(exchange, "Please enter an integer.");
    }
}

void DDX_Radio(CDataExchange* exchange, int firstId, int& index) {
    const int count = native::RadioGroupSize(exchange->m_pDlgWnd->m_hWnd, firstId);
    if (exchange->m_bSaveAndValidate != FALSE) {
        index = -1;
    }
    for (int place = 0; place < count; ++place) {
        HWND button = native::RadioGroupMember(exchange->m_pDlgWnd->m_hWnd, firstId, place);
        if (exchange->m_bSaveAndValidate == FALSE) {
            native::SetCheck(button, place == index ? 1 : 0);
        } else if (native::GetCheck(button) != 0) {
            index = place;
        }
    }
}

void DDX_Slider(CDataExchange* exchange, int id, int& position) {
    auto* slider = exchange->m_pDlgWnd->GetDlgItemAs<CSliderCtrl>(id);
    if (slider == nullptr) {
        return;
    }
    if (exchange->m_bSaveAndValidate != FALSE) {
        position = slider->GetPos();
    } else {
        slider->SetPos(position);
    }
}

void DDV_MaxChars(CDataExchange* exchange, const CString& value, int limit) {
    if (exchange->m_bSaveAndValidate != FALSE) {
        if (value.size() > static_cast<std::size_t>(limit)) {
            Refuse(exchange, "Please enter no more than " + std::to_string(limit) + " characters.");
        }
    } else if (exchange->m_pLastControl != nullptr) {
        exchange->m_pLastControl->SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(limit));
    }
}
