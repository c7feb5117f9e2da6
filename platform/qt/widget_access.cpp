#include "platform/qt/widget_access.h"

#include "platform/qt/window_record.h"

QWidget* WidgetOfWindow(HWND window) {
    return window == nullptr ? nullptr : window->widget;
}
