#include <gmock/gmock.h>

#include "event/pattern_file.h"
#include "params/pattern_form.h"
#include "platform/files.h"
#include "platform/hooks.h"
#include "tests/event/event_builders.h"
#include "tests/params/block_support.h"
#include "tests/support/temporary_folder.h"

using testing::ElementsAre;

namespace {

// A position event with the seven values as they are stored.
void AddRaw(CQelCPB_3DPattern& pattern, std::array<std::uint32_t, 7> values) {
    const auto index = static_cast<std::int32_t>(Number(pattern, 2901));
    EXPECT_TRUE(PutPosition(pattern, values[0]));
    for (std::uint32_t i = 1; i < 7; ++i) {
        EXPECT_TRUE(SetNumber(pattern, 2904 + i, values[i], index));
    }
}

class PatternExchange : public testing::Test {
protected:
    PatternExchange() {
        Hooks().messageBox = [this](const CString&, UINT) { return ++boxes_, IDOK; };
    }

    HooksScope scope_;
    int boxes_ = 0;
    CQelCPB_3DPattern pattern_;
    C3DReport report_;
};

}  // namespace

TEST_F(PatternExchange, AFreshPatternIsOneTimeSignature) {
    C3DEventData store;
    Add(store, Position(0, 5));
    report_.AddLine("old");
    EXPECT_EQ(store.LoadFromPattern(&pattern_, report_), 0);
    EXPECT_TRUE(report_.IsEmpty());
    EXPECT_EQ(store.Division(), 480U);
    ASSERT_EQ(store.CountEvents(-1), 1);
    EXPECT_TRUE(C3DEventData::EventsEqual(store.EventAt(0), TimeSig(0, 4, 4)));
    EXPECT_FALSE(store.CanUndo());
    EXPECT_EQ(store.LoadFromPattern(nullptr, report_), 0);
}

TEST_F(PatternExchange, ReadsWireFormsAndNumbersTheRemarks) {
    SetTimeSigs(pattern_, {{0, 1, 1, 0, 4, 4}, {0, 2, 2, 0, 3, 4}, {0, 9, 1, 0, 3, 5}});
    AddRaw(pattern_, {0, 0, 15, 2, 123, 94, 12750});
    AddRaw(pattern_, {1, 1, 0, 0, 4, 34, 50});
    AddRaw(pattern_, {2, 2, 0, 0, 64, 0, 65536 + 1000});  // elevation 0 is -192 degrees
    C3DEventData store;
    EXPECT_EQ(store.LoadFromPattern(&pattern_, report_), 1);
    EXPECT_THAT(report_.Lines(), ElementsAre("Index=1 : TimeSig. MBT Changed (2:2:0)->(3:1:0)",
                                             "Index=2 : TimeSig. 3/5 out of range (Entry ignored)",
                                             "Index=5 : Azimuth Changed (0)->(-180)",
                                             "Index=5 : Elevation Changed (-192)->(12)"));
    EXPECT_EQ(boxes_, 1);
    EXPECT_EQ(store.CsvText(),
              "Division,480\r\n3D ID,Meas,Beat,Tick,Distance,Azimuth,Elevation,TimeSig.\r\n"
              ",1,1,0,,,,4_4\r\n0,1,1,0,12750,177,90\r\n1,1,1,1,50,-180,-90\r\n"
              "2,1,1,2,1000,-180,12\r\n,3,1,0,,,,3_4\r\n");
}

TEST_F(PatternExchange, StoresAndLoadsTheSameTable) {
    C3DEventData store;
    AddAll(store, {TimeSig(0, 4, 4), TimeSig(3840, 6, 8), Position(3, 5000, 12750),
                   Position(0, 5000, 50), Position(2, 999, 0)});
    for (int i = 0; i < 5; ++i) {
        store.EventAt(i).azimuth = static_cast<std::int16_t>(-180 + 87 * i);
        store.EventAt(i).elevation = static_cast<std::int16_t>(90 - 45 * i);
    }
    AddRaw(pattern_, {9, 0, 0, 0, 64, 64, 0});
    store.StoreToPattern(&pattern_, "A name of twenty...");
    EXPECT_EQ(TextOf(pattern_),
              "2900 2901 2902 2907 2906 2903 2903 2903 | A name of twenty | 0 480 | "
              "1:1:0 4/4 3:1:0 6/8 | 999 2 0 0 33 79 0 | 5000 0 0 0 91 49 50 | "
              "5000 3 0 0 120 34 12750");
    C3DEventData again;
    EXPECT_EQ(again.LoadFromPattern(&pattern_, report_), 0);
    EXPECT_EQ(again.CsvText(), store.CsvText());
    store.StoreToPattern(nullptr, "");
}

TEST_F(PatternExchange, RangeModeHandsTimeSignaturesBackAsTheyCame) {
    SetTimeSigs(pattern_,
                {{0, 1, 1, 0, 4, 4}, {0, 3, 1, 0, 3, 5}, {0, 5, 2, 0, 2, 4}, {0, 50, 1, 0, 3, 4}});
    SetNumber(pattern_, 2913, 96);
    AddRaw(pattern_, {100, 1, 0, 0, 64, 64, 1000});
    C3DEventData store(kRangeMode, 100, 400);
    EXPECT_EQ(store.LoadFromPattern(&pattern_, report_), 0) << "remarks on time signatures only";
    EXPECT_EQ(report_.Lines().size(), 2U);
    EXPECT_EQ(store.CountEvents(-1), 1);
    EXPECT_EQ(Map(store).size(), 3U);
    Add(store, Position(2, 400));
    store.StoreToPattern(&pattern_, "x");
    EXPECT_EQ(TextOf(pattern_),
              "2900 2901 2902 2907 2906 2903 2903 | x | 0 96 | "
              "1:1:0 4/4 3:1:0 3/5 5:2:0 2/4 50:1:0 3/4 | 100 1 0 0 64 64 1000 | "
              "400 2 0 0 64 64 1000");
    AddRaw(pattern_, {401, 1, 0, 0, 64, 64, 1000});
    EXPECT_EQ(store.LoadFromPattern(&pattern_, report_), 1);
    EXPECT_EQ(report_.Lines().back(), "Index=6 Time out of range");
}

TEST_F(PatternExchange, FilesComeWholeOrWithWords) {
    const TemporaryFolder folder;
    const std::string path = folder / "a.3dp";
    CString reason;
    EXPECT_TRUE(SavePatternFile(path, pattern_, reason)) << reason;
    const auto loaded = LoadPatternFile(path, reason);
    ASSERT_NE(loaded, nullptr) << reason;
    EXPECT_TRUE(loaded->IsEqual(pattern_));
    const std::string bytes = *ReadWholeFile(path);
    const struct {
        std::string path;
        std::string bytes;
        const char* words;
    } cases[] = {{path, "", "not a 3D pattern: expected a stored pattern, found an empty file"},
                 {path, "Division,480\r\n", "not a 3D pattern: at byte 0, pattern: expected"},
                 {path, bytes.substr(0, bytes.size() - 1), "not a 3D pattern: at byte "},
                 {folder / "", "", "cannot be read: Is a directory"},
                 {folder / "none.3dp", "", "cannot be read: No such file or directory"}};
    for (const auto& each : cases) {
        WriteFileCommitted(path, each.bytes);
        EXPECT_EQ(LoadPatternFile(each.path, reason), nullptr);
        EXPECT_THAT(reason, testing::StartsWith(each.path + ": " + each.words));
    }
    EXPECT_FALSE(SavePatternFile(folder / "none/a.3dp", pattern_, reason));
    EXPECT_THAT(reason, testing::HasSubstr("cannot be written: No such file or directory"));
}
