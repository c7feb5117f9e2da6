// memory_probe editor|template|empty: the process's resident memory in kB while the editor shows a
// full table, while its template is shown with nothing behind it, or an empty dialog of the
// toolkit.

#include <unistd.h>

#include <QDialog>
#include <cstdio>
#include <fstream>
#include <string_view>

#include "bench/bench_dialog.h"
#include "bench/full_table.h"

namespace {

long ResidentKilobytes() {
    long total = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * sysconf(_SC_PAGESIZE) / 1024;
}

void PrintMemory() {
    QCoreApplication::processEvents();
    std::printf("%ld\n", ResidentKilobytes());
}

void ShowEditor() {
    CQelCPB_3DPattern pattern;
    StoreFullTable(pattern);
    CZurSMWMan link;
    BenchDialog dialog(pattern, link);
    dialog.Run([](QWidget&) { PrintMemory(); });
}

void ShowTemplate() {
    BareEditor dialog;
    RunPainted(dialog, [](QWidget&) { PrintMemory(); });
}

void ShowEmptyDialog() {
    QDialog dialog;
    dialog.resize(659, 583);
    dialog.show();
    dialog.repaint();
    PrintMemory();
}

}  // namespace

int main(int argc, char** argv) {
    Application();
    const std::string_view what = argc > 1 ? argv[1] : "";
    if (what == "editor") {
        ShowEditor();
    } else if (what == "template") {
        ShowTemplate();
    } else {
        ShowEmptyDialog();
    }
}
