#include "platform/qt/surface.h"

#include <QPainter>
#include <QWidget>
#include <QtMath>

#include "platform/native.h"
#include "platform/qt/convert.h"
#include "platform/qt/qt_dc.h"
#include "platform/qt/window_record.h"

namespace toolkit {

namespace {

void Erase(NativeWindow& window, const QRect& rect) {
    QtDC dc(window.surface.picture, rect);
    dc.FillRect(FromQt(rect), {FromColour(window.widget->palette().color(QPalette::Window))});
}

CDC* MakeContext(NativeWindow& window, const QRect& clip) {
    auto dc = std::make_unique<QtDC>(window.surface.picture, clip);
    dc->SetForeground(FromColour(window.widget->palette().color(QPalette::WindowText)));
    return dc.release();
}

}  // namespace

void FitSurface(NativeWindow& window) {
    const qreal ratio = window.widget->devicePixelRatioF();
    const QSize size(qCeil(window.widget->width() * ratio), qCeil(window.widget->height() * ratio));
    Surface& surface = window.surface;
    if (surface.picture != nullptr && surface.picture->image.size() == size &&
        surface.picture->ratio == ratio) {
        return;
    }
    surface.picture = std::make_shared<ImageStorage>(QImage(size, QImage::Format_RGB32), ratio);
    surface.invalid = window.widget->rect();
    Erase(window, window.widget->rect());
}

void InvalidateAll(NativeWindow& window) {
    window.surface.invalid = window.widget->rect();
    window.widget->update();
}

void PaintInvalid(NativeWindow& window) {
    FitSurface(window);
    if (window.surface.invalid.isEmpty()) {
        return;
    }
    dispatch::Send(&window, WM_PAINT, 0, 0);
    if (window.widget != nullptr && !window.surface.invalid.isEmpty()) {
        Erase(window, window.surface.invalid.boundingRect());
        window.surface.invalid = {};
    }
}

void ShowSurface(NativeWindow& window, QPainter& painter) {
    window.surface.painting = true;
    PaintInvalid(window);
    window.surface.painting = false;
    if (window.widget != nullptr) {
        painter.drawImage(QPointF(0, 0), window.surface.picture->image);
    }
}

}  // namespace toolkit

namespace native {

void Invalidate(HWND window) {
    if (window != nullptr && window->widget != nullptr) {
        toolkit::InvalidateAll(*window);
    }
}

void Update(HWND window) {
    if (window == nullptr || window->widget == nullptr || window->surface.invalid.isEmpty()) {
        return;
    }
    const toolkit::DispatchScope scope;
    toolkit::PaintInvalid(*window);
    if (window->widget != nullptr) {
        window->widget->update();
    }
}

CDC* GetDC(HWND window) {
    if (window == nullptr || window->widget == nullptr) {
        return nullptr;
    }
    toolkit::FitSurface(*window);
    return toolkit::MakeContext(*window, window->widget->rect());
}

void ReleaseDC(HWND window, CDC* dc) {
    const std::unique_ptr<CDC> owned(dc);
    const auto* context = dynamic_cast<const toolkit::QtDC*>(dc);
    if (window != nullptr && window->widget != nullptr && context != nullptr &&
        !context->Dirty().isEmpty()) {
        window->widget->update(context->Dirty());
    }
}

CDC* BeginPaint(HWND window) {
    if (window == nullptr || window->widget == nullptr) {
        return nullptr;
    }
    toolkit::FitSurface(*window);
    const QRect invalid = window->surface.invalid.boundingRect();
    toolkit::Erase(*window, invalid);
    window->surface.invalid = {};
    return toolkit::MakeContext(*window, invalid);
}

void EndPaint(HWND window, CDC* dc) {
    const std::unique_ptr<CDC> owned(dc);
    // Inside a paint event the picture is shown right away.
    if (window != nullptr && window->widget != nullptr && !window->surface.painting) {
        window->widget->update();
    }
}

}  // namespace native
