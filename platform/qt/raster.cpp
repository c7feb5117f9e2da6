#include "platform/qt/raster.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <unordered_map>
#include <vector>

namespace toolkit {

namespace {

using Insets = std::vector<int>;

// For each row of an ellipse, how many pixels of the box lie outside it at either side: a pixel
// is inside when its centre is.
Insets ComputeInsets(int width, int height) {
    Insets insets(static_cast<std::size_t>(height));
    const double halfWidth = width / 2.0;
    const double halfHeight = height / 2.0;
    for (int row = 0; row < height; ++row) {
        const double rise = (row + 0.5 - halfHeight) / halfHeight;
        const double reach = halfWidth * std::sqrt(std::max(0.0, 1.0 - rise * rise));
        insets[static_cast<std::size_t>(row)] =
            static_cast<int>(std::ceil(halfWidth - reach - 0.5));
    }
    return insets;
}

// Dots have one size and rings a few at a time, so a small cache always hits.
const Insets& EllipseInsets(int width, int height) {
    static std::unordered_map<std::uint64_t, Insets> cache;
    constexpr std::size_t kMostShapes = 256;
    const auto key = (static_cast<std::uint64_t>(static_cast<std::uint32_t>(width)) << 32U) |
                     static_cast<std::uint32_t>(height);
    const auto found = cache.find(key);
    if (found != cache.end()) {
        return found->second;
    }
    if (cache.size() >= kMostShapes) {
        cache.clear();
    }
    return cache.emplace(key, ComputeInsets(width, height)).first->second;
}

void FillSpan(const Raster& raster, int y, int first, int last, QRgb colour) {
    const int from = std::max(first, raster.clip.left());
    const int to = std::min(last, raster.clip.right());
    if (from <= to && y >= raster.clip.top() && y <= raster.clip.bottom()) {
        std::fill(raster.Row(y) + from, raster.Row(y) + to + 1, colour);
    }
}

// The way along an ellipse's outline in whole pixels, counted in each quarter from the box's
// sides: by rows where the outline is steep, by columns where it is flat.
class OutlineWay {
public:
    explicit OutlineWay(const QRect& box)
        : halfWidth_(box.width() / 2.0), halfHeight_(box.height() / 2.0) {
        const double diagonal = std::hypot(halfWidth_, halfHeight_);
        turnX_ = halfWidth_ * halfWidth_ / diagonal;
        turnY_ = halfHeight_ * halfHeight_ / diagonal;
    }

    int At(int column, int row) const {
        const double x = std::abs(column + 0.5 - halfWidth_);
        const double y = std::abs(row + 0.5 - halfHeight_);
        const bool steep = y * halfWidth_ * halfWidth_ < x * halfHeight_ * halfHeight_;
        return static_cast<int>(steep ? y : turnY_ + turnX_ - x);
    }

private:
    double halfWidth_;
    double halfHeight_;
    double turnX_;
    double turnY_;
};

class EllipsePainter {
public:
    EllipsePainter(const Raster& raster, const QRect& box, const Stroke& stroke, QRgb fill)
        : raster_(raster),
          box_(box),
          stroke_(stroke),
          fill_(fill),
          way_(box),
          outer_(EllipseInsets(box.width(), box.height())) {
        const int inner = 2 * stroke.width;
        if (stroke.width > 1 && box.width() > inner && box.height() > inner) {
            inner_ = EllipseInsets(box.width() - inner, box.height() - inner);
        }
    }

    void Draw() {
        for (int row = 0; row < box_.height(); ++row) {
            DrawRow(row);
        }
    }

private:
    int Outer(int row) const {
        return row < 0 || row >= box_.height() ? box_.width()
                                               : outer_[static_cast<std::size_t>(row)];
    }

    // The first column inside the outline. A thin outline is made of the pixels that have a
    // neighbour outside, a thicker one lies between the box's ellipse and a smaller one.
    int Inner(int row) const {
        if (stroke_.width <= 1) {
            return std::max(Outer(row) + 1, std::max(Outer(row - 1), Outer(row + 1)));
        }
        const int innerRow = row - stroke_.width;
        if (innerRow < 0 || innerRow >= static_cast<int>(inner_.size())) {
            return box_.width();
        }
        return std::max(Outer(row) + 1, stroke_.width + inner_[static_cast<std::size_t>(innerRow)]);
    }

    void DrawRow(int row) {
        const int first = Outer(row);
        const int last = box_.width() - 1 - first;
        const int inside = Inner(row);
        const int insideLast = box_.width() - 1 - inside;
        if (inside > insideLast) {
            DrawOutline(row, first, last);
            return;
        }
        DrawOutline(row, first, inside - 1);
        FillSpan(raster_, box_.top() + row, box_.left() + inside, box_.left() + insideLast, fill_);
        DrawOutline(row, insideLast + 1, last);
    }

    void DrawOutline(int row, int first, int last) {
        const int y = box_.top() + row;
        if (!stroke_.dotted) {
            FillSpan(raster_, y, box_.left() + first, box_.left() + last, stroke_.colour);
            return;
        }
        for (int column = first; column <= last; ++column) {
            QRgb colour = fill_;
            stroke_.ColourAt(way_.At(column, row), colour);
            FillSpan(raster_, y, box_.left() + column, box_.left() + column, colour);
        }
    }

    const Raster& raster_;
    QRect box_;
    Stroke stroke_;
    QRgb fill_;
    OutlineWay way_;
    Insets outer_;
    Insets inner_;
};

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

// The common case of thousands of thin lines: everything inside, nothing to test.
void DrawThinRun(const Raster& raster, const LineRun& run, QRgb colour) {
    QRgb* start = raster.Row(run.start.y()) + run.start.x();
    const qsizetype along = run.alongX ? run.step : run.step * raster.stride;
    const qsizetype across = run.alongX ? raster.stride : 1;
    std::int64_t place = 0x8000;
    for (int index = 0; index < run.count; ++index, place += run.drift) {
        start[index * along + (place >> 16U) * across] = colour;
    }
}

std::uint32_t Mix(std::uint32_t under, std::uint32_t over, std::uint32_t coverage) {
    return (under * (255U - coverage) + over * coverage + 127U) / 255U;
}

QRgb Blend(QRgb under, QRgb over, std::uint32_t coverage) {
    const auto channel = [&](unsigned shift) {
        return Mix((under >> shift) & 0xFFU, (over >> shift) & 0xFFU, coverage) << shift;
    };
    return 0xFF000000U | channel(16U) | channel(8U) | channel(0U);
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

void DrawEllipse(const Raster& raster, const QRect& box, const Stroke& stroke, QRgb fill) {
    if (box.width() > 0 && box.height() > 0 && box.intersects(raster.clip)) {
        EllipsePainter(raster, box, stroke, fill).Draw();
    }
}

void DrawLineRun(const Raster& raster, const LineRun& run, const Stroke& stroke) {
    if (run.count <= 0) {
        return;
    }
    if (stroke.width == 1 && !stroke.dotted && raster.clip.contains(BoundsOf(run, 1))) {
        DrawThinRun(raster, run, stroke.colour);
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
    const QRect inside = QRect(place, QSize(mask.width, mask.height)) & raster.clip;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        const std::uint8_t* coverage =
            mask.coverage + static_cast<qsizetype>(y - place.y()) * mask.width - place.x();
        QRgb* row = raster.Row(y);
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (coverage[x] != 0) {
                row[x] = Blend(row[x], colour, coverage[x]);
            }
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
