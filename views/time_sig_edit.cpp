#include "views/time_sig_edit.h"

#include <charconv>

#include "platform/data_exchange.h"

namespace {

constexpr int kNumeratorLow = 1;
constexpr int kNumeratorHigh = 64;

// A leading whole number replaces the value, as far as there is one.
void ReadNumber(const CString& text, std::uint32_t& value) {
    const std::size_t start = text.find_first_not_of(" \t");
    int number = 0;
    if (start != CString::npos &&
        std::from_chars(text.data() + start, text.data() + text.size(), number).ec == std::errc()) {
        value = static_cast<std::uint32_t>(number);
    }
}

}  // namespace

CTimeSigEdit::~CTimeSigEdit() = default;

void CTimeSigEdit::BindControls(CDataExchange* exchange) {
    DDX_Control(exchange, 1036, m_Frame);
    DDX_Control(exchange, 4025, m_Numerator);
    DDX_Control(exchange, 4026, m_Spin);
    DDX_Control(exchange, 1037, m_Slash);
    DDX_Control(exchange, 4024, m_Denominator);
}

bool CTimeSigEdit::HasWindows() const {
    return m_Numerator.m_hWnd != nullptr && m_Denominator.m_hWnd != nullptr;
}

void CTimeSigEdit::EnableAll(bool enable) {
    if (!HasWindows()) {
        return;
    }
    m_Frame.EnableWindow(enable);
    m_Numerator.EnableWindow(enable);
    m_Spin.EnableWindow(enable);
    m_Slash.EnableWindow(enable);
    m_Denominator.EnableWindow(enable);
}

void CTimeSigEdit::GetTimeSig(t_tSigMapRec& timeSig) const {
    timeSig = {1, 1, 0, 0, m_Record.numerator, m_Record.denominator};
    ReadNumber(m_Numerator.GetValueText(), timeSig.numerator);
    ReadNumber(m_Denominator.GetWindowText(), timeSig.denominator);
}

void CTimeSigEdit::SetTimeSig(const t_tSigMapRec& timeSig) {
    if (!HasWindows()) {
        return;
    }
    m_Record = timeSig;
    m_Numerator.SetLimit(2);
    m_Numerator.SetRange(kNumeratorLow, kNumeratorHigh);
    m_Numerator.SetFallback(static_cast<int>(timeSig.numerator));
    m_Denominator.SelectString(-1, std::to_string(timeSig.denominator));
    m_Spin.SetRange32(kNumeratorLow, kNumeratorHigh);
    m_Spin.SetPos(static_cast<int>(timeSig.numerator & 0xFFFFU));
}
