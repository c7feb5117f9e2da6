#include "patch/patch_dialog.h"

#include <gtest/gtest.h>

#include "link/smw_manager.h"
#include "res/resources.h"
#include "tests/support/bytes.h"
#include "tests/support/ui_driver.h"

namespace {

constexpr char kQuestion[] = "The block has been edited.\nSelecting cancel will undo the changes?";

struct PatchDialogTest : testing::Test {
    PatchDialogTest() { AfxInitExtensionModule(OrbixResources()); }
    ~PatchDialogTest() override { AfxTermExtensionModule(OrbixResources()); }

    /// Gives what a host gets: how the dialog ended, and the identifier and bytes of its block.
    std::string Run(CZurParamBlock* block, const std::function<void(DialogDriver&)>& script) {
        CQel_3DPatchDialog dialog(nullptr, block, nullptr, link);
        EXPECT_EQ(&dialog.GetSMWManRef(), &link);
        const std::string end = RunDialog(dialog, script) == IDOK ? "OK, " : "Cancel, ";
        const CZurParamBlock* result = dialog.GetParamBlock();
        if (result == nullptr) {
            return end + "no block";
        }
        std::string bytes(result->GetLength(), '\0');
        result->GetData(bytes.data(), result->GetLength());
        return end + std::to_string(result->GetID()) + ": " + Hex(bytes);
    }
    /// "identifier length row|row*": the bytes of each row, a star behind the selected one.
    static std::string State(DialogDriver& driver) {
        std::string state = driver.Text(kPatchIdentifier) + " " + driver.Text(kPatchLength) + " ";
        const std::vector<int> selected = driver.SelectedRows(kPatchTable);
        int number = 0;
        for (const auto& row : driver.RowTexts(kPatchTable)) {
            for (std::size_t column = 1; column < 17 && !row[column].empty(); ++column) {
                state += row[column];
            }
            state += selected == std::vector<int>{number++} ? "*|" : "|";
        }
        return state + driver.Text(kPatchRow) + (driver.Enabled(kPatchUndo) ? " undo" : "") +
               (driver.Enabled(kPatchRedo) ? " redo" : "");
    }
    CZurSMWMan link;
    MessageBoxScript boxes;
};

TEST_F(PatchDialogTest, ShowsEditsTakesBackAndGivesTheBlock) {
    CZurParamBlock block(2900, ":;<=>?@ABCDEFGHIJK", 18);
    const std::string first = "3A3B3C3D3E3F40414243444546474849";
    const std::string result = Run(&block, [&](DialogDriver& driver) {
        EXPECT_EQ(State(driver),
                  "2900 18 " + first + "*|4A4B|3A 3B 3C 3D 3E 3F 40 41 42 43 44 45 46 47 48 49");
        EXPECT_EQ(driver.RowTexts(kPatchTable)[0].back(), ":;<=>?@ABCDEFGHI");
        // Typed row by row; Enter goes on.
        driver.Fill(kPatchRow, "typed");  // The first thing to take back.
        driver.Click(kPatchUndo);
        EXPECT_EQ(driver.Text(kPatchRow).substr(0, 5), "3A 3B");
        EXPECT_FALSE(driver.Enabled(kPatchUndo));
        driver.Fill(kPatchRow, "ff000102030405060708090a0b0c0d0e");
        driver.Key(Qt::Key_Return);
        driver.Fill(kPatchRow, "1 2");
        boxes.Expect("Error: Row expected as 2 bytes of two hex digits", 16, IDOK);
        driver.Key(Qt::Key_Return);
        EXPECT_EQ(State(driver), "2900 18 FF000102030405060708090A0B0C0D0E|4A4B*|1 2 undo");
        boxes.Expect("Error: Row expected as 2 bytes of two hex digits, found 1 byte", 16, IDOK);
        driver.Fill(kPatchRow, "1f");
        driver.ClickRow(kPatchTable, 0);
        EXPECT_EQ(State(driver), "2900 18 FF000102030405060708090A0B0C0D0E|4A4B*|1f undo");
        driver.Fill(kPatchRow, "01 02");
        driver.ClickRow(kPatchTable, 0);  // Another row takes it over, one at a time.
        driver.ClickRow(kPatchTable, 1, Qt::ControlModifier);
        EXPECT_EQ(driver.SelectedRows(kPatchTable), std::vector<int>{1});
        EXPECT_EQ(driver.Text(kPatchRow), "01 02");
        driver.ClickRow(kPatchTable, 0);
        driver.Fill(kPatchLength, "3");
        driver.Fill(kPatchIdentifier, "0xB55");
        driver.Click(kPatchApply);
        const std::string applied = "2901 3 FF0001*|FF 00 01 undo";
        EXPECT_EQ(State(driver), applied);
        driver.Fill(kPatchRow, "typed");
        driver.Click(kPatchUndo);
        EXPECT_EQ(State(driver), applied);

        for (const std::string step : {"2901 18 FF000102030405060708090A0B0C0D0E*|0102|",
                                       "2900 18 FF000102030405060708090A0B0C0D0E*|0102|",
                                       "2900 18 FF000102030405060708090A0B0C0D0E*|4A4B|"}) {
            driver.Key(kPatchTable, Qt::Key_Z, Qt::ControlModifier);
            EXPECT_EQ(State(driver),
                      step + "FF 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E undo redo");
        }
        driver.Click(kPatchUndo);
        EXPECT_EQ(State(driver).substr(0, 46), "2900 18 " + first + "*|4A4B");
        for (int step = 0; step < 3; ++step) {
            driver.Key(kPatchTable, Qt::Key_Y, Qt::ControlModifier);
        }
        driver.Fill(kPatchIdentifier, "5");  // Ends what can be made again.
        driver.Click(kPatchApply);
        EXPECT_FALSE(driver.Enabled(kPatchRedo));
        driver.Click(IDOK);
    });
    EXPECT_EQ(result, "OK, 5: FF 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 01 02");
    EXPECT_EQ(block.GetID(), 2900U) << "the host's own block is not touched";
}

TEST_F(PatchDialogTest, WhatMakesNoSenseIsRefusedAndStays) {
    CZurParamBlock block(1, "\x01\x02", 2);
    const char length[] = "Error: Length expected from 0 to 65536";
    const char number[] = "Error: Identifier expected from 0 to 4294967295, or 0x and hex digits";
    const struct {
        int field;
        std::string text, message;
    } refusals[] = {
        {kPatchRow, "", "Error: Row expected as 2 bytes of two hex digits, found 0 bytes"},
        {kPatchRow, "010203", "Error: Row expected as 2 bytes of two hex digits, found 3 bytes"},
        {kPatchRow, "01 0x", "Error: Row expected as 2 bytes of two hex digits"},
        {kPatchLength, "65537", length},
        {kPatchLength, "-1", length},
        {kPatchIdentifier, "4294967296", number},
        {kPatchIdentifier, "0x", number}};
    const std::string result = Run(&block, [&](DialogDriver& driver) {
        for (const auto& [field, text, message] : refusals) {
            driver.Fill(kPatchRow, "05 06");
            driver.Fill(field, text.empty() ? " " : text);
            const std::string state = State(driver);
            boxes.Expect(message, 16, IDOK);
            driver.Click(IDOK);
            EXPECT_EQ(State(driver), state) << text;
            driver.Key(kPatchTable, Qt::Key_Z, Qt::ControlModifier);
            EXPECT_EQ(State(driver), "1 2 0102*|01 02") << "a sound row beside it counts no more";
        }
        driver.Fill(kPatchLength, "65536");
        driver.Click(kPatchApply);
        EXPECT_EQ(driver.Text(kPatchLength), "65536");
        boxes.Expect(kQuestion, 33, IDCANCEL).Expect(kQuestion, 33, IDOK);
        driver.Click(IDCANCEL);
        driver.Key(Qt::Key_Escape);
    });
    EXPECT_EQ(result, "Cancel, no block");
}

TEST_F(PatchDialogTest, WithoutABlockOneCanBeMade) {
    const auto accept = [](DialogDriver& driver) {
        EXPECT_EQ(State(driver), "0 0 ");
        driver.Click(IDOK);
    };
    EXPECT_EQ(Run(nullptr, accept), "OK, no block");
    const auto acceptTwo = [](DialogDriver& driver) {
        driver.Fill(kPatchLength, "2");
        driver.Click(IDOK);
    };
    EXPECT_EQ(Run(nullptr, acceptTwo), "OK, 0: 00 00");
    // A length above the bytes that a block has shows what it has.
    CZurParamBlock claims(7, "\x05", 1);
    claims.SetLength(0xFFFFFFFF);
    const auto typeAndCancel = [this](DialogDriver& driver) {
        EXPECT_EQ(State(driver), "7 1 05*|05");
        driver.Fill(kPatchRow, "06");
        boxes.Expect(kQuestion, 33, IDOK);
        driver.Click(IDCANCEL);
    };
    EXPECT_EQ(Run(&claims, typeAndCancel), "Cancel, no block");
}

}  // namespace
