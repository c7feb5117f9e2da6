#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "event/event_record.h"
#include "platform/gdi.h"
#include "platform/types.h"
#include "sequence/api.h"
#include "views/position_arithmetic.h"

class CWnd;
struct VirtualItem;

/// One dot: a copy of a position event in Cartesian form, lengths in millimetres.
struct tag3DGraphPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t z = 0;
    std::int32_t visible = 0;    ///< 1 shown, anything else hidden.
    std::uint16_t distance = 0;  ///< The event's, on its grid.
    bool operator==(const tag3DGraphPoint&) const = default;
};

inline constexpr int kRingLimit = 3;

/// One zoom: what the edge of the circle stands for, and the rings, larger first; millimetres.
struct ZoomRow {
    double zoom;
    std::uint32_t ringCount;
    double rings[kRingLimit];
};

inline constexpr std::array<ZoomRow, 8> ZOOM_TABLE{{
    {12750.0, 2, {10000.0, 5000.0, 0.0}},
    {10000.0, 1, {5000.0, 0.0, 0.0}},
    {8000.0, 1, {5000.0, 0.0, 0.0}},
    {6000.0, 2, {5000.0, 2500.0, 0.0}},
    {4000.0, 1, {2000.0, 0.0, 0.0}},
    {2000.0, 1, {1000.0, 0.0, 0.0}},
    {1000.0, 1, {500.0, 0.0, 0.0}},
    {500.0, 1, {250.0, 0.0, 0.0}},
}};

/// What the graph asks of whoever owns it. The graph names what it calls and knows no dialog.
struct C3DGraphCallbacks {
    /// A dot was pressed: its event is to become the current one.
    std::function<void(int id, int index)> setCurrentPoint;
    /// A drag has ended: the event takes the distance, azimuth and elevation of `event`; no other
    /// field of it counts. The points are rebuilt meanwhile.
    std::function<void(int id, int index, const _tagEvent3D& event)> setCurrentMove;
};

/// The events in view as dots on two planes of the editor's client area: plane 0 from above
/// (horizontal X, vertical Z), plane 1 from behind (horizontal X, vertical Y). It has no control
/// of its own: the dialog hands it device contexts and mouse messages. Dots are addressed by 3D
/// ID and index among the events of that ID, in the order they were added. Pixels are client
/// coordinates of the dialog, lengths millimetres. Main thread only.
///
/// `dialog` and `dc` are borrowed for the call; either may be null, then nothing is painted.
class ORBIX_API C3DGraph {
public:
    static constexpr int kPlaneCount = 2;
    /// For ClearPoints and DrawPoints.
    static constexpr int kAllIds = -1;
    /// For DrawPoints alone.
    static constexpr int kAllButCurrentId = -2;

    /// View settings. They belong to the process and so survive from one dialog to the next.
    static std::int32_t s_nXReverse;   ///< Mirrors the horizontal axis of both planes.
    static std::int32_t s_nYReverse;   ///< Mirrors the vertical axis of plane 1.
    static std::int32_t s_nZReverse;   ///< Mirrors the vertical axis of plane 0.
    static std::int32_t s_nIndexView;  ///< Writes each dot's number over it.
    static std::int32_t s_nIndexLine;  ///< 1 joins the dots of one ID by lines.
    static CString s_strZoomText;      ///< Text of the zoom last chosen; empty before that.

    C3DGraph();
    virtual ~C3DGraph();
    C3DGraph(const C3DGraph&) = delete;
    C3DGraph& operator=(const C3DGraph&) = delete;

    /// Takes the places of the planes, the zoom and the limits, loads the head pictures. `rings`
    /// holds `ringCount` lengths (0 to kRingLimit); null means none.
    void Init(const RECT& plane0, const RECT& plane1, double zoom, int ringCount,
              const double* rings, const C3DPosConverter& converter);
    /// Back to the state before Init: no places, no points, no zoom, nothing current or held.
    void Reset();
    void SetCallbacks(C3DGraphCallbacks callbacks);

    // --- points --------------------------------------------------------------------------------

    /// Appends a dot for a position event of 3D ID 0 to 3; skips any other event in silence.
    void AddEvent(const _tagEvent3D& event);
    /// Drops the points of one ID, or of all with kAllIds. If it is the current ID, the current
    /// index goes to -1 and the ID stays. A dot of that ID that is pressed or dragged is let go,
    /// since it no longer exists: the drag ends without a change, as Esc ends it.
    void ClearPoints(int id);
    const std::vector<tag3DGraphPoint>& Points(int id) const {
        return m_vecPoints.at(static_cast<std::size_t>(id));
    }

    // --- view; each of these repaints ----------------------------------------------------------

    void SetZoom(CWnd* dialog, CDC* dc, double zoom, int ringCount, const double* rings);
    void SetXReverse(CWnd* dialog, CDC* dc, int value);
    void SetYReverse(CWnd* dialog, CDC* dc, int value);
    void SetZReverse(CWnd* dialog, CDC* dc, int value);
    void SetIndexView(CWnd* dialog, CDC* dc, int value);
    void SetIndexLine(CWnd* dialog, CDC* dc, int value);
    /// Marks a dot as the current one; -1, -1 for none.
    void SetCurrent(CWnd* dialog, CDC* dc, int id, int index);

    int CurrentId() const { return m_nCurID; }
    int CurrentIndex() const { return m_nCurIndex; }
    double Zoom() const { return m_dZoom; }

    // --- geometry ------------------------------------------------------------------------------

    /// 1 when a dot at this distance is inside the zoom (its edge included), else 0.
    int IsInZoom(std::uint16_t distance) const;
    /// The pixel of a point (h, v) of a plane.
    POINT Project(int plane, std::int32_t h, std::int32_t v) const;
    /// The point of a pixel. No exact inverse: its vertical zero lies one pixel off the axis.
    void Unproject(int plane, int px, int py, double& h, double& v) const;
    /// Moves `point` to a pixel of the plane that is being dragged on; its third coordinate
    /// stands, its distance is made anew.
    void PointFromPixel(int px, int py, tag3DGraphPoint& point) const;
    /// Whether the pixel lies in the ellipse inscribed in the rectangle grown by 3 pixels on all
    /// sides: ((2x + 1 - l - r) / (r - l))^2 + ((2y + 1 - t - b) / (b - t))^2 <= 1, so the test
    /// is on the pixel's middle.
    static bool InEllipse(const RECT& circle, int px, int py);
    /// Whether a shown dot lies under the pixel: 7 x 7 pixels around it, given in `rect`.
    bool HitPoint(int id, int index, int px, int py, int plane, RECT& rect) const;
    /// The dot under the pixel: first the current one, then those of the current ID, then the
    /// other IDs in rising order.
    bool FindPoint(int px, int py, int& plane, int& id, int& index) const;

    const RECT& PlaneRect(int plane) const { return m_rcPlane.at(static_cast<std::size_t>(plane)); }
    /// The dots that a plane shows as a screen reader is told of them: "ID 2, dot 5, X 1.50 metres,
    /// Z -0.25 metres".
    std::vector<VirtualItem> DescribeDots(int plane) const;

    // --- painting ------------------------------------------------------------------------------

    /// Colour of a 3D ID, 0 for any other number.
    static COLORREF GetIDColor(int id);
    /// Repaints both planes through a memory context, and nothing outside them.
    void Draw(CWnd* dialog, CDC* dc);
    /// Background, circle, rings, axes and head; `plane` is 0, 1 or -1 for both.
    void DrawPlanes(CDC* dc, int plane);
    void DrawLabels(CDC* dc, int plane) const;
    /// Dots and lines of the IDs that `selector` lets through: kAllButCurrentId, kAllIds or one.
    void DrawPoints(CDC* dc, int plane, int selector) const;
    void DrawPoint(CDC* dc, const CBrush& brush, COLORREF colour, int x, int y, int number) const;

    // --- mouse ---------------------------------------------------------------------------------

    /// Whether a dot is being dragged; commands stand still meanwhile.
    bool IsDragging() const { return m_nDragging == 1; }
    /// Selects and takes hold of the dot under the pixel; nothing while one is being dragged.
    void OnMouseDown(CWnd* dialog, int x, int y);
    /// Moves the held dot; the first move after the press starts the drag and takes the capture.
    void OnMouseDrag(CWnd* dialog, CDC* dc, int x, int y);
    /// Ends a drag: rounds the position to its grids and hands it to setCurrentMove.
    void OnMouseUp(CWnd* dialog, int x, int y);
    /// Gives a drag up: the dot goes back to where it began.
    void CancelDrag(CWnd* dialog, CDC* dc);
    /// The system has taken the capture away: gives a drag up without releasing the capture,
    /// which is another's by now.
    void OnCaptureLost(CWnd* dialog, CDC* dc);

private:
    /// The crossing of a plane's axes and the lengths from it to their ends, in pixels.
    struct Frame {
        int cx;
        int cy;
        int width;
        int height;
        bool reversed;  ///< The vertical axis.
    };

    /// How far a dot reaches from its middle, in pixels.
    static constexpr int kDotRadius = 3;

    /// What the frames of one drag share: all that the drag leaves as it is, drawn once, and the
    /// bitmap that each frame is put together on. Both have the client area's extent.
    struct DragPicture {
        CBitmap backdrop;
        CBitmap frame;
    };

    /// Toward zero, and held to where a few more can be added.
    static int Pixel(double value);
    Frame FrameOf(int plane) const;
    POINT ProjectPoint(int plane, const tag3DGraphPoint& point) const;
    const tag3DGraphPoint* PointAt(int id, int index) const;
    bool IsShown(const tag3DGraphPoint& point) const;
    RECT DotRect(int plane, const tag3DGraphPoint& point) const;
    /// Index of the first dot of the ID under the pixel, -1 for none.
    int FirstHit(int id, int px, int py, int plane) const;
    VirtualItem DescribeDot(int plane, int id, int index) const;
    void SetPlaneRect(std::size_t plane, const RECT& rect);
    void StoreZoom(double zoom, int ringCount, const double* rings);

    void LoadHeads();
    void DrawDragFrame(CWnd* dialog, CDC* dc);
    void DrawBackdrop(CDC* dc);
    void CopyPlanes(CDC& to, CDC& from) const;
    void DrawCircles(CDC* dc, int plane) const;
    void DrawAxes(CDC* dc, int plane) const;
    void DrawHead(CDC* dc, int plane);
    void DrawHorizontalNames(CDC* dc, int plane, std::string_view zoomText) const;
    void DrawVerticalNames(CDC* dc, int plane, std::string_view zoomText) const;
    void DrawRingTexts(CDC* dc, int plane) const;
    void DrawPointsOfId(CDC* dc, int plane, int id) const;

    tag3DGraphPoint* HeldPoint();
    void BeginDrag(CWnd* dialog);
    bool MoveHeldPoint(int x, int y);
    bool GiveUpDrag();
    _tagEvent3D RoundHeldPoint(tag3DGraphPoint& held) const;

    std::array<RECT, kPlaneCount> m_rcPlane{};
    std::array<RECT, kPlaneCount> m_rcAxis{};
    std::array<RECT, kPlaneCount> m_rcCircle{};
    std::array<std::vector<tag3DGraphPoint>, kSourceCount> m_vecPoints;
    tag3DGraphPoint m_ptSaved;
    std::int32_t m_nCurID = -1;
    std::int32_t m_nCurIndex = -1;
    double m_dZoom = 0.0;
    CFont m_Font;
    std::int32_t m_nPressed = 0;
    std::int32_t m_nDragging = 0;
    std::int32_t m_nDragPlane = -1;
    std::int32_t m_nDragID = -1;
    std::int32_t m_nDragIndex = -1;
    std::int32_t m_nRingCount = 0;
    std::array<double, kRingLimit> m_dRings{};
    std::array<CBitmap, 16> m_bmHead;
    std::optional<DragPicture> m_DragPicture;
    C3DPosConverter m_Converter;
    C3DGraphCallbacks m_Callbacks;
};
