#pragma once

#include <QMainWindow>

#include "studio/device_link.h"
#include "studio/monitor_pane.h"
#include "studio/port_choice.h"
#include "studio/studio_settings.h"

/// The device's place in a window: the menu "Device" with the choice of the output, and the
/// monitor as a pane. The choice is remembered from session to session. Main thread.
class DeviceDesk {
public:
    /// Both outlive this object.
    DeviceDesk(QMainWindow& window, DeviceLink& link);

private:
    StudioSettings settings_;
    MonitorPane& monitor_;
    QMenu menu_;
    QMenu outputs_;
    PortChoice choice_;
};
