// memory_probe editor|template|plain|empty: the process's resident memory in kB while it shows the
// editor with a full table, the editor's template with nothing behind it, a dialog of the toolkit's
// own with one control of each common kind and as many rows, or an empty dialog of the toolkit.

#include <unistd.h>

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
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

void ShowBare(QDialog& dialog) {
    dialog.resize(659, 583);
    dialog.show();
    dialog.repaint();
    PrintMemory();
}

void ShowEmptyDialog() {
    QDialog dialog;
    ShowBare(dialog);
}

void ShowPlainControls() {
    QDialog dialog;
    auto* rows = new QTreeWidget;
    for (int row = 0; row < 1280; ++row) {
        rows->addTopLevelItem(new QTreeWidgetItem({"1:1:0"}));
    }
    auto* layout = new QVBoxLayout(&dialog);
    for (QWidget* control : std::initializer_list<QWidget*>{
             new QLabel("Name"), new QPushButton("OK"), new QComboBox, new QLineEdit("0"), rows}) {
        layout->addWidget(control);
    }
    ShowBare(dialog);
}

}  // namespace

int main(int argc, char** argv) {
    Application();
    const std::string_view what = argc > 1 ? argv[1] : "";
    if (what == "editor") {
        ShowEditor();
    } else if (what == "template") {
        ShowTemplate();
    } else if (what == "plain") {
        ShowPlainControls();
    } else {
        ShowEmptyDialog();
    }
}
