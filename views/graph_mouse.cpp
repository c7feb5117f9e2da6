#include "platform/hooks.h"
#include "platform/window.h"
#include "views/graph.h"

void C3DGraph::OnMouseDown(CWnd* /*dialog*/, int x, int y) {
    int plane = -1;
    int id = -1;
    int index = -1;
    if (IsDragging() || !FindPoint(x, y, plane, id, index)) {
        return;
    }
    m_nDragPlane = plane;
    m_nDragID = id;
    m_nDragIndex = index;
    m_nCurID = id;
    m_nCurIndex = index;
    if (m_Callbacks.setCurrentPoint) {
        m_Callbacks.setCurrentPoint(id, index);
    }
    m_nPressed = 1;
}

void C3DGraph::OnMouseDrag(CWnd* dialog, CDC* dc, int x, int y) {
    if (m_nPressed == 1) {
        m_nPressed = 0;
        BeginDrag(dialog);
    }
    if (m_nDragging == 1 && MoveHeldPoint(x, y)) {
        DrawDragFrame(dialog, dc);
    }
}

// The button may have gone up where no message of it came here, so its state is asked for.
void C3DGraph::BeginDrag(CWnd* dialog) {
    const tag3DGraphPoint* held = HeldPoint();
    if (held == nullptr || GetKeyState(VK_LBUTTON) >= 0) {
        return;
    }
    m_nDragging = 1;
    m_ptSaved = *held;
    if (dialog != nullptr) {
        dialog->SetCapture();
    }
}

void C3DGraph::OnMouseUp(CWnd* /*dialog*/, int x, int y) {
    m_nPressed = 0;
    if (m_nDragging == 0) {
        return;
    }
    m_nDragging = 0;  // Before the callback, which is a command and would be refused in a drag.
    m_DragPicture.reset();
    CWnd::ReleaseCapture();
    MoveHeldPoint(x, y);
    tag3DGraphPoint* held = HeldPoint();
    if (held != nullptr && m_Callbacks.setCurrentMove) {
        // The callback rebuilds the points: nothing of the held one may be used behind it.
        m_Callbacks.setCurrentMove(m_nDragID, m_nDragIndex, RoundHeldPoint(*held));
    }
    m_nDragPlane = -1;
    m_nDragID = -1;
    m_nDragIndex = -1;
}

void C3DGraph::CancelDrag(CWnd* dialog, CDC* dc) {
    if (GiveUpDrag()) {
        CWnd::ReleaseCapture();
        Draw(dialog, dc);
    }
}

void C3DGraph::OnCaptureLost(CWnd* dialog, CDC* dc) {
    if (GiveUpDrag()) {
        Draw(dialog, dc);
    }
}

// Puts the dragged dot back and lets go of it; false when none was being dragged.
bool C3DGraph::GiveUpDrag() {
    m_nPressed = 0;
    if (m_nDragging == 0) {
        return false;
    }
    m_nDragging = 0;
    m_DragPicture.reset();
    if (tag3DGraphPoint* held = HeldPoint()) {
        *held = m_ptSaved;
    }
    m_nDragPlane = -1;
    m_nDragID = -1;
    m_nDragIndex = -1;
    return true;
}

tag3DGraphPoint* C3DGraph::HeldPoint() {
    return m_nDragPlane < 0 ? nullptr
                            : const_cast<tag3DGraphPoint*>(PointAt(m_nDragID, m_nDragIndex));
}

// False where the dot stays: outside the circle, or farther away than the zoom shows.
bool C3DGraph::MoveHeldPoint(int x, int y) {
    tag3DGraphPoint* held = HeldPoint();
    if (held == nullptr ||
        !InEllipse(m_rcCircle.at(static_cast<std::size_t>(m_nDragPlane)), x, y)) {
        return false;
    }
    tag3DGraphPoint moved = *held;
    PointFromPixel(x, y, moved);
    if (static_cast<double>(moved.distance) > m_dZoom) {
        return false;
    }
    *held = moved;
    return true;
}

_tagEvent3D C3DGraph::RoundHeldPoint(tag3DGraphPoint& held) const {
    double x = held.x;
    double y = held.y;
    double z = held.z;
    double distance = 0.0;
    double azimuth = 0.0;
    double elevation = 0.0;
    m_Converter.CartesianToSpherical(x, y, z, distance, azimuth, elevation, 1);
    _tagEvent3D event;
    event.distance = static_cast<std::uint16_t>(RoundDistance(distance));
    event.azimuth = static_cast<std::int16_t>(RoundAngle(azimuth));
    event.elevation = static_cast<std::int16_t>(RoundAngle(elevation));
    held.distance = event.distance;
    return event;
}
