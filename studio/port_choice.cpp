#include "studio/port_choice.h"

#include <QFileDialog>

namespace {

constexpr char kOwnPortName[] = "position";

using Kind = OutputChoice::Kind;

// An ampersand would be taken for a key mark.
QString Caption(const QString& before, const CString& name, const QString& behind = {}) {
    return before + QString::fromStdString(name).replace('&', "&&") + behind;
}

}  // namespace

PortChoice::PortChoice(QMenu& menu, DeviceLink& link, const std::string& remembered)
    : menu_(menu), link_(link) {
    link_.Choose(ChoiceOf(remembered));
    connect(&menu_, &QMenu::aboutToShow, this, [this] { Fill(); });
    Fill();
}

void PortChoice::Fill() {
    const PortFinder::Found found = finder_.Look();
    book_.Update(found.ports);
    if (link_.Choice() && link_.Choice()->kind == Kind::port) {
        book_.Remember({link_.Choice()->system, link_.Choice()->name});
    }
    menu_.clear();
    AddChoice(tr("&No Device"), std::nullopt);
    AddPorts();
    AddOwnPorts(found);
    AddPath();
    AddRemarks(found);
}

void PortChoice::AddPorts() {
    menu_.addSeparator();
    for (const auto& [port, connected] : book_.Entries()) {
        AddChoice(Caption(QString(MidiSystemName(port.system)) + ": ", port.name,
                          connected ? QString() : tr(" (disconnected)")),
                  OutputChoice{Kind::port, port.system, port.name});
    }
}

void PortChoice::AddOwnPorts(const PortFinder::Found& found) {
    menu_.addSeparator();
    for (const MidiSystem system : {MidiSystem::alsa, MidiSystem::jack}) {
        const OutputChoice own{Kind::ownPort, system, kOwnPortName};
        if (found.Has(system) || link_.Choice() == own) {
            AddChoice(tr("Own %1 Port, for Others to Connect to").arg(MidiSystemName(system)), own);
        }
    }
}

void PortChoice::AddPath() {
    menu_.addSeparator();
    if (link_.Choice() && link_.Choice()->kind == Kind::path) {
        AddChoice(Caption({}, link_.Choice()->name), link_.Choice());
    }
    menu_.addAction(tr("&File, Pipe or Raw Device..."), this, [this] { AskForPath(); });
}

void PortChoice::AddRemarks(const PortFinder::Found& found) {
    menu_.addSeparator();
    for (const CString& remark : found.remarks) {
        menu_.addAction(Caption({}, remark))->setEnabled(false);
    }
}

void PortChoice::AddChoice(const QString& text, const std::optional<OutputChoice>& choice) {
    QAction* action = menu_.addAction(text, this, [this, choice] { Choose(choice); });
    action->setCheckable(true);
    action->setChecked(link_.Choice() == choice);
}

void PortChoice::AskForPath() {
    const QString path = QFileDialog::getSaveFileName(
        menu_.parentWidget(), tr("Send to File, Pipe or Raw Device"), {}, {}, nullptr,
        QFileDialog::DontConfirmOverwrite);  // It is written on at its end.
    if (!path.isEmpty()) {
        Choose(OutputChoice{Kind::path, MidiSystem::alsa, path.toStdString()});
    }
}

void PortChoice::Choose(const std::optional<OutputChoice>& choice) {
    link_.Choose(choice);
    if (onChosen) {
        onChosen(choice ? TextOf(*choice) : std::string());
    }
}
