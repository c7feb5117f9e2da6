#pragma once

#include <vector>

#include "platform/controls.h"

/// The ruler over a slider: ticks with labels at percentages of the way that the thumb's middle
/// can go. Main thread only.
class ORBIX_API CTickLabel : public CStatic {
public:
    CTickLabel();
    ~CTickLabel() override;
    const MessageMap* GetMessageMap() const override;

    /// Takes `count` positions (0 to 100) and their labels; copies both. Always 1.
    int SetTicks(int count, const int* positions, const char* const* labels);

    /// Paints the ruler into `client`.
    void Paint(CDC& dc, const RECT& client) const;

private:
    void OnPaint();

    std::vector<int> m_vecPositions;
    std::vector<CString> m_vecLabels;
    CFont m_Font;
};
