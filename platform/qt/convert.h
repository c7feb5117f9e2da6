#pragma once

#include <QColor>
#include <QRect>
#include <QString>

#include "platform/types.h"

/// Between the platform's vocabulary and the toolkit's.
namespace toolkit {

inline QString ToQt(const CString& text) {
    return QString::fromStdString(text);
}
inline CString FromQt(const QString& text) {
    return text.toStdString();
}

/// An opaque pixel of the toolkit, red in the third byte.
inline QRgb ToPixel(COLORREF colour) {
    return qRgb(GetRValue(colour), GetGValue(colour), GetBValue(colour));
}
inline QColor ToColour(COLORREF colour) {
    return QColor::fromRgb(ToPixel(colour));
}
inline COLORREF FromColour(const QColor& colour) {
    return RGB(static_cast<unsigned>(colour.red()), static_cast<unsigned>(colour.green()),
               static_cast<unsigned>(colour.blue()));
}

inline RECT FromQt(const QRect& rect) {
    return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}
inline QRect ToQt(const RECT& rect) {
    return {rect.left, rect.top, Width(rect), Height(rect)};
}

}  // namespace toolkit
