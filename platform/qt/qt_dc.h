#pragma once

#include "platform/gdi.h"
#include "platform/qt/pictures.h"
#include "platform/qt/raster.h"

namespace toolkit {

class TextCache;

/// The device context over an image of ours, a window's surface or a memory bitmap. Every
/// operation maps logical pixels to the image's own by its ratio, edge by edge, so that what
/// touches in logical pixels touches in the image.
class QtDC : public CDC {
public:
    /// A memory context; it draws nowhere until a bitmap is selected.
    explicit QtDC(qreal ratio) : ratio_(ratio) {}
    /// On the picture, inside `clip` in logical pixels.
    QtDC(std::shared_ptr<ImageStorage> picture, const QRect& clip);

    std::unique_ptr<CDC> CreateCompatibleDC() override;
    CBitmap CreateCompatibleBitmap(int width, int height) override;
    void SelectBitmap(CBitmap* bitmap) override;
    void FillRect(const RECT& rect, const CBrush& brush) override;
    void Ellipse(int left, int top, int right, int bottom) override;
    void LineTo(int x, int y) override;
    void TextOut(int x, int y, std::string_view text) override;
    SIZE GetTextExtent(std::string_view text) override;
    void BitBlt(int x, int y, int width, int height, CDC& source, int sourceX, int sourceY,
                DWORD operation) override;

    /// What has been drawn on so far, in logical pixels.
    QRect Dirty() const;
    /// The colours that text and lines begin with, for windows that follow the desktop's.
    void SetForeground(COLORREF colour);

private:
    int Device(int logical) const { return qRound(logical * ratio_); }
    QRect DeviceBox(int left, int top, int right, int bottom) const;
    Stroke PenStroke() const;
    TextCache& Texts();
    void Touch(const QRect& box) { dirty_ |= box & raster_.clip; }

    qreal ratio_;
    std::shared_ptr<ImageStorage> picture_;
    Raster raster_;
    QRect dirty_;
    TextCache* texts_ = nullptr;
    CFont textsFont_;
};

}  // namespace toolkit
