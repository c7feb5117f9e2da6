// Load: an editor opened and closed many times, a long history, a table at its limits.

#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>
#include <filesystem>

#include "bench/full_table.h"
#include "params/pattern_form.h"
#include "platform/files.h"
#include "tests/dialog/editor.h"

namespace {

std::ptrdiff_t OpenDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST(Load, ManyOpeningsLeaveNothingBehind) {
    const char* wish = std::getenv("ORBIX_OPENINGS");
    const int openings = wish == nullptr ? 200 : std::atoi(wish);  // NOLINT: a wrong wish is none
    constexpr int kSettled = 10;
    constexpr std::size_t kNoise = 32768;  // what the toolkit's caches may still take
    std::size_t heap = 0;
    std::ptrdiff_t descriptors = 0;
    const CQelCPB_3DPattern pattern = PatternOf(Song());
    for (int opening = 0; opening < openings; ++opening) {
        Editor editor(pattern);
        ASSERT_EQ(editor.Run([&] { editor.Click(kBtnCancel); }), IDCANCEL);
        if (opening == kSettled) {
            heap = mallinfo2().uordblks;
            descriptors = OpenDescriptors();
        }
    }
    const std::size_t left = mallinfo2().uordblks;
    RecordProperty("grown_bytes", std::to_string(static_cast<std::ptrdiff_t>(left - heap)));
    EXPECT_LE(left, heap + kNoise);
    EXPECT_EQ(OpenDescriptors(), descriptors);
}

TEST(Load, AHistoryOfAHundredThousandChanges) {
    constexpr int kChanges = 100000;
    C3DEventData store;
    Add(store, TimeSig(0, 4, 4));
    store.ClearHistory();
    const auto empty = StateOf(store);
    for (int change = 0; change < kChanges; ++change) {
        const int count = store.CountEvents(-1);
        const auto tick = static_cast<std::uint32_t>(change * 31 % 99999);
        if (count > 20) {
            store.RemoveEvent(1 + change % (count - 1));
        } else if (change % 50 == 0) {
            Add(store, TimeSig(store.MBTToTick({2 + tick % 90, 1, 0}), 3, 4));
        } else {
            Add(store, Position(static_cast<std::uint8_t>(change % 4), tick));
        }
    }
    const std::vector<_tagEvent3D> full = Table(store);
    std::int32_t uid = 0;
    int steps = 0;
    while (store.UndoEvent(uid) == 1) {
        ++steps;
    }
    EXPECT_GT(steps, kChanges - kChanges / 50);
    EXPECT_EQ(Table(store), std::get<0>(empty));
    EXPECT_EQ(Map(store), std::get<1>(empty));
    while (store.RedoEvent(uid) == 1) {
        --steps;
    }
    EXPECT_EQ(steps, 0);
    EXPECT_EQ(Table(store).size(), full.size());
}

TEST(Load, ATableAtItsLimitsTakesEveryCommand) {
    C3DEventData store = FullTable();
    const std::vector<_tagEvent3D> full = Table(store);
    std::int32_t uid = 0;
    for (int index = 0; index < store.CountEvents(-1); index += 97) {
        _tagEvent3D event = store.EventAt(index);
        if (event.type != kEventPosition) {
            continue;
        }
        event.distance = event.distance == 50 ? 100 : 50;
        EXPECT_EQ(store.ReplaceEvent(index, event), 0);
        store.RemoveEvent(store.CountEvents(-1) - 1);
        EXPECT_EQ(store.UndoEvent(uid) + store.UndoEvent(uid), 2);
        EXPECT_EQ(Table(store), full) << index;
    }
    C3DReport report;
    C3DEventData again;
    EXPECT_EQ(again.LoadCsvText(store.CsvText(), report), 0);
    EXPECT_EQ(again.CsvText(), store.CsvText());
    CQelCPB_3DPattern pattern;
    StoreFullTable(pattern);
    PatternFault fault;
    again.LoadFromPattern(ReadPatternBytes(WritePatternBytes(pattern), fault).get(), report);
    EXPECT_EQ(again.CsvText(), store.CsvText());
    EXPECT_TRUE(report.IsEmpty());
}

TEST(Load, AnEditorAtTheLimitsTakesEveryCommand) {
    CQelCPB_3DPattern pattern;
    StoreFullTable(pattern);
    const TemporaryFolder folder;
    WriteFileCommitted(folder / "full.csv", FullTable().CsvText());
    Editor editor(pattern);
    editor.boxes.Expect("Current event data will be replaced?", MB_OKCANCEL | MB_ICONQUESTION,
                        IDOK);
    editor.Run([&] {
        editor.ClickRow(700);
        const Lines full = editor.Rows();
        ASSERT_EQ(full.size(), 1280U);
        for (const int command : {kBtnDelete, kBtnUndo, kBtnRedo, kBtnUndo}) {
            editor.Click(command);
            EXPECT_EQ(editor.Rows().size(), command == kBtnUndo ? 1280U : 1279U);
        }
        EXPECT_EQ(editor.Rows(), full);
        editor.Click(kChkIdAll);
        editor.Click(kChkId1);
        EXPECT_EQ(editor.Rows().size(), 1280U - 256U);
        EXPECT_EQ(editor.dialog.Load3DFile((folder / "full.csv").c_str()), 1);
        editor.Click(kChkIdAll);
        editor.ClickRow(700);
        EXPECT_EQ(editor.Rows(), full);
    });
}

}  // namespace
