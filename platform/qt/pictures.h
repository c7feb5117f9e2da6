#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>

#include "platform/dialog_template.h"
#include "platform/gdi.h"

/// Pictures of the resources, drawn at the pixel ratio they are used at.
namespace toolkit {

struct ImageStorage : BitmapStorage {
    ImageStorage(QImage pixels, qreal pixelRatio) : image(std::move(pixels)), ratio(pixelRatio) {
        image.setDevicePixelRatio(ratio);
    }
    QImage image;
    qreal ratio;
};

/// A picture of so many device pixels to draw on, of any content; null without memory. A large
/// one's memory goes back to the system with it: the frame of a window is wanted for a moment only,
/// and an allocator would keep it for the next.
QImage MakeCanvas(QSize size);

/// The storage of a bitmap at this ratio, drawn from its resource when it has none yet; null for
/// an empty bitmap.
std::shared_ptr<ImageStorage> StorageOf(CBitmap& bitmap, qreal ratio);

/// An icon that is sharp at every size; empty when no resource has the number.
QIcon MakeIcon(UINT iconId);

}  // namespace toolkit
