#include <gmock/gmock.h>

#include "event/pattern_file.h"
#include "params/pattern_form.h"
#include "params/position_block.h"
#include "platform/files.h"
#include "platform/hooks.h"
#include "tests/event/event_builders.h"

using testing::ElementsAre;

namespace {

std::vector<t_tSigRec> TimeSigs(const CQelCPB_3DPattern& pattern) {
    std::vector<t_tSigRec> records;
    st_paramTimeSigRecords reference{&records};
    EXPECT_TRUE(pattern.GetParam(2914, &reference, kSizeReference));
    return records;
}

void SetTimeSigs(CQelCPB_3DPattern& pattern, std::vector<t_tSigRec> records) {
    st_paramTimeSigRecords reference{&records};
    EXPECT_TRUE(pattern.SetParam(2914, &reference, kSizeReference));
}

std::uint32_t Value(const CQelCPB_3DPattern& pattern, std::uint32_t id, int selector = -1) {
    st_paramValue record{selector, 0};
    EXPECT_TRUE(pattern.GetParam(id, &record, kSizeParamValue));
    return record.value;
}

// A position event with the seven values as they are stored.
void AddRaw(CQelCPB_3DPattern& pattern, std::array<std::uint32_t, 7> values) {
    auto block = std::make_unique<CQelCPB_3DPosition>();
    for (std::uint32_t i = 0; i < 7; ++i) {
        st_paramValue record{-1, values[i]};
        EXPECT_TRUE(block->SetParam(2800 + i, &record, kSizeParamValue));
    }
    st_paramChild child{0, 9999, block.release()};
    EXPECT_TRUE(pattern.SetParam(2900, &child, kSizeParamChild));
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
    for (const auto& event : {TimeSig(0, 4, 4), TimeSig(3840, 6, 8), Position(3, 5000, 12750),
                              Position(0, 5000, 50), Position(2, 999, 0)}) {
        Add(store, event);
    }
    for (int i = 0; i < 5; ++i) {
        store.EventAt(i).azimuth = static_cast<std::int16_t>(-180 + 87 * i);
        store.EventAt(i).elevation = static_cast<std::int16_t>(90 - 45 * i);
    }
    AddRaw(pattern_, {9, 0, 0, 0, 64, 64, 0});
    store.StoreToPattern(&pattern_, "A name of twenty...");
    st_paramName name;
    EXPECT_TRUE(pattern_.GetParam(2902, &name, kSizeParamName));
    EXPECT_STREQ(name.name, "A name of twenty");
    EXPECT_EQ(Value(pattern_, 2901), 3U);
    EXPECT_THAT(TimeSigs(pattern_),
                ElementsAre(t_tSigRec{0, 1, 1, 0, 4, 4}, t_tSigRec{0, 3, 1, 0, 6, 8}));
    C3DEventData again;
    EXPECT_EQ(again.LoadFromPattern(&pattern_, report_), 0);
    EXPECT_EQ(again.CsvText(), store.CsvText());
    store.StoreToPattern(nullptr, "");
}

TEST_F(PatternExchange, RangeModeHandsTimeSignaturesBackAsTheyCame) {
    const std::vector<t_tSigRec> tool = {
        {0, 1, 1, 0, 4, 4}, {0, 3, 1, 0, 3, 5}, {0, 5, 2, 0, 2, 4}, {0, 50, 1, 0, 3, 4}};
    SetTimeSigs(pattern_, tool);
    st_paramValue division{-1, 96};
    pattern_.SetParam(2913, &division, kSizeParamValue);
    AddRaw(pattern_, {100, 1, 0, 0, 64, 64, 1000});
    C3DEventData store(kRangeMode, 100, 400);
    EXPECT_EQ(store.LoadFromPattern(&pattern_, report_), 0) << "remarks on time signatures only";
    EXPECT_EQ(report_.Lines().size(), 2U);
    EXPECT_EQ(store.CountEvents(-1), 1);
    EXPECT_EQ(Map(store).size(), 3U);
    Add(store, Position(2, 400));
    store.StoreToPattern(&pattern_, "x");
    EXPECT_EQ(TimeSigs(pattern_), tool);
    EXPECT_EQ(Value(pattern_, 2913), 96U);
    EXPECT_EQ(Value(pattern_, 2904, 1), 400U);
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
