#pragma once

#include <QMenu>
#include <QObject>
#include <functional>
#include <string>

#include "ports/port_finder.h"
#include "studio/device_link.h"

/// The menu of what the editor can send to. It looks anew each time it opens; a port that was
/// there once, or was chosen in an earlier session, stays in it as disconnected. Main thread.
class PortChoice : public QObject {
public:
    /// Fills `menu`, now and whenever it opens, and chooses what `remembered` says (a line of
    /// TextOf, "" for no device). Both references outlive this object.
    PortChoice(QMenu& menu, DeviceLink& link, const std::string& remembered);

    /// Told of every choice of the user, as a line for the settings.
    std::function<void(const std::string& line)> onChosen;

private:
    void Fill();
    void AddPorts();
    void AddOwnPorts(const PortFinder::Found& found);
    void AddPath();
    void AddRemarks(const PortFinder::Found& found);
    void AddChoice(const QString& text, const std::optional<OutputChoice>& choice);
    void AskForPath();
    void Choose(const std::optional<OutputChoice>& choice);

    QMenu& menu_;
    DeviceLink& link_;
    PortFinder finder_;
    PortBook book_;
};
