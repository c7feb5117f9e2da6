#include "studio/device_desk.h"

#include <QMenuBar>

DeviceDesk::DeviceDesk(QMainWindow& window, DeviceLink& link)
    : monitor_(*new MonitorPane(&window)),  // the window's
      menu_(QObject::tr("&Device")),
      outputs_(QObject::tr("&Send to")),
      choice_(outputs_, link, settings_.Output()) {
    window.addDockWidget(Qt::BottomDockWidgetArea, &monitor_);
    window.restoreDockWidget(&monitor_);
    link.onSent = [this](const DeviceLink::Sent& sent) { monitor_.Note(sent); };
    choice_.onChosen = [this](const std::string& line) { settings_.NoteOutput(line); };
    menu_.addMenu(&outputs_);
    menu_.addAction(monitor_.toggleViewAction());
    // Help stays last.
    window.menuBar()->insertMenu(window.menuBar()->actions().constLast(), &menu_);
}
