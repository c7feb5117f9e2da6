#pragma once

#include <QImage>
#include <QRect>
#include <cstdint>
#include <vector>

/// Drawing without antialiasing straight into pixels. The toolkit's painter can do the same, at
/// many times the cost for pictures made of thousands of small dots and short texts. All
/// coordinates are device pixels.
namespace toolkit {

/// Opaque pixels to draw on, and where drawing is allowed: a rectangle inside the picture.
struct Raster {
    QRgb* pixels = nullptr;
    qsizetype stride = 0;  ///< In pixels.
    QRect clip;

    QRgb* Row(int y) const { return pixels + y * stride; }
};

/// How outlines and lines are drawn. A dotted pen has dashes and gaps of three pen widths.
struct Stroke {
    QRgb colour = 0;
    int width = 1;
    bool dotted = false;
    bool opaqueGaps = false;
    QRgb gap = 0;

    /// Colour of the pixel that lies `way` pixels along the line; false when it is left alone.
    bool ColourAt(int way, QRgb& result) const;
};

/// One pixel of a text: where it stands from the text's corner and how much of it the text covers,
/// 1 to 256 parts of 256.
struct MaskPixel {
    std::int16_t x;
    std::int16_t y;
    std::uint32_t weight;
};

/// The pixels that a text covers, and the box around them.
struct Mask {
    std::vector<MaskPixel> pixels;
    QRect box;
};

Raster RasterOf(QImage& image);

/// The pixels `first` to `last` of a row, as far as they lie inside the clip.
void FillSpan(const Raster& raster, int y, int first, int last, QRgb colour);

void FillBox(const Raster& raster, const QRect& box, QRgb colour);

/// An ellipse that fills the box exactly, outline inside it.
void DrawEllipse(const Raster& raster, const QRect& box, const Stroke& stroke, QRgb fill);

/// A line of `count` pixels from the start: each moves `step`, 1 or -1, along one axis and `drift`,
/// in 1/65536 pixel, along the other.
struct LineRun {
    QPoint start;
    int count = 0;
    bool alongX = true;
    int step = 1;
    std::int64_t drift = 0;
};

void DrawLineRun(const Raster& raster, const LineRun& run, const Stroke& stroke);

/// Lays the colour over the pixels as the mask says, the text's corner at `place`.
void BlendMask(const Raster& raster, QPoint place, const Mask& mask, QRgb colour);

/// Copies `box` of the target from `source`, whose pixel for the box's corner is `from`; parts
/// that the source has not are left out. With `combine` the bits are ANDed.
void CopyBox(const Raster& raster, const QRect& box, const QImage& source, QPoint from,
             bool combine);

}  // namespace toolkit
