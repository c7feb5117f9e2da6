#include "platform/dispatch.h"

#include <utility>

#include "platform/controls.h"
#include "platform/native.h"

namespace dispatch {

namespace {

HWND lockedDialog = nullptr;
const CurrentMessage* currentMessage = nullptr;

class CurrentScope {
public:
    explicit CurrentScope(const CurrentMessage& message)
        : previous_(std::exchange(currentMessage, &message)) {}
    ~CurrentScope() { currentMessage = previous_; }
    CurrentScope(const CurrentScope&) = delete;
    CurrentScope& operator=(const CurrentScope&) = delete;

private:
    const CurrentMessage* previous_;
};

constexpr WPARAM PackCommand(int id, UINT code) {
    return (static_cast<WPARAM>(code) << 16U) | (static_cast<WPARAM>(id) & 0xFFFFU);
}

bool Matches(const MessageEntry& entry, UINT message, UINT code, UINT id, bool reflected) {
    return entry.message == message && entry.code == code && entry.reflected == reflected &&
           id >= entry.firstId && id <= entry.lastId;
}

}  // namespace

LockoutScope::LockoutScope(HWND dialog) : previous_(std::exchange(lockedDialog, dialog)) {}

LockoutScope::~LockoutScope() {
    lockedDialog = previous_;
}

const CurrentMessage* Current() {
    return currentMessage;
}

const MessageEntry* FindEntry(const CWnd& target, UINT message, UINT code, UINT id,
                              bool reflected) {
    for (const MessageMap* map = target.GetMessageMap(); map != nullptr; map = map->base) {
        for (const MessageEntry& entry : map->entries) {
            if (Matches(entry, message, code, id, reflected)) {
                return &entry;
            }
        }
    }
    return nullptr;
}

std::unique_ptr<CWnd> MakePlainControl(ControlKind kind) {
    switch (kind) {
        case ControlKind::pushButton:
        case ControlKind::iconButton:
        case ControlKind::checkBox:
        case ControlKind::autoCheckBox:
        case ControlKind::pushLikeCheck:
        case ControlKind::radioButton:
            return std::make_unique<CButton>();
        case ControlKind::edit:
            return std::make_unique<CEdit>();
        case ControlKind::comboBox:
            return std::make_unique<CComboBox>();
        case ControlKind::list:
            return std::make_unique<CListCtrl>();
        case ControlKind::slider:
            return std::make_unique<CSliderCtrl>();
        case ControlKind::spin:
            return std::make_unique<CSpinButtonCtrl>();
        case ControlKind::tab:
            return std::make_unique<CTabCtrl>();
        case ControlKind::groupBox:
        case ControlKind::staticText:
        case ControlKind::placeFrame:
        case ControlKind::customStatic:
            break;
    }
    return std::make_unique<CStatic>();
}

bool PreTranslate(MSG& message) {
    for (HWND window = message.hwnd; window != nullptr; window = native::GetParent(window)) {
        CWnd* owner = native::GetOwner(window);
        if (owner == nullptr || owner->PreTranslateMessage(&message) != FALSE) {
            return true;  // Taken, or the window went away under it.
        }
    }
    return false;
}

LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* owner = native::GetOwner(window);
    if (owner == nullptr) {
        return 0;
    }
    const CurrentMessage current{message, wParam, lParam};
    const CurrentScope scope(current);
    return owner->WindowProc(message, wParam, lParam);
}

void Command(HWND control, UINT code) {
    HWND parent = native::GetParent(control);
    if (parent != nullptr && parent != lockedDialog) {
        Send(parent, WM_COMMAND, PackCommand(native::GetControlId(control), code),
             reinterpret_cast<LPARAM>(control));
    }
}

LRESULT Notify(NMHDR& header) {
    HWND control = header.hwndFrom;
    HWND parent = native::GetParent(control);
    CWnd* owner = native::GetOwner(control);
    if (parent == nullptr || parent == lockedDialog || owner == nullptr) {
        return 0;
    }
    header.idFrom = static_cast<UINT>(native::GetControlId(control));
    const MessageEntry* reflected =
        FindEntry(*owner, WM_NOTIFY, static_cast<UINT>(header.code), header.idFrom, true);
    if (reflected != nullptr) {
        MessageCall call{header.idFrom, reinterpret_cast<LPARAM>(&header), 0};
        reflected->thunk(*owner, call);
        return call.result;
    }
    return Send(parent, WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

}  // namespace dispatch
