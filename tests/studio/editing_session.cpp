// A session of the program that edits, saves and goes on until it is killed: for the test of what
// a crash may cost. The clock is the script's own and runs fast; every step is told on stdout:
// "r N" N events were found at the start, "e N MS" the Nth was added at that time, "S N" a save of
// N begins, "s N" it is done.
//     editing_session FILE SEED

#include <unistd.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <random>
#include <string>

#include "dialog/control_ids.h"
#include "platform/hooks.h"
#include "studio/main_window.h"

namespace {

void Tell(const std::string& line) {
    static_cast<void>(::write(1, (line + "\n").data(), line.size() + 1));
}

class Session {
public:
    Session(const std::string& file, unsigned seed) : random_(seed) {
        Hooks().tickCount = [this] { return clock_; };
        QObject::connect(&step_, &QTimer::timeout, [this] { Step(); });
        window_ = std::make_unique<MainWindow>(link_);
        window_->show();
        step_.start(0);
        std::string reason;
        if (!window_->OfferRecovery(file) && !window_->Open(file, reason)) {
            Tell(reason);
            std::_Exit(1);
        }
        count_ = window_->CurrentDocument().Events().CountEvents(0);
        Tell("r " + std::to_string(count_));
    }

    [[noreturn]] void Run() {
        for (;;) {
            window_->EditEvents();
            Tell("s " + std::to_string(count_));
        }
    }

private:
    void Step() {
        if (const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            box->buttons().constFirst()->click();  // the autosaved version
            return;
        }
        COrbixMainDlg* dialog = window_->OpenDialog();
        if (dialog == nullptr || !dialog->IsWindowVisible()) {
            return;
        }
        dialog->GetDlgItem(kListEvents)->SetFocus();
        clock_ += static_cast<DWORD>(100 + random_() % 1900);
        window_->AutosaveTick();
        if (random_() % 8 == 0 && dialog->GetModified()) {
            Tell("S " + std::to_string(count_));
            dialog->SendMessage(WM_COMMAND, kBtnOk);
            return;
        }
        dialog->GetDlgItem(kEditMeasure)->SetWindowText(std::to_string(count_ + 1));
        dialog->SendMessage(WM_COMMAND, kBtnAdd);
        ++count_;
        Tell("e " + std::to_string(count_) + " " + std::to_string(clock_));
    }

    std::mt19937 random_;
    DWORD clock_ = 1000;
    int count_ = 0;
    QTimer step_;
    CZurSMWMan link_;
    std::unique_ptr<MainWindow> window_;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Session(argv[1], static_cast<unsigned>(std::stoul(argv[2]))).Run();
}
