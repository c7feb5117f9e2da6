#include "platform/qt/raster.h"

#include <algorithm>
#include <cstring>

namespace toolkit {

namespace {

// The square of pen width at one step of a line, `across` being its place on the other axis.
void DrawStep(const Raster& raster, const LineRun& run, int index, int across, int width,
              QRgb colour) {
    const int along = (run.alongX ? run.start.x() : run.start.y()) + index * run.step;
    if (run.alongX) {
        for (int y = across; y < across + width; ++y) {
            FillSpan(raster, y, along, along, colour);
        }
    } else {
        FillSpan(raster, along, across, across + width - 1, colour);
    }
}

QRect BoundsOf(const LineRun& run, int width) {
    const int along = (run.count - 1) * run.step;
    const int across = static_cast<int>(((run.count - 1) * run.drift + 0x8000) >> 16U);
    const QPoint end = run.start + (run.alongX ? QPoint(along, across) : QPoint(across, along));
    return QRect(run.start, end).normalized().adjusted(-1, -1, width, width);
}

// The common case of thousands of solid lines: everything inside, nothing to test.
void DrawSolidRun(const Raster& raster, const LineRun& run, int width, QRgb colour) {
    QRgb* start = raster.Row(run.start.y()) + run.start.x();
    const qsizetype along = run.alongX ? run.step : run.step * raster.stride;
    const qsizetype across = run.alongX ? raster.stride : 1;
    std::int64_t place = 0x8000;
    for (int index = 0; index < run.count; ++index, place += run.drift) {
        QRgb* pixel = start + index * along + (place >> 16U) * across;
        for (int thick = 0; thick < width; ++thick, pixel += across) {
            *pixel = colour;
        }
    }
}

// Red and blue are mixed in one go, their bits leave each other room.
QRgb Blend(QRgb under, QRgb over, std::uint32_t weight) {
    constexpr std::uint32_t kRedBlue = 0xFF00FFU;
    constexpr std::uint32_t kGreen = 0x00FF00U;
    const std::uint32_t rest = 256U - weight;
    const std::uint32_t redBlue =
        ((under & kRedBlue) * rest + (over & kRedBlue) * weight) >> 8U & kRedBlue;
    const std::uint32_t green = ((under & kGreen) * rest + (over & kGreen) * weight) >> 8U & kGreen;
    return 0xFF000000U | redBlue | green;
}

}  // namespace

bool Stroke::ColourAt(int way, QRgb& result) const {
    const int dash = 3 * width;
    if (!dotted || (way / dash) % 2 == 0) {
        result = colour;
        return true;
    }
    if (opaqueGaps) {
        result = gap;
    }
    return opaqueGaps;
}

void FillSpan(const Raster& raster, int y, int first, int last, QRgb colour) {
    const int from = std::max(first, raster.clip.left());
    const int to = std::min(last, raster.clip.right());
    if (from <= to && y >= raster.clip.top() && y <= raster.clip.bottom()) {
        std::fill(raster.Row(y) + from, raster.Row(y) + to + 1, colour);
    }
}

Raster RasterOf(QImage& image) {
    if (image.isNull()) {
        return {};
    }
    return {reinterpret_cast<QRgb*>(image.bits()),
            image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb)), image.rect()};
}

void FillBox(const Raster& raster, const QRect& box, QRgb colour) {
    const QRect inside = box & raster.clip;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        std::fill_n(raster.Row(y) + inside.left(), inside.width(), colour);
    }
}

void DrawLineRun(const Raster& raster, const LineRun& run, const Stroke& stroke) {
    if (run.count <= 0) {
        return;
    }
    if (!stroke.dotted && raster.clip.contains(BoundsOf(run, stroke.width))) {
        DrawSolidRun(raster, run, stroke.width, stroke.colour);
        return;
    }
    const int base = run.alongX ? run.start.y() : run.start.x();
    for (int index = 0; index < run.count; ++index) {
        const auto across = static_cast<int>((index * run.drift + 0x8000) >> 16U);
        QRgb colour = 0;
        if (stroke.ColourAt(index, colour)) {
            DrawStep(raster, run, index, base + across, stroke.width, colour);
        }
    }
}

void BlendMask(const Raster& raster, QPoint place, const Mask& mask, QRgb colour) {
    if (raster.clip.contains(mask.box.translated(place))) {
        QRgb* corner = raster.Row(place.y()) + place.x();
        for (const MaskPixel& pixel : mask.pixels) {
            QRgb& target = corner[pixel.y * raster.stride + pixel.x];
            target = Blend(target, colour, pixel.weight);
        }
        return;
    }
    for (const MaskPixel& pixel : mask.pixels) {
        const QPoint at = place + QPoint(pixel.x, pixel.y);
        if (raster.clip.contains(at)) {
            QRgb& target = raster.Row(at.y())[at.x()];
            target = Blend(target, colour, pixel.weight);
        }
    }
}

void CopyBox(const Raster& raster, const QRect& box, const QImage& source, QPoint from,
             bool combine) {
    const QPoint shift = from - box.topLeft();
    const QRect inside = box & raster.clip & source.rect().translated(-shift);
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        const auto* read = reinterpret_cast<const QRgb*>(source.constScanLine(y + shift.y())) +
                           inside.left() + shift.x();
        QRgb* write = raster.Row(y) + inside.left();
        if (combine) {
            std::transform(read, read + inside.width(), write, write,
                           [](QRgb one, QRgb other) { return one & other; });
        } else {
            std::memmove(write, read, static_cast<std::size_t>(inside.width()) * sizeof(QRgb));
        }
    }
}

}  // namespace toolkit
