#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <tuple>

#include "event/exchange_sort.h"
#include "tests/event/event_builders.h"

namespace {

using Tagged = std::pair<int, int>;  // key and serial number

bool ByKey(const Tagged& left, const Tagged& right) {
    return left.first > right.first;
}

// Table without what undo doesn't promise: order among equal events.
std::pair<std::vector<_tagEvent3D>, std::vector<t_tSigMapRec>> Picture(const C3DEventData& store) {
    std::vector<_tagEvent3D> table = Table(store);
    std::stable_sort(table.begin(), table.end(), [](const auto& left, const auto& right) {
        return std::tie(left.tick, right.type, left.id, left.uid) <
               std::tie(right.tick, left.type, right.id, right.uid);
    });
    return {table, Map(store)};
}

// Whether the time-signature events, one by one, say what the records say. Where signatures start
// inside measures or ticks wrap at 32 bits, only the ticks need agree.
bool IsInStep(const C3DEventData& store, bool atMeasures) {
    std::vector<_tagEvent3D> events = Table(store);
    std::erase_if(events, [](const auto& event) { return event.type != kEventTimeSig; });
    return std::ranges::equal(events, Map(store), [=](const auto& event, const auto& record) {
        return atMeasures ? C3DEventData::EventsEqual(event, TimeSigEventOf(record))
                          : event.tick == record.totalTick;
    });
}

// A random editing session held against copies of the table and the map.
class Walk {
public:
    Walk(C3DEventData& store, bool atMeasures)
        : store_(store), atMeasures_(atMeasures), pictures_{Picture(store)} {}

    void Step(int command, int choice, std::uint32_t tick, int value) {
        const int count = store_.CountEvents(-1);
        const int index = count == 0 ? 0 : choice % count;
        if (command < 4) {
            Record(Add(store_, Make(command == 0 && store_.Mode() == kFreeMode, tick, value)) == 0);
        } else if (command < 7 && count > 0) {
            Change(index, command == 4 ? store_.EventAt(index).tick : tick, value);
        } else if (command == 7 && count > 0 && !IsFixed(index)) {
            store_.RemoveEvent(index);
            Record(true);
        } else if (command == 8) {
            Back();
        } else if (command == 9) {
            Forth();
        }
    }

    bool Back() { return Travel(place_ > 0, &C3DEventData::UndoEvent, -1); }
    bool Forth() { return Travel(place_ + 1 < pictures_.size(), &C3DEventData::RedoEvent, 1); }

private:
    bool Travel(bool possible, int (C3DEventData::*step)(std::int32_t&), int distance) {
        std::int32_t uid = 0;
        RC_ASSERT((store_.*step)(uid) == (possible ? 1 : 0));
        place_ += possible ? static_cast<std::size_t>(distance) : 0;
        RC_ASSERT(Picture(store_) == pictures_[place_]);
        return possible;
    }

    _tagEvent3D Make(bool timeSig, std::uint32_t tick, int value) const {
        if (!timeSig) {
            return Position(static_cast<std::uint8_t>(value % 3), tick);
        }
        return TimeSig(atMeasures_ ? store_.MBTToTick({1 + tick % 40, 1, 0}) : tick,
                       1U + static_cast<std::uint32_t>(value) % 64, 2U << value % 5);
    }

    bool IsFixed(int index) const {
        return store_.Mode() == kRangeMode && store_.EventAt(index).type == kEventTimeSig;
    }

    void Change(int index, std::uint32_t tick, int value) {
        const _tagEvent3D old = store_.EventAt(index);
        if (IsFixed(index)) {
            return;
        }
        _tagEvent3D event = Make(old.type == kEventTimeSig, tick, value);
        event.id = old.id;  // a change of the id alone is not recorded
        event.distance = static_cast<std::uint16_t>(event.type == kEventTimeSig ? 1000 : value);
        Record(Replace(store_, index, event) == 0 && !C3DEventData::EventsEqual(event, old));
    }

    void Record(bool changed) {
        if (changed) {
            pictures_.resize(++place_);
            pictures_.push_back(Picture(store_));
        }
        RC_ASSERT(Picture(store_) == pictures_[place_]);
        RC_ASSERT(store_.CanUndo() == (place_ > 0));
        RC_ASSERT(store_.Mode() == kRangeMode || IsInStep(store_, atMeasures_));
    }

    C3DEventData& store_;
    bool atMeasures_;
    std::vector<std::pair<std::vector<_tagEvent3D>, std::vector<t_tSigMapRec>>> pictures_;
    std::size_t place_ = 0;
};

// Beats, places between them, and ticks whose measures wrap at 32 bits.
rc::Gen<std::uint32_t> Ticks() {
    return rc::gen::oneOf(
        rc::gen::map(rc::gen::inRange(0U, 40U), [](std::uint32_t beat) { return beat * 480; }),
        rc::gen::inRange(0U, 20'000U), rc::gen::inRange(4'000'000'000U, 4'294'967'295U));
}

void WalkAndReturn(C3DEventData store, bool atMeasures) {
    const auto steps =
        *rc::gen::container<std::vector<std::tuple<int, int, std::uint32_t, int>>>(rc::gen::tuple(
            rc::gen::inRange(0, 10), rc::gen::inRange(0, 1000), Ticks(), rc::gen::inRange(0, 250)));
    Walk walk(store, atMeasures);
    for (const auto& [command, choice, tick, value] : steps) {
        walk.Step(command, choice, tick, value);
    }
    while (walk.Back()) {
    }
    while (walk.Forth()) {
    }
}

}  // namespace

RC_GTEST_PROP(ExchangeSort, LeavesWhatTheDoubleLoopLeaves, ()) {
    std::vector<Tagged> items;
    for (const int key : *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 6))) {
        items.emplace_back(key, static_cast<int>(items.size()));
    }
    // As it comes, in order, and in order but for what an edit appends.
    for (int shape = 0; shape < 3; ++shape) {
        std::vector<Tagged> expected = items;
        ExchangeSortLiterally(expected, ByKey);
        std::vector<Tagged> sorted = items;
        ExchangeSort(sorted, ByKey);
        RC_ASSERT(sorted == expected);
        items = sorted;
        if (shape == 1) {
            items.emplace_back(*rc::gen::inRange(0, 6), -1);
        }
    }
}

RC_GTEST_PROP(HistoryWalk, FreeMode, ()) {
    C3DEventData store;
    Add(store, TimeSig(0, 4, 4));
    store.ClearHistory();
    WalkAndReturn(store, *rc::gen::arbitrary<bool>());
}

RC_GTEST_PROP(HistoryWalk, RangeMode, ()) {
    C3DEventData store(kRangeMode, 1920, 12000);
    AddAll(store, {TimeSig(0, 3, 4), TimeSig(4320, 4, 4), TimeSig(19680, 6, 8)});
    store.ClearHistory();
    WalkAndReturn(store, false);
}
