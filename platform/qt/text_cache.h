#pragma once

#include <QFont>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/gdi.h"
#include "platform/qt/raster.h"

namespace toolkit {

/// The font of our dialogs: 11 pixels of a face with the metrics that the templates count on.
QFont InterfaceFont();

/// The toolkit's font for a description.
QFont MakeFont(const CFont& font);

/// A short text, drawn once.
struct TextRun {
    SIZE extent;  ///< Logical pixels: advance and cell height.
    Mask mask;    ///< Device pixels.
};

/// The texts of one font at one pixel ratio. The numbers of a full picture are drawn thousands of
/// times a second and hardly ever change.
class TextCache {
public:
    /// The cache for this font and ratio, kept for the life of the process.
    static TextCache& For(const CFont& font, qreal ratio);

    const TextRun& Run(std::string_view text);

private:
    TextCache(const CFont& font, qreal ratio) : font_(font), ratio_(ratio) {}
    TextRun Draw(const QString& text) const;

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };

    CFont font_;
    qreal ratio_;
    std::unordered_map<std::string, TextRun, Hash, std::equal_to<>> runs_;
    /// The text asked for last: it is measured before it is drawn.
    const std::pair<const std::string, TextRun>* last_ = nullptr;
};

}  // namespace toolkit
