#include <gtest/gtest.h>

#include <QWidget>

#include "dialog/pattern_name.h"
#include "platform/qt/widget_access.h"
#include "tests/dialog/editor.h"

namespace {

constexpr char kQuestion[] =
    "Current event data has been edited.\nSelecting cancel will undo the changes?";

std::string NameOf(const CQelCPB_3DPattern& pattern) {
    st_paramName name;
    EXPECT_TRUE(pattern.GetParam(2902, &name, kSizeParamName));
    return name.name;
}

std::size_t CountEvents(CQelCPB_3DPattern& pattern) {
    C3DEventData store;
    C3DReport report;
    store.LoadFromPattern(&pattern, report);
    return Table(store).size();
}

TEST(Frame, OpensCleanAndClosesWithoutAQuestion) {
    Editor editor(PatternOf(Song()));
    const int result = editor.Run([&] {
        EXPECT_EQ(editor.Buttons(), "Update Delete ");
        EXPECT_EQ(editor.Fields(), "1:1:0 ID0 4/4");
        EXPECT_EQ(editor.driver->Text(kEditName), "Song");
        editor.Click(kBtnCancel);
    });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_FALSE(editor.dialog.GetModified());
    EXPECT_EQ(editor.dialog.GetInitialDirCsvLoad(), "/load");
    EXPECT_EQ(editor.dialog.GetInitialDirCsvSave(), "/save");
}

TEST(Frame, OkWritesIntoTheCopyAndLeavesTheHostsPattern) {
    Editor editor(PatternOf(Song()));
    const int result = editor.Run([&] {
        editor.Fill(kEditName, "Storm");
        EXPECT_TRUE(editor.dialog.IsNameModified());
        editor.ClickRow(5);
        editor.Click(kBtnDelete);
        editor.Click(kBtnOk);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_TRUE(editor.dialog.GetModified());
    CQelCPB_3DPattern& edited = *editor.dialog.Get3DPatternForTool();
    EXPECT_EQ(NameOf(edited), "Storm");
    EXPECT_EQ(CountEvents(edited), 5U);
    EXPECT_EQ(NameOf(editor.source), "Song");
    EXPECT_EQ(CountEvents(editor.source), 6U);
}

TEST(Frame, AsksBeforeEditsAreLost) {
    Editor editor(PatternOf(Song()));
    editor.boxes.Expect(kQuestion, kQuestionBox, IDCANCEL).Expect(kQuestion, kQuestionBox, IDOK);
    const int result = editor.Run([&] {
        editor.driver->Type(kEditName, "x");
        editor.driver->Key(Qt::Key_Backspace);  // The old name again is an edit all the same.
        EXPECT_EQ(editor.driver->Text(kEditName), "Song");
        EXPECT_TRUE(editor.dialog.GetModified());
        editor.driver->Key(Qt::Key_Escape);
        EXPECT_TRUE(editor.dialog.GetModified());
        WidgetOfWindow(editor.dialog.m_hWnd)->close();
    });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_FALSE(editor.dialog.GetModified());
    EXPECT_EQ(CountEvents(*editor.dialog.Get3DPatternForTool()), 6U);
}

TEST(Frame, ACorrectedPatternOpensModified) {
    CQelCPB_3DPattern pattern = PatternOf(Song());
    std::vector<t_tSigRec> records{{}, {0, 2, 2, 0, 3, 4}};
    st_paramTimeSigRecords reference{&records};
    ASSERT_TRUE(pattern.SetParam(2914, &reference, kSizeReference));
    Editor editor(std::move(pattern));
    editor.boxes.Expect("Index=1 : TimeSig. MBT Changed (2:2:0)->(3:1:0)\r\n", kReportBox, IDOK)
        .Expect(kQuestion, kQuestionBox, IDOK);
    editor.Run([&] {
        EXPECT_EQ(editor.Buttons(), "OK Update Delete ");
        editor.Click(kBtnCancel);
    });
}

TEST(Frame, NoPatternMakesADefaultOne) {
    Editor editor;
    editor.Run([&] {
        EXPECT_EQ(editor.driver->Text(kEditName), "New Pattern");
        EXPECT_EQ(editor.Rows(), Lines{"1* 4 / 4 1 1 0 - - - -"});
    });
}

TEST(Frame, OnlyOneEditorIsOpenAtATime) {
    Editor second;
    Editor first;
    first.boxes.Expect("Error: Orbix Already Opened", kErrorBox, IDOK);
    first.Run([&] {
        EXPECT_EQ(second.Run([] { ADD_FAILURE() << "a second editor is open"; }), -1);
        EXPECT_EQ(second.dialog.m_hWnd, nullptr);
    });
    EXPECT_EQ(second.Run([&] { second.Click(kBtnCancel); }), IDCANCEL);
}

TEST(Frame, KeysOfTheTextFieldsStayTheirOwn) {
    Editor editor(PatternOf(Song()));
    editor.Run([&] {
        editor.ClickRow(5);
        const Lines before = editor.Rows();
        for (const int field : {kEditName, kEditMeasure, kEditBeat, kEditTick}) {
            editor.Fill(field, "77");
            editor.driver->Key(field, Qt::Key_Home);
            editor.driver->Key(Qt::Key_Delete);
            EXPECT_EQ(editor.driver->Text(field), "7") << field;
            editor.driver->Key(Qt::Key_Z, Qt::ControlModifier);
            EXPECT_EQ(editor.driver->Text(field), "77") << field;
        }
        EXPECT_EQ(editor.Rows(), before);

        editor.driver->Key(kListEvents, Qt::Key_Delete);
        EXPECT_EQ(editor.Rows().size(), before.size() - 1);
        editor.driver->Key(kComboId, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(editor.Rows(), before);
        editor.driver->Key(kBtnAdd, Qt::Key_Y, Qt::ControlModifier);
        EXPECT_EQ(editor.Rows().size(), before.size() - 1);
    });
}

TEST(Frame, ViewSettingsOutliveTheDialog) {
    Editor editor(PatternOf(Song()));
    const auto marks = [&] {
        std::string text = editor.driver->Text(kComboZoom);
        for (const int id :
             {kChkXReverse, kChkYReverse, kChkZReverse, kChkIndexView, kChkIndexLine}) {
            text += editor.driver->Checked(id) ? " 1" : " 0";
        }
        return text;
    };
    editor.Run([&] {
        EXPECT_EQ(marks(), "1.00 0 0 0 1 1");
        for (const int id : {kChkXReverse, kChkZReverse, kChkIndexLine}) {
            editor.Click(id);
        }
        editor.driver->Key(kComboZoom, Qt::Key_Down);
    });
    editor.Run([&] { EXPECT_EQ(marks(), "0.50 1 0 1 1 0"); });
}

// The dot of the event one metre ahead stands at the upper end of plane 0's vertical axis.
TEST(Frame, ADragIsOneChangeAndHoldsTheCommandsBack) {
    Editor editor(PatternOf(Song()));
    const int result = editor.Run([&] {
        DialogDriver& driver = *editor.driver;
        RECT plane = editor.dialog.GetDlgItem(kPlaneAbove)->GetWindowRect();
        editor.dialog.ScreenToClient(plane);
        const QPoint dot(plane.left + Width(plane) / 2, plane.top + 16);
        const QPoint half(dot.x() + 40, plane.top + Height(plane) / 2);

        editor.ClickRow(1);
        EXPECT_EQ(driver.Grab().pixelColor(dot), QColor(255, 0, 255));
        editor.ClickRow(0);
        driver.MousePress(dot);
        driver.MouseRelease(dot);
        EXPECT_EQ(editor.Rows()[1], "0* - 1 1 0 0 1.00 0 0");
        EXPECT_EQ(editor.Buttons(), "Update Delete ");

        editor.dialog.SetModified(true);
        const Lines before = editor.State();
        driver.MousePress(dot);
        driver.MouseMove(half);
        driver.Key(Qt::Key_Delete);
        driver.Key(Qt::Key_Return);
        driver.Key(kChkIdAll, Qt::Key_Space);
        EXPECT_TRUE(driver.Checked(kChkIdAll));
        EXPECT_EQ(editor.State(), before);
        driver.Key(kChkIndexView, Qt::Key_Space);
        driver.MouseMove(half + QPoint(0, 30));
        driver.MouseMove(half);
        const QImage frame = driver.Grab();
        editor.dialog.Invalidate();
        EXPECT_EQ(driver.Grab(), frame) << "a frame of the drag is the whole picture";
        driver.Key(Qt::Key_Escape);
        driver.MouseRelease(half);
        EXPECT_EQ(editor.State(), before);

        driver.MousePress(dot);
        driver.MouseMove(half);
        driver.MouseRelease(half);
        EXPECT_EQ(editor.Rows()[1], "0* - 1 1 0 0 0.35 90 0");
        EXPECT_EQ(editor.Buttons(), "OK Update Delete Undo ");
        editor.Click(kBtnUndo);
        EXPECT_EQ(editor.Rows(), Lines(before.begin(), before.begin() + 6));
        EXPECT_EQ(editor.Buttons(), "OK Update Delete Redo ");
    });
    EXPECT_EQ(result, kEndedByDriver) << "neither OK nor Esc closed it";
}

TEST(PatternName, IsCutAtACharacterAndKeepsNoBrokenBytes) {
    EXPECT_EQ(DisplayName("Song"), "Song");
    EXPECT_EQ(DisplayName("12345678901234567890"), "1234567890123456");
    EXPECT_EQ(DisplayName("123456789012345\xC3\xA9"), "123456789012345");
    EXPECT_EQ(DisplayName("\x83\x5C\xE2\x82"), "?\\??");
    EXPECT_EQ(DisplayName("\xE2\x82\xAC\xF0\x9D\x84\x9E\xED\xA0\x80\xC0\x80"),
              "\xE2\x82\xAC\xF0\x9D\x84\x9E?????");
}

}  // namespace
