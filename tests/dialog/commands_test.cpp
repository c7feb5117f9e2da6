#include <gtest/gtest.h>

#include <QSlider>

#include "platform/qt/widget_access.h"
#include "tests/dialog/editor.h"

namespace {

constexpr char kLocked[] = "Error: Editing of TimeSig. event is prohibited here";

const Lines kSongRows{"1* 4 / 4 1 1 0 - - - -", "2 - 1 1 0 0 1.00 0 0", "4 - 1 2 0 2 1.50 -90 30",
                      "3 3 / 4 2 1 0 - - - -",  "2 - 2 1 0 1 1.00 0 0", "2 - 3 1 0 2 1.00 0 0"};

TEST(Commands, AddUpdateDeleteAndTheWayBack) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        EXPECT_EQ(editor.Rows(), kSongRows);
        editor.ClickRow(1);
        EXPECT_EQ(editor.Fields(), "1:1:0 ID0 4/4");

        editor.FillTime("2", "1", "0");
        editor.ChooseRow(kComboId, 3);
        editor.Click(kBtnAdd);
        EXPECT_EQ(editor.Rows()[5], "0* - 2 1 0 3 1.00 0 0");
        EXPECT_EQ(editor.Fields(), "2:1:0 ID3 3/4");
        EXPECT_EQ(editor.Buttons(), "OK Update Delete Undo ");

        editor.FillTime("1", "3", "7");  // To another place; the row stays selected.
        editor.Click(kBtnUpdate);
        EXPECT_EQ(editor.Rows()[3], "0* - 1 3 7 3 1.00 0 0");

        editor.Click(kRadioTimeSig);
        editor.Fill(kEditMeasure, "3");
        editor.Fill(kEditNumerator, "5");
        editor.ChooseRow(4024, 2);
        editor.Click(kBtnAdd);
        EXPECT_EQ(editor.Rows()[6], "1* 5 / 8 3 1 0 - - - -");
        EXPECT_EQ(editor.Fields(), "3:1:0 ID3 5/8 timesig");

        editor.Fill(kEditMeasure, "4");  // Other than a position, it takes its metre along.
        editor.Click(kBtnUpdate);
        EXPECT_EQ(editor.Rows()[7], "1* 5 / 8 4 1 0 - - - -");

        editor.ClickRow(3);
        editor.Click(kBtnDelete);
        EXPECT_EQ(editor.Rows()[3], "1* 3 / 4 2 1 0 - - - -");
        editor.Click(kBtnDelete);  // Without 3/4, what stood in measure 3 stands in measure 2.
        const Lines last{"2 - 1 1 0 0 1.00 0 0", "4 - 1 2 0 2 1.50 -90 30", "0* - 2 1 0 1 1.00 0 0",
                         "2 - 2 4 0 2 1.00 0 0", "3 5 / 8 4 1 0 - - - -"};
        const Lines rows = editor.Rows();
        EXPECT_EQ(Lines(rows.begin() + 1, rows.end()), last);

        for (int step = 0; step < 6; ++step) {
            editor.driver->Key(kListEvents, Qt::Key_Z, Qt::ControlModifier);
        }
        EXPECT_EQ(editor.Buttons(), "OK Update Delete Redo ");
        Lines back = editor.Rows();
        EXPECT_EQ(back[1], "0* - 1 1 0 0 1.00 0 0");
        back[0] = kSongRows[0];
        back[1] = kSongRows[1];
        EXPECT_EQ(back, kSongRows);
        for (int step = 0; step < 6; ++step) {
            editor.driver->Key(kListEvents, Qt::Key_Y, Qt::ControlModifier);
        }
        EXPECT_EQ(editor.Rows(), rows);
        EXPECT_EQ(editor.Buttons(), "OK Update Delete Undo ");
    });
}

TEST(Commands, DeleteGoesOnToTheNextRowThenToTheOneBefore) {
    CQelCPB_3DPattern pattern = PatternOf({TimeSig(0, 4, 4), Position(0, 0), Position(1, 480)});
    std::vector<t_tSigRec> none;
    st_paramTimeSigRecords records{&none};
    ASSERT_TRUE(pattern.SetParam(2914, &records, kSizeReference));
    Editor editor(pattern);
    editor.Run([&] {
        EXPECT_EQ(editor.Rows(), (Lines{"0* - 1 1 0 0 1.00 0 0", "2 - 1 2 0 1 1.00 0 0"}));
        EXPECT_EQ(editor.Fields(), "1:1:0 ID0 4/4");
        editor.ClickRow(1);
        editor.Click(kBtnDelete);
        EXPECT_EQ(editor.Rows(), Lines{"0* - 1 1 0 0 1.00 0 0"});
        editor.driver->Key(kListEvents, Qt::Key_Delete);
        EXPECT_EQ(editor.Rows(), Lines{});
        EXPECT_EQ(editor.Buttons(), "OK Undo ");
        editor.driver->Key(kListEvents, Qt::Key_Delete);  // The key comes, the button is dim.
        EXPECT_EQ(editor.Buttons(), "OK Undo ");
        editor.Click(kBtnUndo);
        EXPECT_EQ(editor.Rows(), Lines{"0* - 1 1 0 0 1.00 0 0"});
    });
}

TEST(Commands, TheSettingTypeEnablesItsFields) {
    Editor editor(PatternOf(Song()));
    const auto enabled = [&] {
        std::string ids;
        for (const int id :
             {4018, 4019, 4021, 4022, 4016, 1040, 4059, 1036, 4025, 4026, 1037, 4024}) {
            ids += editor.driver->Enabled(id) ? std::to_string(id) + " " : "";
        }
        return ids;
    };
    editor.Run([&] {
        const std::string position = "4018 4019 4021 4022 4016 1040 4059 ";
        EXPECT_EQ(enabled(), position);
        editor.FillTime("2", "3", "9");
        editor.Click(kRadioTimeSig);
        EXPECT_EQ(enabled(), "4018 1036 4025 4026 1037 4024 ");
        EXPECT_EQ(editor.Fields(), "2:1:0 ID0 4/4 timesig");
        editor.Click(kRadioPosition);
        EXPECT_EQ(enabled(), position);
        EXPECT_EQ(editor.Fields(), "2:1:0 ID0 4/4");
        editor.ClickRow(3);
        EXPECT_EQ(editor.Fields(), "2:1:0 ID0 3/4 timesig");
        editor.ClickRow(5);  // A position shows the metre in force.
        EXPECT_EQ(editor.Fields(), "3:1:0 ID2 3/4");

        editor.ClickRow(3);  // A changed metre moves the measures behind it.
        editor.Fill(kEditNumerator, "2");
        editor.Click(kBtnUpdate);
        EXPECT_EQ(editor.Rows()[5], "2 - 3 2 0 2 1.00 0 0");
    });
}

TEST(Commands, ThePagesGiveAndTakeThePosition) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        const auto sliders =
            WidgetOfWindow(editor.dialog.m_hWnd)->findChildren<QSlider*>();  // Row by row.
        ASSERT_EQ(sliders.size(), 6);
        sliders[1]->setFocus();
        editor.driver->Key(Qt::Key_Left);
        EXPECT_EQ(sliders[3]->value(), 255 - 1);
        editor.Click(kBtnAdd);
        EXPECT_EQ(editor.Rows()[2], "0* - 1 1 0 0 1.00 -3 0");
        editor.ClickRow(3);  // 1.5 m at -90, 30: X -1.3, Y 0.75.
        const int expected[] = {30, 30, 40, 255 - 26, 255 + 15, 255};
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(sliders[i]->value(), expected[i]) << i;
        }
        editor.driver->ClickTab(kTabPages, 1);
        sliders[5]->setFocus();
        editor.driver->Key(Qt::Key_Home);
        EXPECT_EQ(sliders[0]->value(), 30);
        editor.driver->Key(Qt::Key_Tab);
        editor.driver->Key(Qt::Key_Tab);
        editor.driver->Key(Qt::Key_Space);  // "Set", behind the ">" button.
        EXPECT_EQ(sliders[0]->value(), 255);
        editor.Click(kBtnUpdate);
        EXPECT_EQ(editor.Rows()[3], "4* - 1 2 0 2 12.75 -174 3");
    });
}

struct Refusal {
    const char* name;
    int row;              // Selected first.
    int radio;            // Then chosen, 0 for none.
    const char* measure;  // Then typed.
    int button;
    const char* message;
    bool rangeMode = false;
};

void PrintTo(const Refusal& refusal, std::ostream* out) {
    *out << refusal.name;
}

class Refused : public testing::TestWithParam<Refusal> {};

TEST_P(Refused, CommandLeavesEverything) {
    const auto& [what, row, radio, measure, button, message, rangeMode] = GetParam();
    const CQelCPB_3DPattern pattern = PatternOf(Song());
    Editor editor = rangeMode ? Editor(pattern, 0, 3360) : Editor(pattern);
    editor.boxes.Expect(message, kErrorBox, IDOK);
    editor.Run([&, row = row, radio = radio, measure = measure, button = button] {
        editor.ClickRow(row);
        if (radio != 0) {
            editor.Click(radio);
        }
        editor.Fill(kEditMeasure, measure);
        const Lines before = editor.State();
        editor.Click(button);
        EXPECT_EQ(editor.State(), before);
    });
}

constexpr char kExists[] = "Error: TimeSig. event is already existing";
constexpr char kOutside[] = "Error: Time out of range";

INSTANTIATE_TEST_SUITE_P(
    Commands, Refused,
    testing::Values(
        Refusal{"add where a time signature stands", 1, kRadioTimeSig, "2", kBtnAdd, kExists},
        Refusal{"move a time signature onto another", 3, 0, "1", kBtnUpdate, kExists},
        Refusal{"make a position a time signature", 4, kRadioTimeSig, "3", kBtnUpdate,
                "Error: Event type is different"},
        Refusal{"move the first time signature", 0, 0, "2", kBtnUpdate, kLocked},
        Refusal{"delete the first time signature", 0, 0, "1", kBtnDelete, kLocked},
        Refusal{"add outside the range", 2, 0, "4", kBtnAdd, kOutside, true},
        Refusal{"move out of the range", 2, 0, "4", kBtnUpdate, kOutside, true},
        Refusal{"delete a time signature in range mode", 4, 0, "1", kBtnDelete, kLocked, true}));

TEST(Commands, The257thEventOfAnIdIsRefused) {
    std::vector<_tagEvent3D> events{TimeSig(0, 4, 4)};
    for (std::uint32_t i = 0; i < 256; ++i) {
        events.push_back(Position(1, i));
    }
    Editor editor(PatternOf(events));
    const char message[] = "Error: Over Event ID=(1) Count Limit";
    editor.boxes.Expect(message, kErrorBox, IDOK).Expect(message, kErrorBox, IDOK);
    editor.Run([&] {
        editor.ClickRow(9);
        const Lines before = editor.State();
        editor.Click(kBtnAdd);
        editor.Click(kBtnUpdate);  // Even in place: the fields carry no uid.
        EXPECT_EQ(editor.State(), before);
        editor.dialog.SetCurrentMoveFromCallback(1, 8, Position(0, 0, 500));  // A drag's does.
        EXPECT_EQ(editor.Rows()[9], "0* - 1 1 8 1 0.50 0 0");
        editor.ChooseRow(kComboId, 2);
        editor.Click(kBtnAdd);
        EXPECT_EQ(editor.Rows().size(), 258U);
    });
}

TEST(Commands, RangeModeLocksNameAndTimeSignatures) {
    const std::vector<_tagEvent3D> song = Song();
    Editor editor(PatternOf({song[0], song[2], song[3], song[4]}), 480, 1920);
    editor.Run([&] {
        EXPECT_FALSE(editor.driver->Enabled(kEditName));
        EXPECT_EQ(editor.Rows(),
                  (Lines{"5  1 2 0    ", "4* - 1 2 0 2 1.50 -90 30", "3 3 / 4 2 1 0 - - - -",
                         "2 - 2 1 0 1 1.00 0 0", "6  2 1 0    "}));
        editor.ClickRow(2);
        EXPECT_EQ(editor.Fields(), "2:1:0 ID2 3/4");
        EXPECT_FALSE(editor.driver->Enabled(kRadioTimeSig));
        editor.ClickRow(3);
        editor.FillTime("1", "2", "0");  // Both ends belong to the range.
        editor.Click(kBtnUpdate);
        EXPECT_EQ(editor.Rows()[1], "0* - 1 2 0 1 1.00 0 0");
        editor.ClickRow(4);
        editor.ClickRow(0);
        EXPECT_EQ(editor.Fields(), "1:2:0 ID1 4/4");  // Range rows are no events.
        editor.dialog.SetCurrentPointFromCallback(2, 0);
        EXPECT_EQ(editor.driver->SelectedRows(kListEvents), std::vector<int>{2});
        editor.Click(kBtnOk);
    });
    std::vector<t_tSigRec> records;
    st_paramTimeSigRecords reference{&records};
    editor.dialog.Get3DPatternForTool()->GetParam(2914, &reference, kSizeReference);
    EXPECT_EQ(records.size(), 2U);
}

}  // namespace
