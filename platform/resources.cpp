#include <algorithm>
#include <vector>

#include "platform/dialog_template.h"

namespace {

// Base of the dialog units: the average width and the height of a character of the interface
// font these templates were drawn for, in pixels. Fixed, so that a dialog has one layout.
constexpr int kBaseX = 6;
constexpr int kBaseY = 13;

std::vector<const ResourceTable*>& Tables() {
    static std::vector<const ResourceTable*> tables;
    return tables;
}

template <typename Resource>
const Resource* Find(UINT id, std::span<const Resource> ResourceTable::*kind) {
    for (const ResourceTable* table : Tables()) {
        for (const Resource& resource : table->*kind) {
            if (resource.id == id) {
                return &resource;
            }
        }
    }
    return nullptr;
}

constexpr LONG Scale(int units, int base, int divisor) {
    return (units * base + divisor / 2) / divisor;
}

}  // namespace

void AfxInitExtensionModule(const ResourceTable& resources) {
    Tables().push_back(&resources);
}

void AfxTermExtensionModule(const ResourceTable& resources) {
    std::erase(Tables(), &resources);
}

const DialogTemplate* FindDialogTemplate(UINT id) {
    return Find(id, &ResourceTable::dialogs);
}

const PictureResource* FindIcon(UINT id) {
    return Find(id, &ResourceTable::icons);
}

const PictureResource* FindBitmap(UINT id) {
    return Find(id, &ResourceTable::bitmaps);
}

HACCEL LoadAccelerators(UINT id) {
    return Find(id, &ResourceTable::accelerators);
}

RECT MapDialogRect(short x, short y, short width, short height) {
    return {Scale(x, kBaseX, 4), Scale(y, kBaseY, 8), Scale(x + width, kBaseX, 4),
            Scale(y + height, kBaseY, 8)};
}
