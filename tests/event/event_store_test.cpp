#include "event/event_store.h"

#include <gmock/gmock.h>

#include "event/table_text.h"
#include "platform/hooks.h"
#include "tests/event/event_builders.h"

using testing::ElementsAre;

namespace {

template <typename Value>
std::vector<Value> Column(const C3DEventData& store, Value _tagEvent3D::*field) {
    std::vector<Value> values;
    for (const _tagEvent3D& event : Table(store)) {
        values.push_back(event.*field);
    }
    return values;
}

}  // namespace

TEST(TimeSigMap, ReadsTicksAndMovesLaterRecords) {
    C3DTimeSigMap map;
    EXPECT_EQ(map.TickToMBT(1920), (t_MBT{2, 1, 0}));
    EXPECT_EQ(map.MBTToTick({1, 9, 0}), 3840U);
    EXPECT_EQ(map.AddTimeSig(TimeSig(7680, 3, 4)), 0);
    EXPECT_EQ(map.AddTimeSig(TimeSig(3840, 4, 4)), 0);
    EXPECT_EQ(map.AddTimeSig(TimeSig(3840, 2, 4)), kErrorTimeSigExists);
    EXPECT_EQ(map.TickToMBT(8999), (t_MBT{5, 3, 359}));
    map.ChangeTimeSig(TimeSig(3840, 3, 4), TimeSig(3840, 4, 4));
    EXPECT_THAT(map.Records(),
                ElementsAre(t_tSigMapRec{3, 1, 0, 3840, 3, 4}, t_tSigMapRec{5, 1, 0, 6720, 3, 4}));
    EXPECT_EQ(map.TimeSigAt(3839), t_tSigMapRec());
    map.RemoveTimeSig(TimeSig(3840, 0, 0));
    EXPECT_THAT(map.Records(), ElementsAre(t_tSigMapRec{5, 1, 0, 7680, 3, 4}));
    map.SetDivision(960);
    EXPECT_EQ(map.TickToMBT(7679), (t_MBT{2, 4, 959}));
    EXPECT_EQ(map.AddTimeSig(TimeSig(30000, 2, 4)), 0);  // reckons all records anew
    EXPECT_THAT(map.Records(), ElementsAre(t_tSigMapRec{5, 1, 0, 15360, 3, 4},
                                           t_tSigMapRec{12, 3, 240, 37680, 2, 4}));
}

TEST(EventStore, OrdersByTickThenTypeThenIdAndTurnsEqualsRound) {
    C3DEventData store;
    AddAll(store, {Position(2, 480), Position(1, 480), TimeSig(480, 3, 4)});
    EXPECT_THAT(Column(store, &_tagEvent3D::uid), ElementsAre(2, 1, 0));
    Add(store, Position(2, 480));
    EXPECT_THAT(Column(store, &_tagEvent3D::uid), ElementsAre(2, 1, 0, 3));
    Add(store, Position(3, 240));  // goes in front; events 0 and 3 are equal and change places
    EXPECT_THAT(Column(store, &_tagEvent3D::uid), ElementsAre(4, 2, 1, 3, 0));
    Add(store, Position(0, 4'000'000'000U));
    EXPECT_EQ(store.EventAt(5).uid, 5);
    EXPECT_EQ(store.AddEvent(nullptr, 1), 0);
}

TEST(EventStore, CountsByTheLowByteAndStopsAt256) {
    C3DEventData store;
    for (std::uint32_t i = 0; i < 256; ++i) {
        ASSERT_EQ(Add(store, Position(1, i), 0), 0);
        ASSERT_EQ(Add(store, TimeSig(1920 * i, 4, 4), 0), 0);
    }
    store.SortEvents();
    std::int32_t uid = 0;
    Add(store, Position(2, 7));
    store.UndoEvent(uid);
    const auto before = StateOf(store);
    EXPECT_EQ(Add(store, Position(1, 9)), kErrorCountLimit);
    EXPECT_EQ(Add(store, TimeSig(0, 4, 4)), kErrorCountLimit);  // before the place is looked at
    _tagEvent3D fromFields = store.EventAt(1);
    fromFields.uid = kNoUid;
    EXPECT_EQ(Replace(store, 1, fromFields), kErrorCountLimit);
    EXPECT_EQ(StateOf(store), before);
    EXPECT_EQ(Replace(store, 1, store.EventAt(1)), 0);
    EXPECT_EQ(store.CountEvents(-1), 512);
    EXPECT_EQ(store.CountEvents(256 + 1), 256);
    EXPECT_EQ(store.CountEvents(255), 0);
}

TEST(EventStore, RefusesReplacementsInOrder) {
    C3DEventData store(kRangeMode, 0, 5000);
    AddAll(store, {TimeSig(0, 4, 4), TimeSig(1920, 3, 4), Position(0, 1920)});
    const auto before = StateOf(store);
    EXPECT_EQ(Replace(store, 2, Position(0, 5001)), kErrorTimeRange);
    EXPECT_EQ(Replace(store, 2, TimeSig(1920, 3, 4)), kErrorTimeSigExists);
    EXPECT_EQ(Replace(store, 2, TimeSig(480, 3, 4)), kErrorEventType);
    EXPECT_EQ(StateOf(store), before);
    EXPECT_EQ(Add(store, Position(0, 5001)), kErrorTimeRange);
    EXPECT_EQ(Add(store, TimeSig(5760, 2, 4)), kErrorTimeRange);
    EXPECT_EQ(Table(store), std::get<0>(before));
    EXPECT_EQ(Map(store).size(), 3U) << "a time signature outside leaves its record";
}

TEST(EventStore, LaterTimeSignaturesFollowTheirRecords) {
    C3DEventData store;
    AddAll(store, {TimeSig(0, 4, 4), TimeSig(3840, 3, 4), TimeSig(6720, 4, 4), Position(0, 6720),
                   Position(1, 4800)});
    store.SetCurrentUid(4);
    EXPECT_EQ(Replace(store, 0, TimeSig(0, 2, 4)), 0);
    EXPECT_THAT(Column(store, &_tagEvent3D::tick), ElementsAre(0, 1920, 4800, 4800, 6720));
    EXPECT_EQ(store.EventAt(2).type, kEventTimeSig) << "in front of the position of its tick";
    EXPECT_EQ(store.TickToMBT(6720), (t_MBT{6, 1, 0}));
    // The third signature goes to measure 2, in front of the second, and back.
    const auto before = StateOf(store);
    EXPECT_EQ(Replace(store, 2, TimeSig(960, 64, 2)), 0);
    EXPECT_THAT(Column(store, &_tagEvent3D::tick), ElementsAre(0, 960, 4800, 6720, 62400));
    std::int32_t uid = 0;
    EXPECT_EQ(store.UndoEvent(uid), 1);
    EXPECT_EQ(uid, 2);
    EXPECT_EQ(Table(store), std::get<0>(before));
    EXPECT_EQ(Map(store), std::get<1>(before));
}

TEST(EventHistory, SelectsAndShowsAndKeepsRedo) {
    C3DEventData store;
    std::int32_t uid = -7;
    EXPECT_EQ(store.UndoEvent(uid), 0);
    store.SetCurrentUid(70);
    Add(store, Position(0, 480));
    store.EventAt(0).visible = 0;
    store.SetCurrentUid(71);
    store.RemoveEvent(0);
    store.UndoEvent(uid);
    EXPECT_EQ(uid, 0);
    EXPECT_EQ(store.EventAt(0).visible, 1);
    store.RedoEvent(uid);
    EXPECT_EQ(uid, 71);
    store.UndoEvent(uid);
    EXPECT_EQ(Replace(store, 0, Position(0, 480)), 0);
    EXPECT_TRUE(store.CanRedo()) << "nothing was recorded, so nothing was cut";
    EXPECT_EQ(Replace(store, 0, Position(3, 480)), 0);
    EXPECT_EQ(store.EventAt(0).id, 3);
    EXPECT_TRUE(store.CanRedo());
    store.UndoEvent(uid);
    EXPECT_EQ(uid, 70);
    EXPECT_EQ(store.CountEvents(-1), 0);
    Add(store, Position(1, 0));
    EXPECT_FALSE(store.CanRedo());
    EXPECT_EQ(store.EventAt(0).uid, 1) << "uids are never used again";
}

TEST(EventStore, ViewListFollowsTheFlags) {
    C3DEventData store;
    AddAll(store, {TimeSig(0, 4, 4), Position(0, 1), Position(3, 2), Position(9, 3)});
    std::vector<int> view{5};
    store.BuildViewList({0, 0, 0, 9}, view);
    EXPECT_THAT(view, ElementsAre(0, 2));
    EXPECT_THAT(TableLines(store),
                ElementsAre(" Meas. Beat  Tick Event  Dist. Azim. Elev. Total tick",
                            "     1    1     0   4/4      -     -     -          0",
                            "     1    1     1  ID 0   1.00     0     0          1",
                            "     1    1     2  ID 3   1.00     0     0          2",
                            "     1    1     3  ID 9   1.00     0     0          3"));
}

TEST(Report, ShowsFiveLinesAndTheIcons) {
    HooksScope scope;
    CString shown;
    Hooks().messageBox = [&shown](const CString& text, UINT style) {
        shown += text + "|" + std::to_string(style) + "|";
        return IDOK;
    };
    C3DReport report;
    ShowReport(report);
    ShowError(12345);
    for (int i = 0; i < 6; ++i) {
        report.AddLine(std::to_string(i));
        if (i >= 4) {
            ShowReport(report);
        }
    }
    ShowMessage(FormatReport(kTimeSigMoved, {1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(shown,
              "0\r\n1\r\n2\r\n3\r\n4\r\n|48|0\r\n1\r\n2\r\n3\r\n4\r\nand more...|48|"
              "Index=1 : TimeSig. MBT Changed (2:3:4)->(5:6:7)|16|");
}
