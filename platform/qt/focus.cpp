#include <QApplication>
#include <QWidget>
#include <algorithm>

#include "platform/native.h"
#include "platform/qt/radio_group.h"
#include "platform/qt/window_record.h"

// Focus and the tab order, which is the order of the templates: the controls of a page follow
// the tab control that shows it.

namespace {

using Controls = std::vector<NativeWindow*>;

bool CanTakeFocus(const NativeWindow& window, const NativeWindow& root) {
    return window.widget != nullptr && window.widget->isEnabled() &&
           window.widget->isVisibleTo(root.widget);
}

void Collect(NativeWindow& window, Controls& controls) {
    for (const auto& child : window.children) {
        if (!toolkit::IsDialog(*child)) {
            controls.push_back(child.get());
        }
        Collect(*child, controls);
    }
}

// A radio group is one stop: its checked button, else its first.
bool IsStopOfGroup(const NativeWindow& radio) {
    const Controls group = toolkit::RadioGroupOf(radio);
    const auto checked = std::find_if(group.begin(), group.end(), [](NativeWindow* button) {
        return native::GetCheck(button) != 0;
    });
    return (checked == group.end() ? group.front() : *checked) == &radio;
}

Controls TabStops(NativeWindow& root) {
    Controls all;
    Collect(root, all);
    Controls stops;
    for (NativeWindow* control : all) {
        const bool stop = control->kind == ControlKind::radioButton
                              ? IsStopOfGroup(*control)
                              : (control->flags & kTabStop) != 0;
        if (stop && CanTakeFocus(*control, root)) {
            stops.push_back(control);
        }
    }
    return stops;
}

// Where in the tab order the focus is, counted in all controls, so that it goes on from a control
// that is no stop or no longer one.
std::size_t NextStop(NativeWindow& root, const Controls& stops, bool backwards) {
    Controls all;
    Collect(root, all);
    const auto placeOf = [&](const NativeWindow* window) {
        return std::find(all.begin(), all.end(), window) - all.begin();
    };
    const NativeWindow* focus = native::GetFocus();
    const auto place = placeOf(focus);
    if (place == static_cast<std::ptrdiff_t>(all.size())) {
        return backwards ? stops.size() - 1 : 0;
    }
    if (backwards) {
        const auto after = std::find_if(stops.begin(), stops.end(), [&](const NativeWindow* stop) {
            return placeOf(stop) >= place;
        });
        return (static_cast<std::size_t>(after - stops.begin()) + stops.size() - 1) % stops.size();
    }
    const auto next = std::find_if(stops.begin(), stops.end(),
                                   [&](const NativeWindow* stop) { return placeOf(stop) > place; });
    return static_cast<std::size_t>(next - stops.begin()) % stops.size();
}

}  // namespace

namespace native {

void SetFocus(HWND window) {
    if (window != nullptr && window->widget != nullptr) {
        window->widget->setFocus(Qt::OtherFocusReason);
    }
}

HWND GetFocus() {
    if (qApp == nullptr) {
        return nullptr;
    }
    const QWidget* widget = QApplication::focusWidget();
    // A window that is not the active one yet has its focus in waiting.
    if (widget == nullptr && QApplication::activeModalWidget() != nullptr) {
        widget = QApplication::activeModalWidget()->focusWidget();
    }
    return toolkit::WindowOf(widget);
}

void FocusNext(HWND dialog, bool backwards) {
    if (dialog == nullptr || dialog->widget == nullptr) {
        return;
    }
    NativeWindow& root = toolkit::RootOf(*dialog);
    const Controls stops = TabStops(root);
    if (!stops.empty()) {
        stops[NextStop(root, stops, backwards)]->widget->setFocus(backwards ? Qt::BacktabFocusReason
                                                                            : Qt::TabFocusReason);
    }
}

void FocusFirst(HWND dialog) {
    if (dialog == nullptr || dialog->widget == nullptr) {
        return;
    }
    const Controls stops = TabStops(*dialog);
    if (!stops.empty()) {
        stops.front()->widget->setFocus(Qt::TabFocusReason);
    }
}

}  // namespace native
