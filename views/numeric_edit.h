#pragma once

#include <cstdint>

#include "platform/controls.h"

/// An edit box for a whole number without a sign. Typing takes digits only, up to the length
/// limit; leaving the box or pressing Enter brings the number within its bounds. Setting the text
/// by program is not bound. Main thread only.
class ORBIX_API CNumericEdit : public CEdit {
public:
    ~CNumericEdit() override;
    const MessageMap* GetMessageMap() const override;
    BOOL PreTranslateMessage(MSG* message) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    /// Characters that the box accepts.
    void SetLimit(std::int16_t characters) { m_nLimit = characters; }
    /// The bounds of the number, both inclusive.
    void SetRange(int lower, int upper);
    /// The number that is put into a box left empty; not held to the bounds.
    void SetFallback(int fallback) { m_nFallback = fallback; }

    /// `NormalizeNumber` with this box's bounds.
    int Normalize(CString& text) const;

    /// The box's text as it stands; nothing, and "", before the box has a window.
    void SetValueText(const CString& text);
    CString GetValueText() const;

private:
    LRESULT OnChar(WPARAM wParam, LPARAM lParam);
    LRESULT OnKillFocus(WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyDown(WPARAM wParam, LPARAM lParam);
    void CommitText();
    void Paste();

    std::int16_t m_nLimit = 0;
    int m_nUpper = 0;
    int m_nLower = 0;
    int m_nFallback = 0;
};
