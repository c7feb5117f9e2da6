#include "platform/qt/pictures.h"

#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>
#include <map>
#include <memory>
#include <utility>

#include "sequence/large_pages.h"

namespace toolkit {

namespace {

// Smaller ones would leave most of a large page unused.
constexpr std::size_t kLargeCanvas = kLargePage / 2;

/// The memory behind a canvas.
struct CanvasPages {
    explicit CanvasPages(std::size_t bytes)
        : length((bytes + kLargePage - 1) / kLargePage * kLargePage), begin(ReservePages(length)) {
        if (begin != nullptr) {
            PreferLargePages(begin, length);
        }
    }
    ~CanvasPages() {
        if (begin != nullptr) {
            ReleasePages(begin, length);
        }
    }
    CanvasPages(const CanvasPages&) = delete;
    CanvasPages& operator=(const CanvasPages&) = delete;

    std::size_t length;
    std::byte* begin;
};

void DropCanvasPages(void* pages) {
    delete static_cast<CanvasPages*>(pages);
}

void DrawSvg(const PictureResource& picture, QPainter& painter, const QRectF& place) {
    QSvgRenderer renderer(QByteArray(picture.svg));
    renderer.render(&painter, place);
}

/// Draws the resource anew for each size in pixels and keeps what it drew.
class PictureEngine : public QIconEngine {
public:
    explicit PictureEngine(const PictureResource& picture) : picture_(picture) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const qreal ratio = painter->device()->devicePixelRatioF();
        QPixmap drawn = At((QSizeF(rect.size()) * ratio).toSize(), mode);
        drawn.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect.topLeft(), drawn);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        return At(size, mode);
    }

    QIconEngine* clone() const override { return new PictureEngine(picture_); }

private:
    QPixmap At(const QSize& size, QIcon::Mode mode) {
        const auto key = std::make_pair(std::make_pair(size.width(), size.height()), mode);
        const auto found = drawn_.find(key);
        if (found != drawn_.end()) {
            return found->second;
        }
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        if (mode == QIcon::Disabled) {
            constexpr qreal kDim = 0.35;
            painter.setOpacity(kDim);
        }
        DrawSvg(picture_, painter, QRectF(QPointF(0, 0), QSizeF(size)));
        painter.end();
        return drawn_.emplace(key, pixmap).first->second;
    }

    const PictureResource& picture_;
    std::map<std::pair<std::pair<int, int>, QIcon::Mode>, QPixmap> drawn_;
};

}  // namespace

QImage MakeCanvas(QSize size) {
    const qsizetype stride = size.width() * static_cast<qsizetype>(sizeof(QRgb));
    const auto bytes = static_cast<std::size_t>(stride * size.height());
    if (bytes < kLargeCanvas) {
        return {size, QImage::Format_RGB32};
    }
    auto pages = std::make_unique<CanvasPages>(bytes);
    if (pages->begin == nullptr) {
        return {};
    }
    auto* const pixels = reinterpret_cast<uchar*>(pages->begin);
    return {pixels,           size.width(),   size.height(), stride, QImage::Format_RGB32,
            &DropCanvasPages, pages.release()};
}

std::shared_ptr<ImageStorage> StorageOf(CBitmap& bitmap, qreal ratio) {
    auto storage = std::dynamic_pointer_cast<ImageStorage>(bitmap.Storage());
    const PictureResource* picture =
        bitmap.ResourceId() == 0 ? nullptr : FindBitmap(bitmap.ResourceId());
    if (picture == nullptr || (storage != nullptr && storage->ratio == ratio)) {
        return storage;
    }
    const int pixels = qRound(picture->size * ratio);
    QImage image(pixels, pixels, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    DrawSvg(*picture, painter, QRectF(0, 0, pixels, pixels));
    painter.end();
    storage = std::make_shared<ImageStorage>(std::move(image), ratio);
    bitmap.SetStorage(storage, {picture->size, picture->size});
    return storage;
}

QIcon MakeIcon(UINT iconId) {
    const PictureResource* picture = FindIcon(iconId);
    return picture == nullptr ? QIcon() : QIcon(new PictureEngine(*picture));
}

}  // namespace toolkit
