#include <algorithm>
#include <cmath>
#include <list>

#include "platform/qt/raster.h"

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

struct Span {
    int row;
    int first;
    int last;
};

/// An ellipse of one size and pen width as the spans of its outline and of what lies inside.
struct EllipseShape {
    std::vector<Span> outline;
    std::vector<Span> inside;
};

class ShapeMaker {
public:
    ShapeMaker(int width, int height, int penWidth)
        : width_(width),
          height_(height),
          penWidth_(penWidth),
          outer_(ComputeInsets(width, height)) {
        if (penWidth > 1 && width > 2 * penWidth && height > 2 * penWidth) {
            inner_ = ComputeInsets(width - 2 * penWidth, height - 2 * penWidth);
        }
    }

    EllipseShape Make() const {
        EllipseShape shape;
        for (int row = 0; row < height_; ++row) {
            AddRow(row, shape);
        }
        return shape;
    }

private:
    int Outer(int row) const {
        return row < 0 || row >= height_ ? width_ : outer_[static_cast<std::size_t>(row)];
    }

    // The first column inside the outline. A thin outline is made of the pixels that have a
    // neighbour outside, a thicker one lies between the box's ellipse and a smaller one.
    int Inner(int row) const {
        if (penWidth_ <= 1) {
            return std::max({Outer(row) + 1, Outer(row - 1), Outer(row + 1)});
        }
        const int innerRow = row - penWidth_;
        if (innerRow < 0 || innerRow >= static_cast<int>(inner_.size())) {
            return width_;
        }
        return std::max(Outer(row) + 1, penWidth_ + inner_[static_cast<std::size_t>(innerRow)]);
    }

    void AddRow(int row, EllipseShape& shape) const {
        const int first = Outer(row);
        const int last = width_ - 1 - first;
        const int inside = Inner(row);
        const int insideLast = width_ - 1 - inside;
        if (inside > insideLast) {
            shape.outline.push_back({row, first, last});
            return;
        }
        shape.outline.push_back({row, first, inside - 1});
        shape.inside.push_back({row, inside, insideLast});
        shape.outline.push_back({row, insideLast + 1, last});
    }

    int width_;
    int height_;
    int penWidth_;
    Insets outer_;
    Insets inner_;
};

// Dots have one size and rings a few at a time, so a small cache always hits.
const EllipseShape& ShapeOf(int width, int height, int penWidth) {
    struct Entry {
        int width;
        int height;
        int penWidth;
        EllipseShape shape;
    };
    static std::list<Entry> cache;
    constexpr std::size_t kMostShapes = 16;
    const auto found = std::find_if(cache.begin(), cache.end(), [&](const Entry& entry) {
        return entry.width == width && entry.height == height && entry.penWidth == penWidth;
    });
    if (found != cache.end()) {
        cache.splice(cache.begin(), cache, found);
        return found->shape;
    }
    if (cache.size() == kMostShapes) {
        cache.pop_back();
    }
    cache.push_front({width, height, penWidth, ShapeMaker(width, height, penWidth).Make()});
    return cache.front().shape;
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

void FillSpans(const Raster& raster, const QRect& box, const std::vector<Span>& spans,
               QRgb colour) {
    if (!raster.clip.contains(box)) {
        for (const Span& span : spans) {
            FillSpan(raster, box.top() + span.row, box.left() + span.first, box.left() + span.last,
                     colour);
        }
        return;
    }
    QRgb* corner = raster.Row(box.top()) + box.left();
    for (const Span& span : spans) {
        QRgb* row = corner + span.row * raster.stride;
        std::fill(row + span.first, row + span.last + 1, colour);
    }
}

void DrawDottedOutline(const Raster& raster, const QRect& box, const std::vector<Span>& outline,
                       const Stroke& stroke, QRgb fill) {
    const OutlineWay way(box);
    for (const Span& span : outline) {
        for (int column = span.first; column <= span.last; ++column) {
            QRgb colour = fill;
            stroke.ColourAt(way.At(column, span.row), colour);
            FillSpan(raster, box.top() + span.row, box.left() + column, box.left() + column,
                     colour);
        }
    }
}

}  // namespace

void DrawEllipse(const Raster& raster, const QRect& box, const Stroke& stroke, QRgb fill) {
    if (box.width() <= 0 || box.height() <= 0 || !box.intersects(raster.clip)) {
        return;
    }
    const EllipseShape& shape = ShapeOf(box.width(), box.height(), stroke.width);
    FillSpans(raster, box, shape.inside, fill);
    if (stroke.dotted) {
        DrawDottedOutline(raster, box, shape.outline, stroke, fill);
    } else {
        FillSpans(raster, box, shape.outline, stroke.colour);
    }
}

}  // namespace toolkit
