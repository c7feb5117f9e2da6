#include <algorithm>
#include <utility>

#include "platform/controls.h"
#include "views/graph.h"

std::int32_t C3DGraph::s_nXReverse = 0;
std::int32_t C3DGraph::s_nYReverse = 0;
std::int32_t C3DGraph::s_nZReverse = 0;
std::int32_t C3DGraph::s_nIndexView = 1;
std::int32_t C3DGraph::s_nIndexLine = 1;
CString C3DGraph::s_strZoomText;

namespace {

/// Room for the texts between the circle and the edge of its plane.
constexpr int kMargin = 15;
/// How far behind its edge the circle still takes the mouse.
constexpr int kCircleSlack = 3;

constexpr int kFarthestPixel = 1 << 29;

constexpr bool IsId(int id) {
    return id >= 0 && id < kSourceCount;
}

}  // namespace

C3DGraph::C3DGraph() : m_Font{8, 400, "MS Sans Serif"} {
    Reset();
}

C3DGraph::~C3DGraph() {
    Reset();
}

void C3DGraph::Reset() {
    ClearPoints(kAllIds);
    m_rcPlane = {};
    m_rcAxis = {};
    m_rcCircle = {};
    m_dZoom = 0.0;
    m_nCurID = -1;
    m_nCurIndex = -1;
    m_nDragPlane = -1;
    m_nDragID = -1;
    m_nDragIndex = -1;
    m_nRingCount = 0;
}

void C3DGraph::Init(const RECT& plane0, const RECT& plane1, double zoom, int ringCount,
                    const double* rings, const C3DPosConverter& converter) {
    SetPlaneRect(0, plane0);
    SetPlaneRect(1, plane1);
    StoreZoom(zoom, ringCount, rings);
    LoadHeads();
    m_Converter = converter;
}

void C3DGraph::SetPlaneRect(std::size_t plane, const RECT& rect) {
    const RECT axis{Width(rect) / 2 + rect.left, rect.top + kMargin, rect.right - kMargin,
                    Height(rect) / 2 + rect.top};
    const LONG left = rect.left + kMargin;
    const LONG top = rect.top + kMargin;
    m_rcPlane[plane] = rect;
    m_rcAxis[plane] = axis;
    // Both extents from the width: a true circle even where the plane is no square.
    m_rcCircle[plane] = {left, top, left + 2 * Width(axis), top + 2 * Width(axis)};
}

void C3DGraph::StoreZoom(double zoom, int ringCount, const double* rings) {
    m_dZoom = zoom;
    m_nRingCount = rings == nullptr ? 0 : std::clamp(ringCount, 0, kRingLimit);
    std::copy_n(rings, m_nRingCount, m_dRings.begin());
}

void C3DGraph::SetCallbacks(C3DGraphCallbacks callbacks) {
    m_Callbacks = std::move(callbacks);
}

void C3DGraph::AddEvent(const _tagEvent3D& event) {
    if (event.type != kEventPosition || !IsId(event.id)) {
        return;
    }
    m_DragPicture.reset();
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    m_Converter.SphericalToCartesian(event.distance, event.azimuth, event.elevation, x, y, z);
    m_vecPoints[event.id].push_back(
        {Truncate(x), Truncate(y), Truncate(z), event.visible, event.distance});
}

void C3DGraph::ClearPoints(int id) {
    if (id == kAllIds || id == m_nDragID) {
        if (GiveUpDrag()) {
            CWnd::ReleaseCapture();
        }
    }
    m_DragPicture.reset();
    for (int each = 0; each < kSourceCount; ++each) {
        if (id == kAllIds || id == each) {
            m_vecPoints[static_cast<std::size_t>(each)] = {};
        }
    }
    if (id == m_nCurID) {
        m_nCurIndex = -1;
    }
}

void C3DGraph::SetZoom(CWnd* dialog, CDC* dc, double zoom, int ringCount, const double* rings) {
    StoreZoom(zoom, ringCount, rings);
    Draw(dialog, dc);
}

void C3DGraph::SetXReverse(CWnd* dialog, CDC* dc, int value) {
    s_nXReverse = value;
    Draw(dialog, dc);
}

void C3DGraph::SetYReverse(CWnd* dialog, CDC* dc, int value) {
    s_nYReverse = value;
    Draw(dialog, dc);
}

void C3DGraph::SetZReverse(CWnd* dialog, CDC* dc, int value) {
    s_nZReverse = value;
    Draw(dialog, dc);
}

void C3DGraph::SetIndexView(CWnd* dialog, CDC* dc, int value) {
    s_nIndexView = value;
    Draw(dialog, dc);
}

void C3DGraph::SetIndexLine(CWnd* dialog, CDC* dc, int value) {
    s_nIndexLine = value;
    Draw(dialog, dc);
}

void C3DGraph::SetCurrent(CWnd* dialog, CDC* dc, int id, int index) {
    m_nCurID = id;
    m_nCurIndex = index;
    Draw(dialog, dc);
}

int C3DGraph::IsInZoom(std::uint16_t distance) const {
    return static_cast<double>(distance) <= m_dZoom ? 1 : 0;
}

bool C3DGraph::IsShown(const tag3DGraphPoint& point) const {
    return point.visible == 1 && IsInZoom(point.distance) == 1;
}

int C3DGraph::Pixel(double value) {
    return std::clamp(Truncate(value), -kFarthestPixel, kFarthestPixel);
}

C3DGraph::Frame C3DGraph::FrameOf(int plane) const {
    const RECT& axis = m_rcAxis.at(static_cast<std::size_t>(plane));
    return {axis.left, axis.bottom, Width(axis) - 1, Height(axis) - 1,
            (plane == 0 ? s_nZReverse : s_nYReverse) != 0};
}

POINT C3DGraph::Project(int plane, std::int32_t h, std::int32_t v) const {
    const Frame frame = FrameOf(plane);
    const double across = static_cast<double>(frame.width) * h / m_dZoom;
    const double up = static_cast<double>(frame.height) * v / m_dZoom;
    return {Pixel(s_nXReverse != 0 ? frame.cx - across : across + frame.cx),
            Pixel(frame.reversed ? up + frame.cy : frame.cy - up)};
}

POINT C3DGraph::ProjectPoint(int plane, const tag3DGraphPoint& point) const {
    return Project(plane, point.x, plane == 0 ? point.z : point.y);
}

void C3DGraph::Unproject(int plane, int px, int py, double& h, double& v) const {
    const Frame frame = FrameOf(plane);
    const LONG top = m_rcAxis.at(static_cast<std::size_t>(plane)).top;
    h = (px - frame.cx) * m_dZoom / frame.width;
    if (s_nXReverse != 0) {
        h = -h;
    }
    v = frame.reversed ? (py - frame.cy - 1) * m_dZoom / frame.height
                       : m_dZoom - (py - top) * m_dZoom / frame.height;
}

void C3DGraph::PointFromPixel(int px, int py, tag3DGraphPoint& point) const {
    if (m_nDragPlane < 0) {
        return;
    }
    double h = 0.0;
    double v = 0.0;
    Unproject(m_nDragPlane, px, py, h, v);
    point.x = Truncate(h);
    (m_nDragPlane == 0 ? point.z : point.y) = Truncate(v);
    // The distance is reckoned from h as it is, the other two lengths as whole numbers.
    double y = point.y;
    double z = point.z;
    double distance = 0.0;
    double azimuth = 0.0;
    double elevation = 0.0;
    m_Converter.CartesianToSpherical(h, y, z, distance, azimuth, elevation, 1);
    point.distance = static_cast<std::uint16_t>(RoundDistance(distance));
}

bool C3DGraph::InEllipse(const RECT& circle, int px, int py) {
    const RECT grown{circle.left - kCircleSlack, circle.top - kCircleSlack,
                     circle.right + kCircleSlack, circle.bottom + kCircleSlack};
    if (!PtInRect(grown, {px, py})) {
        return false;
    }
    const double across = (2.0 * px + 1.0 - grown.left - grown.right) / Width(grown);
    const double down = (2.0 * py + 1.0 - grown.top - grown.bottom) / Height(grown);
    return across * across + down * down <= 1.0;
}

const tag3DGraphPoint* C3DGraph::PointAt(int id, int index) const {
    if (!IsId(id) || index < 0) {
        return nullptr;
    }
    const auto& points = m_vecPoints[static_cast<std::size_t>(id)];
    return static_cast<std::size_t>(index) < points.size()
               ? &points[static_cast<std::size_t>(index)]
               : nullptr;
}

bool C3DGraph::HitPoint(int id, int index, int px, int py, int plane, RECT& rect) const {
    const tag3DGraphPoint* point = PointAt(id, index);
    if (point == nullptr || !IsShown(*point)) {
        return false;
    }
    rect = DotRect(plane, *point);
    return PtInRect(rect, {px, py});
}

RECT C3DGraph::DotRect(int plane, const tag3DGraphPoint& point) const {
    const POINT place = ProjectPoint(plane, point);
    return {place.x - kDotRadius, place.y - kDotRadius, place.x + kDotRadius + 1,
            place.y + kDotRadius + 1};
}

int C3DGraph::FirstHit(int id, int px, int py, int plane) const {
    RECT rect;
    for (int index = 0; PointAt(id, index) != nullptr; ++index) {
        if (HitPoint(id, index, px, py, plane, rect)) {
            return index;
        }
    }
    return -1;
}

bool C3DGraph::FindPoint(int px, int py, int& plane, int& id, int& index) const {
    const bool isInFirst = PtInRect(m_rcPlane[0], {px, py});
    if (!isInFirst && !PtInRect(m_rcPlane[1], {px, py})) {
        return false;
    }
    plane = isInFirst ? 0 : 1;
    id = m_nCurID;
    RECT rect;
    index = HitPoint(m_nCurID, m_nCurIndex, px, py, plane, rect)
                ? m_nCurIndex
                : FirstHit(m_nCurID, px, py, plane);
    for (int each = 0; index < 0 && each < kSourceCount; ++each) {
        id = each;
        index = FirstHit(each, px, py, plane);
    }
    return index >= 0;
}

VirtualItem C3DGraph::DescribeDot(int plane, int id, int index) const {
    const tag3DGraphPoint& point = *PointAt(id, index);
    const CString across = "X " + MetresText(point.x) + " metres, ";
    const CString up = plane == 0 ? "Z " + MetresText(point.z) : "Y " + MetresText(point.y);
    return {"ID " + std::to_string(id) + ", dot " + std::to_string(index) + ", " + across + up +
                " metres",
            DotRect(plane, point), id == m_nCurID && index == m_nCurIndex};
}

std::vector<VirtualItem> C3DGraph::DescribeDots(int plane) const {
    std::vector<VirtualItem> dots;
    for (int id = 0; id < kSourceCount; ++id) {
        for (int index = 0; PointAt(id, index) != nullptr; ++index) {
            if (IsShown(*PointAt(id, index))) {
                dots.push_back(DescribeDot(plane, id, index));
            }
        }
    }
    return dots;
}
