// A session of the program that edits, saves and goes on until it is killed: for the test of what
// a crash may cost. The clock is the script's own and runs fast. Each step tells on stdout how many
// events may be left if it is the last one: the fewest, the most, and in the file those of the last
// save that is done or of the one that begins; -1 none. At first both are what was found.
//     editing_session FILE SEED

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <deque>
#include <iostream>
#include <random>
#include <string>

#include "dialog/control_ids.h"
#include "platform/hooks.h"
#include "studio/main_window.h"

namespace {

struct Account {
    // Written at once: the end may come at any time.
    void Tell(int most) const {
        std::cout << fewest << ' ' << most << ' ' << saved << ' ' << begun << std::endl;
    }
    void Add(DWORD clock) {
        added.emplace_back(++count, clock);
        for (; added.front().second + 10000 <= clock; added.pop_front()) {
            fewest = added.front().first;
        }
        Tell(count + 1);
    }

    int count = 0, fewest = 0, saved = -1, begun = -1;
    std::deque<std::pair<int, DWORD>> added;  // in the last ten seconds: how many, and when
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    std::mt19937 random(static_cast<unsigned>(std::stoul(argv[2])));
    DWORD clock = 1000;
    Hooks().tickCount = [&clock] { return clock; };
    CZurSMWMan link;
    MainWindow window(link);
    Account account;
    const auto step = [&] {
        if (const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            box->buttons().constFirst()->click();  // the autosaved version
            return;
        }
        COrbixMainDlg* dialog = window.OpenDialog();
        if (dialog == nullptr || !dialog->IsWindowVisible()) {
            return;
        }
        dialog->GetDlgItem(kListEvents)->SetFocus();
        clock += static_cast<DWORD>(100 + random() % 1900);
        window.AutosaveTick();
        if (random() % 8 == 0 && dialog->GetModified()) {
            account.begun = account.count;
            account.Tell(account.count);
            dialog->SendMessage(WM_COMMAND, kBtnOk);
            return;
        }
        dialog->GetDlgItem(kEditMeasure)->SetWindowText(std::to_string(account.count + 1));
        dialog->SendMessage(WM_COMMAND, kBtnAdd);
        account.Add(clock);
    };
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, step);
    timer.start(0);
    window.show();
    std::string reason;
    if (!window.OfferRecovery(argv[1]) && !window.Open(argv[1], reason)) {
        std::cerr << reason << std::endl;
        return 1;
    }
    account.count = account.fewest = window.CurrentDocument().Events().CountEvents(0);
    for (account.Tell(account.count);; account.Tell(account.count)) {
        window.EditEvents();
        account.fewest = account.saved = account.count;
    }
}
