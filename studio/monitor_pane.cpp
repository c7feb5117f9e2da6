#include "studio/monitor_pane.h"

#include <QHeaderView>
#include <QTime>

#include "params/device_placement.h"

namespace {

QString Metres(std::uint32_t millimetres) {
    return QString::number(millimetres / 1000.0, 'f', 2) + " m";
}

QString Degrees(int degrees) {
    return QString::number(degrees) + QChar(0x00B0);
}

// ID, distance, azimuth and elevation; empty where the bytes say no placement.
QStringList PlacementTexts(const std::string& bytes) {
    const auto placement = ReadDeviceMessage(bytes);
    if (!placement) {
        return {{}, {}, {}, {}};
    }
    return {QString::number(placement->id), Metres(placement->distance),
            Degrees(placement->azimuth), Degrees(placement->elevation)};
}

}  // namespace

MonitorPane::MonitorPane(QWidget* parent)
    : QDockWidget(tr("Device Monitor"), parent), table_(new QTableWidget(this)) {
    setObjectName("monitorPane");
    const QStringList titles{tr("Time"),    tr("Bytes"),     tr("ID"),    tr("Distance"),
                             tr("Azimuth"), tr("Elevation"), tr("Device")};
    table_->setColumnCount(static_cast<int>(titles.size()));
    table_->setHorizontalHeaderLabels(titles);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setWordWrap(false);
    table_->setAccessibleName(tr("What was sent to the device"));
    setWidget(table_);
}

void MonitorPane::Note(const DeviceLink::Sent& sent) {
    const QString time = QTime::currentTime().toString("HH:mm:ss.zzz");
    QMetaObject::invokeMethod(this, [this, time, sent] { AddRow(time, sent); });
}

void MonitorPane::AddRow(const QString& time, const DeviceLink::Sent& sent) {
    if (table_->rowCount() >= kMostRows) {
        table_->removeRow(0);
    }
    const QByteArray bytes(sent.bytes.data(), static_cast<qsizetype>(sent.bytes.size()));
    const QStringList texts =
        QStringList{time, QString::fromLatin1(bytes.toHex(' ').toUpper())} +
        PlacementTexts(sent.bytes) +
        QStringList{sent.taken ? tr("taken")
                               : tr("not taken: %1").arg(QString::fromStdString(sent.reason))};
    const int row = table_->rowCount();
    table_->insertRow(row);
    for (int column = 0; column < table_->columnCount(); ++column) {
        table_->setItem(row, column, new QTableWidgetItem(texts[column]));
    }
    table_->resizeColumnsToContents();
    table_->scrollToBottom();
}
