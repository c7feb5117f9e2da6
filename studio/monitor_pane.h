#pragma once

#include <QDockWidget>
#include <QTableWidget>

#include "studio/device_link.h"

/// What went to the device, a row each: when, the bytes, what they say, and whether the device
/// took them. Keeps the last kMostRows.
class MonitorPane : public QDockWidget {
public:
    explicit MonitorPane(QWidget* parent);

    /// Any thread.
    void Note(const DeviceLink::Sent& sent);

    static constexpr int kMostRows = 1000;

private:
    void AddRow(const QString& time, const DeviceLink::Sent& sent);

    QTableWidget* table_;
};
