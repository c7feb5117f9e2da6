#include "platform/qt/qt_dc.h"

#include <QtMath>
#include <cstdlib>

#include "platform/qt/convert.h"
#include "platform/qt/text_cache.h"

namespace toolkit {

namespace {

// A line's way along its longer axis, in device pixels: from `from` to the one before `to`, with
// which the last logical pixel, left out, begins. A line down the axis begins at the far end of its
// first logical pixel.
struct Axis {
    int from;
    int to;
    int Step() const { return to >= from ? 1 : -1; }
    int Count() const { return std::abs(to - from); }
};

LineRun MakeRun(bool alongX, const Axis& along, int acrossFrom, int acrossTo) {
    LineRun run;
    run.count = along.Count();
    run.alongX = alongX;
    run.step = along.Step();
    run.start = alongX ? QPoint(along.from, acrossFrom) : QPoint(acrossFrom, along.from);
    if (run.count > 0) {
        run.drift = (static_cast<std::int64_t>(acrossTo - acrossFrom) * 0x10000) / run.count;
    }
    return run;
}

}  // namespace

QtDC::QtDC(std::shared_ptr<ImageStorage> picture, const QRect& clip)
    : ratio_(picture->ratio), picture_(std::move(picture)), raster_(RasterOf(picture_->image)) {
    raster_.clip &=
        DeviceBox(clip.left(), clip.top(), clip.left() + clip.width(), clip.top() + clip.height());
}

std::unique_ptr<CDC> QtDC::CreateCompatibleDC() {
    return std::make_unique<QtDC>(ratio_);
}

CBitmap QtDC::CreateCompatibleBitmap(int width, int height) {
    CBitmap bitmap;
    const QSize size(qCeil(width * ratio_), qCeil(height * ratio_));
    if (!size.isEmpty()) {
        bitmap.SetStorage(std::make_shared<ImageStorage>(MakeCanvas(size), ratio_),
                          {width, height});
    }
    return bitmap;
}

void QtDC::SelectBitmap(CBitmap* bitmap) {
    picture_ = bitmap == nullptr ? nullptr : StorageOf(*bitmap, ratio_);
    raster_ = picture_ == nullptr ? Raster() : RasterOf(picture_->image);
}

void QtDC::FillRect(const RECT& rect, const CBrush& brush) {
    const QRect box = DeviceBox(rect.left, rect.top, rect.right, rect.bottom);
    FillBox(raster_, box, ToPixel(brush.colour));
    Touch(box);
}

void QtDC::Ellipse(int left, int top, int right, int bottom) {
    const QRect box = DeviceBox(left, top, right, bottom);
    DrawEllipse(raster_, box, PenStroke(), ToPixel(brush_.colour));
    Touch(box);
}

void QtDC::LineTo(int x, int y) {
    const POINT from = place_;
    place_ = {x, y};
    const bool alongX = std::abs(x - from.x) >= std::abs(y - from.y);
    const int start = alongX ? from.x : from.y;
    const int end = alongX ? x : y;
    const Axis along = end >= start ? Axis{Device(start), Device(end)}
                                    : Axis{Device(start + 1) - 1, Device(end + 1) - 1};
    DrawLineRun(raster_,
                MakeRun(alongX, along, Device(alongX ? from.y : from.x), Device(alongX ? y : x)),
                PenStroke());
    Touch(DeviceBox(std::min(from.x, x), std::min(from.y, y), std::max(from.x, x) + 1,
                    std::max(from.y, y) + 1)
              .adjusted(0, 0, pen_.width, pen_.width));
}

void QtDC::TextOut(int x, int y, std::string_view text) {
    const TextRun& run = Texts().Run(text);
    const QRect cell = DeviceBox(x, y, x + run.extent.cx, y + run.extent.cy);
    if (backgroundMode_ == OPAQUE) {
        FillBox(raster_, cell, ToPixel(backgroundColour_));
    }
    BlendMask(raster_, cell.topLeft(), run.mask, ToPixel(textColour_));
    Touch(cell | run.mask.box.translated(cell.topLeft()));
}

SIZE QtDC::GetTextExtent(std::string_view text) {
    return Texts().Run(text).extent;
}

void QtDC::BitBlt(int x, int y, int width, int height, CDC& source, int sourceX, int sourceY,
                  DWORD operation) {
    const auto* from = dynamic_cast<const QtDC*>(&source);
    if (from == nullptr || from->picture_ == nullptr) {
        return;
    }
    const QRect box = DeviceBox(x, y, x + width, y + height);
    CopyBox(raster_, box, from->picture_->image, QPoint(Device(sourceX), Device(sourceY)),
            operation == SRCAND);
    Touch(box);
}

QRect QtDC::Dirty() const {
    if (dirty_.isEmpty()) {
        return {};
    }
    const QRectF logical(dirty_.x() / ratio_, dirty_.y() / ratio_, dirty_.width() / ratio_,
                         dirty_.height() / ratio_);
    return logical.toAlignedRect();
}

void QtDC::SetForeground(COLORREF colour) {
    textColour_ = colour;
    pen_.colour = colour;
}

QRect QtDC::DeviceBox(int left, int top, int right, int bottom) const {
    const QPoint corner(Device(left), Device(top));
    return {corner, QSize(Device(right) - corner.x(), Device(bottom) - corner.y())};
}

Stroke QtDC::PenStroke() const {
    return {ToPixel(pen_.colour), std::max(1, Device(pen_.width)), pen_.style == PS_DOT,
            backgroundMode_ == OPAQUE, ToPixel(backgroundColour_)};
}

TextCache& QtDC::Texts() {
    if (texts_ == nullptr || !(textsFont_ == font_)) {
        texts_ = &TextCache::For(font_, ratio_);
        textsFont_ = font_;
    }
    return *texts_;
}

}  // namespace toolkit
