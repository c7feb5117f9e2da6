#include <array>
#include <charconv>
#include <memory>

#include "views/graph.h"

namespace {

constexpr COLORREF kBlack = RGB(0x00, 0x00, 0x00);
constexpr COLORREF kWhite = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF kGrey = RGB(0x7F, 0x7F, 0x7F);
constexpr COLORREF kMagenta = RGB(0xFF, 0x00, 0xFF);
constexpr std::array<COLORREF, kSourceCount> kIdColours{
    RGB(0x00, 0xFF, 0xFF), RGB(0xFF, 0x7F, 0x00), RGB(0x00, 0xFF, 0x00), RGB(0xFF, 0x00, 0x00)};

/// Picture and mask of the head by turns; eight a plane, ordered as HeadPair counts them.
constexpr std::array<UINT, 16> kHeadIds{5004, 5005, 5014, 5015, 5010, 5011, 5012, 5013,
                                        5002, 5003, 5008, 5009, 5000, 5001, 5006, 5007};

/// A tool or setting for one scope; the one before it comes back at the end.
template <typename Tool>
class ToolScope {
public:
    ToolScope(CDC* dc, const Tool& tool) : dc_(dc), previous_(dc->SelectObject(tool)) {}
    ~ToolScope() { dc_->SelectObject(previous_); }
    ToolScope(const ToolScope&) = delete;
    ToolScope& operator=(const ToolScope&) = delete;

private:
    CDC* dc_;
    Tool previous_;
};

/// The background colour black for one scope: the gaps of dotted lines.
class BlackGapsScope {
public:
    explicit BlackGapsScope(CDC* dc) : dc_(dc), previous_(dc->SetBkColor(kBlack)) {}
    ~BlackGapsScope() { dc_->SetBkColor(previous_); }
    BlackGapsScope(const BlackGapsScope&) = delete;
    BlackGapsScope& operator=(const BlackGapsScope&) = delete;

private:
    CDC* dc_;
    COLORREF previous_;
};

void WriteText(CDC* dc, COLORREF colour, int x, int y, std::string_view text) {
    const int mode = dc->SetBkMode(TRANSPARENT);
    const COLORREF previous = dc->SetTextColor(colour);
    dc->TextOut(x, y, text);
    dc->SetTextColor(previous);
    dc->SetBkMode(mode);
}

void DrawLine(CDC* dc, int fromX, int fromY, int toX, int toY) {
    dc->MoveTo(fromX, fromY);
    dc->LineTo(toX, toY);
}

POINT MiddleOf(const RECT& rect) {
    return {Width(rect) / 2 + rect.left, Height(rect) / 2 + rect.top};
}

bool IsAskedFor(int plane, int asked) {
    return asked == -1 || asked == plane;
}

// Which pair of a plane shows the head from the side that the plane is seen from.
std::size_t HeadPair(bool acrossReversed, bool verticalReversed) {
    if (acrossReversed == verticalReversed) {
        return acrossReversed ? 1 : 0;
    }
    return acrossReversed ? 2 : 3;
}

}  // namespace

COLORREF C3DGraph::GetIDColor(int id) {
    return id >= 0 && id < kSourceCount ? kIdColours[static_cast<std::size_t>(id)] : 0;
}

void C3DGraph::LoadHeads() {
    for (std::size_t place = 0; place < kHeadIds.size(); ++place) {
        m_bmHead[place].LoadBitmap(kHeadIds[place]);
    }
}

void C3DGraph::DrawPlanes(CDC* dc, int plane) {
    const BlackGapsScope gaps(dc);
    for (int each = 0; each < kPlaneCount; ++each) {
        if (IsAskedFor(each, plane)) {
            dc->FillRect(PlaneRect(each), CBrush{kBlack});
            DrawCircles(dc, each);
            DrawAxes(dc, each);
            DrawHead(dc, each);
        }
    }
}

// Each ring is filled, so the larger ones come first.
void C3DGraph::DrawCircles(CDC* dc, int plane) const {
    const ToolScope brush(dc, CBrush{kBlack});
    const RECT& circle = m_rcCircle.at(static_cast<std::size_t>(plane));
    {
        const ToolScope pen(dc, CPen{PS_SOLID, 1, kWhite});
        dc->Ellipse(circle.left, circle.top, circle.right, circle.bottom);
    }
    const Frame frame = FrameOf(plane);
    const ToolScope pen(dc, CPen{PS_DOT, 1, kGrey});
    for (std::size_t ring = 0; ring < static_cast<std::size_t>(m_nRingCount); ++ring) {
        const double length = Truncate(m_dRings.at(ring));
        const double across = frame.width * length / m_dZoom;
        const double up = frame.height * length / m_dZoom;
        dc->Ellipse(Pixel(frame.cx - across), Pixel(frame.cy - up), Pixel(frame.cx + across) + 1,
                    Pixel(frame.cy + up) + 1);
    }
}

void C3DGraph::DrawAxes(CDC* dc, int plane) const {
    const RECT& circle = m_rcCircle.at(static_cast<std::size_t>(plane));
    const ToolScope pen(dc, CPen{PS_DOT, 1, kWhite});
    const POINT middle = MiddleOf(circle);
    DrawLine(dc, circle.left, middle.y, circle.right, middle.y);
    DrawLine(dc, middle.x, circle.top, middle.x, circle.bottom);
}

// The mask blackens what lies around the head; the plane under it is black too.
void C3DGraph::DrawHead(CDC* dc, int plane) {
    const std::size_t pair =
        4U * static_cast<std::size_t>(plane) + HeadPair(s_nXReverse != 0, FrameOf(plane).reversed);
    CBitmap& picture = m_bmHead.at(2U * pair);
    CBitmap& mask = m_bmHead.at(2U * pair + 1U);
    const std::unique_ptr<CDC> pictureDc = dc->CreateCompatibleDC();
    const std::unique_ptr<CDC> maskDc = dc->CreateCompatibleDC();
    if (pictureDc == nullptr || maskDc == nullptr) {
        return;
    }
    pictureDc->SelectBitmap(&picture);
    maskDc->SelectBitmap(&mask);
    const SIZE size = picture.Size();
    const POINT middle = MiddleOf(m_rcCircle.at(static_cast<std::size_t>(plane)));
    pictureDc->BitBlt(0, 0, size.cx, size.cy, *maskDc, 0, 0, SRCAND);
    dc->BitBlt(middle.x - size.cx / 2, middle.y - size.cy / 2, size.cx, size.cy, *pictureDc, 0, 0,
               SRCCOPY);
    maskDc->SelectBitmap(nullptr);
    pictureDc->SelectBitmap(nullptr);
}

void C3DGraph::DrawLabels(CDC* dc, int plane) const {
    const ToolScope font(dc, m_Font);
    const CString zoomText = MetresText(m_dZoom);
    for (int each = 0; each < kPlaneCount; ++each) {
        if (IsAskedFor(each, plane)) {
            DrawHorizontalNames(dc, each, zoomText);
            DrawVerticalNames(dc, each, zoomText);
            DrawRingTexts(dc, each);
        }
    }
}

void C3DGraph::DrawHorizontalNames(CDC* dc, int plane, std::string_view zoomText) const {
    const RECT& axis = m_rcAxis.at(static_cast<std::size_t>(plane));
    const SIZE name = dc->GetTextExtent("X");
    const SIZE zoom = dc->GetTextExtent(zoomText);
    const bool mirrored = s_nXReverse != 0;
    const int end = mirrored ? 2 * axis.left - axis.right : axis.right;
    WriteText(dc, kWhite, mirrored ? end - name.cx - 2 : end + 2, axis.bottom - name.cy / 2, "X");
    WriteText(dc, kWhite, end - zoom.cx / 2, axis.bottom + zoom.cy / 2, zoomText);
}

void C3DGraph::DrawVerticalNames(CDC* dc, int plane, std::string_view zoomText) const {
    const RECT& axis = m_rcAxis.at(static_cast<std::size_t>(plane));
    const RECT& place = PlaneRect(plane);
    const std::string_view text = plane == 0 ? "Z" : "Y";
    const SIZE name = dc->GetTextExtent(text);
    const SIZE zoom = dc->GetTextExtent(zoomText);
    const bool mirrored = FrameOf(plane).reversed;
    const int end = 2 * axis.bottom - axis.top + 2;
    const int left = axis.left - name.cx / 2;
    WriteText(dc, kWhite, place.left + 2, place.top + 2, plane == 0 ? "X:Z" : "X:Y");
    WriteText(dc, kWhite, left, mirrored ? end : axis.top - name.cy - 2, text);
    WriteText(dc, kWhite, left + name.cx + 2, mirrored ? end : axis.top - zoom.cy - 2, zoomText);
}

void C3DGraph::DrawRingTexts(CDC* dc, int plane) const {
    for (std::size_t ring = 0; ring < static_cast<std::size_t>(m_nRingCount); ++ring) {
        const CString text = MetresText(m_dRings.at(ring));
        const SIZE extent = dc->GetTextExtent(text);
        const POINT place = Project(plane, Truncate(m_dRings.at(ring)), 0);
        WriteText(dc, kGrey, place.x - extent.cx / 2, place.y + 2, text);
    }
}

void C3DGraph::DrawPoints(CDC* dc, int plane, int selector) const {
    const BlackGapsScope gaps(dc);
    for (int each = 0; each < kPlaneCount; ++each) {
        for (int id = kSourceCount - 1; IsAskedFor(each, plane) && id >= 0; --id) {
            if (selector == kAllIds || selector == id ||
                (selector == kAllButCurrentId && id != m_nCurID)) {
                DrawPointsOfId(dc, each, id);
            }
        }
    }
}

// The line runs through every shown dot, the current one too, which is painted over all of it.
void C3DGraph::DrawPointsOfId(CDC* dc, int plane, int id) const {
    const CPen pen{PS_SOLID, 1, GetIDColor(id)};
    const CBrush brush{GetIDColor(id)};
    bool isPreviousDrawn = false;
    bool isCurrentMet = false;
    POINT current;
    for (int index = 0; const tag3DGraphPoint& point : Points(id)) {
        const int number = index++;
        if (!IsShown(point)) {
            isPreviousDrawn = false;
            continue;
        }
        const POINT place = ProjectPoint(plane, point);
        if (isPreviousDrawn && s_nIndexLine == 1) {
            const ToolScope line(dc, pen);
            dc->LineTo(place.x, place.y);
        } else {
            dc->MoveTo(place.x, place.y);
        }
        isPreviousDrawn = true;
        if (id == m_nCurID && number == m_nCurIndex) {
            current = place;
            isCurrentMet = true;
        } else {
            DrawPoint(dc, brush, brush.colour, place.x, place.y, number);
        }
    }
    if (isCurrentMet) {
        DrawPoint(dc, CBrush{kMagenta}, kMagenta, current.x, current.y, m_nCurIndex);
    }
}

// The dot's edge is the context's own black pen.
void C3DGraph::DrawPoint(CDC* dc, const CBrush& brush, COLORREF colour, int x, int y,
                         int number) const {
    {
        const ToolScope inside(dc, brush);
        dc->Ellipse(x - kDotRadius, y - kDotRadius, x + kDotRadius + 1, y + kDotRadius + 1);
    }
    if (s_nIndexView == 0) {
        return;
    }
    const ToolScope font(dc, m_Font);
    std::array<char, 12> digits{};
    const auto* end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const std::string_view text(digits.data(), static_cast<std::size_t>(end - digits.data()));
    const SIZE extent = dc->GetTextExtent(text);
    WriteText(dc, colour, x - extent.cx / 2, y - kDotRadius - extent.cy, text);
}
