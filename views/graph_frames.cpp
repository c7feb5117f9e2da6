#include <memory>

#include "platform/window.h"
#include "views/graph.h"

// Whole pictures of the two planes, put together out of sight and then shown in one go.

void C3DGraph::Draw(CWnd* dialog, CDC* dc) {
    m_DragPicture.reset();
    if (dialog == nullptr || dc == nullptr) {
        return;
    }
    const std::unique_ptr<CDC> memory = dc->CreateCompatibleDC();
    if (memory == nullptr) {
        return;
    }
    const RECT client = dialog->GetClientRect();
    CBitmap surface = dc->CreateCompatibleBitmap(Width(client), Height(client));
    memory->SelectBitmap(&surface);
    DrawBackdrop(memory.get());
    if (m_nCurID >= 0) {  // Without a current ID the backdrop has all dots.
        DrawPoints(memory.get(), -1, m_nCurID);
    }
    CopyPlanes(*dc, *memory);
    memory->SelectBitmap(nullptr);
}

// Draw's picture at the cost of one ID: a drag moves a dot of the current ID and nothing else.
void C3DGraph::DrawDragFrame(CWnd* dialog, CDC* dc) {
    if (dialog == nullptr || dc == nullptr) {
        return;
    }
    const std::unique_ptr<CDC> backdrop = dc->CreateCompatibleDC();
    const std::unique_ptr<CDC> frame = dc->CreateCompatibleDC();
    if (m_nDragID != m_nCurID || backdrop == nullptr || frame == nullptr) {
        Draw(dialog, dc);
        return;
    }
    const bool isFirst = !m_DragPicture;
    if (isFirst) {
        const RECT client = dialog->GetClientRect();
        m_DragPicture = {dc->CreateCompatibleBitmap(Width(client), Height(client)),
                         dc->CreateCompatibleBitmap(Width(client), Height(client))};
    }
    backdrop->SelectBitmap(&m_DragPicture->backdrop);
    if (isFirst) {
        DrawBackdrop(backdrop.get());
    }
    frame->SelectBitmap(&m_DragPicture->frame);
    CopyPlanes(*frame, *backdrop);
    DrawPoints(frame.get(), -1, m_nCurID);
    CopyPlanes(*dc, *frame);
    frame->SelectBitmap(nullptr);
    backdrop->SelectBitmap(nullptr);
}

void C3DGraph::DrawBackdrop(CDC* dc) {
    DrawPlanes(dc, -1);
    DrawLabels(dc, -1);
    DrawPoints(dc, -1, kAllButCurrentId);
}

void C3DGraph::CopyPlanes(CDC& to, CDC& from) const {
    for (const RECT& plane : m_rcPlane) {
        to.BitBlt(plane.left, plane.top, Width(plane), Height(plane), from, plane.left, plane.top,
                  SRCCOPY);
    }
}
