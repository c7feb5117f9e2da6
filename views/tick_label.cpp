#include "views/tick_label.h"

#include <algorithm>

#include "views/position_arithmetic.h"

namespace {

/// The slider's thumb keeps its middle this far from both ends.
constexpr int kThumbMargin = 13;
constexpr int kTickHeight = 3;

}  // namespace

CTickLabel::CTickLabel() : m_Font{10, 400, "MS Sans Serif"} {}

CTickLabel::~CTickLabel() = default;

const MessageMap* CTickLabel::GetMessageMap() const {
    static constexpr MessageEntry entries[] = {
        OnMessage<&CTickLabel::OnPaint>(WM_PAINT),
    };
    static const MessageMap map{CStatic::GetMessageMap(), entries};
    return &map;
}

int CTickLabel::SetTicks(int count, const int* positions, const char* const* labels) {
    m_vecPositions.assign(positions, positions + std::max(count, 0));
    m_vecLabels.assign(labels, labels + std::max(count, 0));
    return 1;
}

void CTickLabel::OnPaint() {
    CPaintDC dc(this);
    if (static_cast<CDC*>(dc) != nullptr) {
        Paint(*static_cast<CDC*>(dc), GetClientRect());
    }
}

void CTickLabel::Paint(CDC& dc, const RECT& client) const {
    const CFont font = dc.SelectObject(m_Font);
    const COLORREF colour = dc.SetBkColor(GetSysColor(COLOR_BTNFACE));
    const int mode = dc.SetBkMode(OPAQUE);
    const int left = client.left + kThumbMargin;
    const int width = client.right - kThumbMargin - left;
    for (std::size_t tick = 0; tick < m_vecPositions.size(); ++tick) {
        int x = Truncate(static_cast<double>(width) * m_vecPositions[tick] * 0.01);
        if (x >= width) {
            --x;
        }
        dc.MoveTo(left + x, client.bottom);
        dc.LineTo(left + x, client.bottom - kTickHeight);
        const SIZE extent = dc.GetTextExtent(m_vecLabels[tick]);
        // A label wider than the margins allow would be cut off at the edge.
        const int wanted = left + x - extent.cx / 2;
        const int rightmost = client.right - extent.cx;
        dc.TextOut(std::max(client.left, std::min(wanted, rightmost)),
                   client.bottom - extent.cy - 1, m_vecLabels[tick]);
    }
    dc.SetBkMode(mode);
    dc.SetBkColor(colour);
    dc.SelectObject(font);
}
