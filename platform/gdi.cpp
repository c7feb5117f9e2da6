#include "platform/gdi.h"

#include <utility>

#include "platform/dialog_template.h"

bool CBitmap::LoadBitmap(UINT id) {
    *this = CBitmap();
    const PictureResource* picture = FindBitmap(id);
    if (picture == nullptr) {
        return false;
    }
    resourceId_ = id;
    size_ = {picture->size, picture->size};
    return true;
}

void CBitmap::SetStorage(std::shared_ptr<BitmapStorage> storage, SIZE size) {
    storage_ = std::move(storage);
    size_ = size;
}

CDC::~CDC() = default;

CPen CDC::SelectObject(const CPen& pen) {
    return std::exchange(pen_, pen);
}

CBrush CDC::SelectObject(const CBrush& brush) {
    return std::exchange(brush_, brush);
}

CFont CDC::SelectObject(const CFont& font) {
    return std::exchange(font_, font);
}

int CDC::SetBkMode(int mode) {
    return std::exchange(backgroundMode_, mode);
}

COLORREF CDC::SetBkColor(COLORREF colour) {
    return std::exchange(backgroundColour_, colour);
}

COLORREF CDC::SetTextColor(COLORREF colour) {
    return std::exchange(textColour_, colour);
}
