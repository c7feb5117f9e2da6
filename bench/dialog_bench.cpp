// What the editor dialog costs at a full table, on the offscreen platform.

#include <benchmark/benchmark.h>

#include "bench/bench_dialog.h"
#include "bench/full_table.h"

namespace {

constexpr WPARAM kAdd = 4031;
constexpr WPARAM kUndo = 4003;

void OpenPaintAndClose(benchmark::State& state) {
    Application();
    CQelCPB_3DPattern pattern;
    if (state.range(0) != 0) {
        StoreFullTable(pattern);
    }
    CZurSMWMan link;
    for (auto _ : state) {
        BenchDialog dialog(pattern, link);
        dialog.Run([](QWidget&) {});
    }
}
BENCHMARK(OpenPaintAndClose)->ArgName("full")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void OpenPaintAndCloseBareTemplate(benchmark::State& state) {
    Application();
    for (auto _ : state) {
        BareEditor dialog;
        RunPainted(dialog, [](QWidget&) {});
    }
}
BENCHMARK(OpenPaintAndCloseBareTemplate)->Unit(benchmark::kMillisecond);

// From the click on Add to the painted list and planes; taken back outside the measurement.
void ClickAddToPainted(benchmark::State& state) {
    Application();
    C3DEventData table = FullTable();
    int last = table.CountEvents(-1) - 1;
    while (table.EventAt(last).type != kEventPosition || table.EventAt(last).id != 0) {
        --last;
    }
    table.RemoveEvent(last);  // Room for one more of ID 0, which the fields name at the start.
    CQelCPB_3DPattern pattern;
    table.StoreToPattern(&pattern, "Full");
    CZurSMWMan link;
    BenchDialog dialog(pattern, link);
    dialog.Run([&](QWidget& window) {
        dialog.SetEnableSettingType(COrbixMainDlg::kSettingPosition);
        for (auto _ : state) {
            dialog.SendMessage(WM_COMMAND, kAdd);
            window.repaint();
            state.PauseTiming();
            dialog.SendMessage(WM_COMMAND, kUndo);
            dialog.SetEnableSettingType(COrbixMainDlg::kSettingPosition);
            window.repaint();
            state.ResumeTiming();
        }
    });
}
BENCHMARK(ClickAddToPainted)->Unit(benchmark::kMillisecond);

}  // namespace
