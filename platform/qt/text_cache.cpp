#include "platform/qt/text_cache.h"

#include <QFontMetrics>
#include <QPainter>
#include <memory>

#include "platform/qt/convert.h"

namespace toolkit {

namespace {

constexpr int kInterfacePixels = 11;
constexpr std::size_t kMostRuns = 4096;

// The old bitmap faces have cuts for sizes that no outline face is legible at.
bool IsBitmapFace(const CString& face) {
    return face.empty() || face == "MS Sans Serif" || face == "MS Shell Dlg";
}

// `corner` is the text's corner in the image.
Mask TakeMask(const QImage& image, QPoint corner) {
    Mask mask;
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const auto alpha = static_cast<unsigned>(qAlpha(row[x]));
            if (alpha == 0) {
                continue;
            }
            const QPoint place = QPoint(x, y) - corner;
            mask.pixels.push_back({static_cast<std::int16_t>(place.x()),
                                   static_cast<std::int16_t>(place.y()), alpha + (alpha >> 7U)});
            mask.box |= QRect(place, QSize(1, 1));
        }
    }
    return mask;
}

}  // namespace

QFont InterfaceFont() {
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(kInterfacePixels);
    return font;
}

QFont MakeFont(const CFont& description) {
    if (IsBitmapFace(description.face)) {
        QFont font = InterfaceFont();
        font.setWeight(static_cast<QFont::Weight>(description.weight));
        return font;
    }
    QFont font(ToQt(description.face));
    font.setWeight(static_cast<QFont::Weight>(description.weight));
    const int cell = std::max(1, description.height);
    font.setPixelSize(cell);
    // The description gives the height of the whole cell, the toolkit wants that of the em.
    const int height = std::max(1, QFontMetrics(font).height());
    font.setPixelSize(std::max(1, cell * cell / height));
    return font;
}

TextCache& TextCache::For(const CFont& font, qreal ratio) {
    static std::vector<std::unique_ptr<TextCache>> caches;
    for (const auto& cache : caches) {
        if (cache->ratio_ == ratio && cache->font_ == font) {
            return *cache;
        }
    }
    caches.push_back(std::unique_ptr<TextCache>(new TextCache(font, ratio)));
    return *caches.back();
}

const TextRun& TextCache::Run(std::string_view text) {
    if (last_ != nullptr && last_->first == text) {
        return last_->second;
    }
    auto found = runs_.find(text);
    if (found == runs_.end()) {
        if (runs_.size() >= kMostRuns) {
            runs_.clear();
        }
        const CString key(text);
        found = runs_.emplace(key, Draw(ToQt(key))).first;
    }
    last_ = &*found;
    return found->second;
}

TextRun TextCache::Draw(const QString& text) const {
    const QFont font = MakeFont(font_);
    const QFontMetrics metrics(font);
    TextRun run;
    run.extent = {metrics.horizontalAdvance(text), metrics.height()};
    if (run.extent.cx <= 0) {
        return run;
    }
    // Slanted ends of letters may stand out of the advance.
    constexpr int kMargin = 2;
    const QSizeF size(run.extent.cx + 2 * kMargin, run.extent.cy + 2 * kMargin);
    QImage image((size * ratio_).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio_);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(kMargin, kMargin + metrics.ascent(), text);
    painter.end();
    run.mask = TakeMask(image, QPoint(qRound(kMargin * ratio_), qRound(kMargin * ratio_)));
    return run;
}

}  // namespace toolkit
