// What the event model costs at a full table: 1,024 positions and 256 time signatures.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "bench/full_table.h"
#include "params/pattern_form.h"

namespace {

// The yardstick for one change: the bare double loop over as many records.
void BareDoubleLoop(benchmark::State& state) {
    const C3DEventData table = FullTable();
    std::vector<_tagEvent3D> events;
    for (int i = 0; i < table.CountEvents(-1); ++i) {
        events.push_back(table.EventAt(i));
    }
    for (auto _ : state) {
        for (std::size_t i = 0; i + 1 < events.size(); ++i) {
            for (std::size_t j = i + 1; j < events.size(); ++j) {
                if (events[i].tick > events[j].tick) {
                    std::swap(events[i], events[j]);
                }
            }
        }
        benchmark::DoNotOptimize(events.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BareDoubleLoop)->Unit(benchmark::kMicrosecond);

// One position less than full; the added one goes to the middle.
void AddAtFullTable(benchmark::State& state) {
    C3DEventData table = FullTable();
    int last = table.CountEvents(-1) - 1;
    while (table.EventAt(last).type != kEventPosition) {
        --last;
    }
    table.RemoveEvent(last);
    table.ClearHistory();
    _tagEvent3D added;
    added.id = 3;
    added.tick = 240000;
    for (auto _ : state) {
        if (table.AddEvent(&added, 1) != 0) {
            state.SkipWithError("refused");
            break;
        }
        state.PauseTiming();
        std::int32_t uid = 0;
        table.UndoEvent(uid);
        table.ClearHistory();
        state.ResumeTiming();
    }
}
BENCHMARK(AddAtFullTable)->Unit(benchmark::kMicrosecond);

void PatternWrite(benchmark::State& state) {
    CQelCPB_3DPattern pattern;
    StoreFullTable(pattern);
    for (auto _ : state) {
        benchmark::DoNotOptimize(WritePatternBytes(pattern));
    }
}
BENCHMARK(PatternWrite)->Unit(benchmark::kMicrosecond);

void PatternRead(benchmark::State& state) {
    CQelCPB_3DPattern pattern;
    StoreFullTable(pattern);
    const std::string bytes = WritePatternBytes(pattern);
    for (auto _ : state) {
        PatternFault fault;
        benchmark::DoNotOptimize(ReadPatternBytes(bytes, fault));
    }
}
BENCHMARK(PatternRead)->Unit(benchmark::kMicrosecond);

void StoreToPattern(benchmark::State& state) {
    const C3DEventData table = FullTable();
    CQelCPB_3DPattern pattern;
    for (auto _ : state) {
        table.StoreToPattern(&pattern, "Full");
    }
}
BENCHMARK(StoreToPattern)->Unit(benchmark::kMicrosecond);

void LoadFromPattern(benchmark::State& state) {
    CQelCPB_3DPattern pattern;
    StoreFullTable(pattern);
    C3DEventData table;
    C3DReport report;
    for (auto _ : state) {
        table.LoadFromPattern(&pattern, report);
    }
}
BENCHMARK(LoadFromPattern)->Unit(benchmark::kMicrosecond);

void CsvSave(benchmark::State& state) {
    const C3DEventData table = FullTable();
    for (auto _ : state) {
        benchmark::DoNotOptimize(table.CsvText());
    }
}
BENCHMARK(CsvSave)->Unit(benchmark::kMicrosecond);

void CsvLoad(benchmark::State& state) {
    const CString text = FullTable().CsvText();
    C3DEventData table;
    for (auto _ : state) {
        C3DReport report;
        if (table.LoadCsvText(text, report) != 0) {
            state.SkipWithError("refused");
            break;
        }
    }
}
BENCHMARK(CsvLoad)->Unit(benchmark::kMicrosecond);

}  // namespace
