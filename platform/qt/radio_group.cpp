#include "platform/qt/radio_group.h"

#include "platform/native.h"
#include "platform/qt/window_record.h"

namespace toolkit {

std::vector<NativeWindow*> RadioGroupOf(const NativeWindow& radio) {
    std::vector<NativeWindow*> group;
    bool met = false;
    for (const auto& child : radio.parent->children) {
        if ((child->flags & kGroupStart) != 0) {
            if (met) {
                break;
            }
            group.clear();
        }
        met = met || child.get() == &radio;
        if (child->kind == ControlKind::radioButton) {
            group.push_back(child.get());
        }
    }
    return group;
}

}  // namespace toolkit

namespace {

std::vector<NativeWindow*> GroupFrom(HWND dialog, int firstId) {
    const NativeWindow* first = native::GetDlgItem(dialog, firstId);
    return first == nullptr ? std::vector<NativeWindow*>() : toolkit::RadioGroupOf(*first);
}

}  // namespace

namespace native {

int RadioGroupSize(HWND dialog, int firstId) {
    return static_cast<int>(GroupFrom(dialog, firstId).size());
}

HWND RadioGroupMember(HWND dialog, int firstId, int place) {
    const std::vector<NativeWindow*> group = GroupFrom(dialog, firstId);
    const auto index = static_cast<std::size_t>(place);
    return index < group.size() ? group[index] : nullptr;
}

}  // namespace native
