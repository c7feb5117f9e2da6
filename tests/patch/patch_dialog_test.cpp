#include "patch/patch_dialog.h"

#include <gtest/gtest.h>

#include <numeric>

#include "link/smw_manager.h"
#include "res/resources.h"
#include "tests/support/bytes.h"
#include "tests/support/ui_driver.h"

namespace {

struct PatchDialogTest : testing::Test {
    PatchDialogTest() { AfxInitExtensionModule(OrbixResources()); }
    ~PatchDialogTest() override { AfxTermExtensionModule(OrbixResources()); }

    int Run(CZurParamBlock* block, const std::function<void(DialogDriver&)>& script) {
        dialog = std::make_unique<CQel_3DPatchDialog>(nullptr, block, nullptr, link);
        return RunDialog(*dialog, script);
    }
    static void Fill(DialogDriver& driver, int id, const std::string& text) {
        auto& field = *driver.Dialog().GetDlgItemAs<CEdit>(id);
        field.SetFocus();
        field.SetSel(0, -1);
        driver.Type(id, text);
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
    std::string Result() const {
        const CZurParamBlock* result = dialog->GetParamBlock();
        std::string bytes(result->GetLength(), '\0');
        result->GetData(bytes.data(), result->GetLength());
        return std::to_string(result->GetID()) + ": " + Hex(bytes);
    }

    CZurSMWMan link;
    std::unique_ptr<CQel_3DPatchDialog> dialog;
    MessageBoxScript boxes;
};

TEST_F(PatchDialogTest, ShowsEditsTakesBackAndGivesTheBlock) {
    std::vector<std::uint8_t> bytes(18);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{0x3A});
    CZurParamBlock block(2900, bytes.data(), 18);
    const std::string first = "3A3B3C3D3E3F40414243444546474849";
    const int result = Run(&block, [&](DialogDriver& driver) {
        EXPECT_EQ(&dialog->GetSMWManRef(), &link);
        EXPECT_EQ(State(driver),
                  "2900 18 " + first + "*|4A4B|3A 3B 3C 3D 3E 3F 40 41 42 43 44 45 46 47 48 49");
        EXPECT_EQ(driver.RowTexts(kPatchTable)[0].back(), ":;<=>?@ABCDEFGHI");
        if (const char* picture = std::getenv("ORBIX_PICTURE")) {
            driver.Save(picture);
        }
        // Typed row by row; Enter goes on.
        Fill(driver, kPatchRow, "ff000102030405060708090a0b0c0d0e");
        driver.Key(Qt::Key_Return);
        Fill(driver, kPatchRow, "1 2");
        boxes.Expect("Error: Row expected as 2 bytes of two hex digits", 16, IDOK);
        driver.Key(Qt::Key_Return);
        EXPECT_EQ(State(driver), "2900 18 FF000102030405060708090A0B0C0D0E|4A4B*|1 2 undo");
        Fill(driver, kPatchRow, "01 02");
        driver.ClickRow(kPatchTable, 0);  // Another row takes it over.
        Fill(driver, kPatchLength, "3");
        Fill(driver, kPatchIdentifier, "0xB55");
        driver.Click(kPatchApply);
        EXPECT_EQ(State(driver), "2901 3 FF0001*|FF 00 01 undo");

        const std::string steps[] = {"2901 18 FF000102030405060708090A0B0C0D0E*|0102|",
                                     "2900 18 FF000102030405060708090A0B0C0D0E*|0102|",
                                     "2900 18 FF000102030405060708090A0B0C0D0E*|4A4B|"};
        for (const std::string& step : steps) {
            driver.Key(kPatchTable, Qt::Key_Z, Qt::ControlModifier);
            EXPECT_EQ(State(driver), step +
                                         "FF 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E "
                                         "undo redo");
        }
        driver.Click(kPatchUndo);
        EXPECT_EQ(State(driver).substr(0, 46), "2900 18 " + first + "*|4A4B");
        for (int step = 0; step < 3; ++step) {
            driver.Key(kPatchTable, Qt::Key_Y, Qt::ControlModifier);
        }
        driver.Click(IDOK);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(Result(), "2901: FF 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 01 02");
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
    const int result = Run(&block, [&](DialogDriver& driver) {
        for (const auto& [field, text, message] : refusals) {
            const std::string before = driver.Text(field);
            Fill(driver, field, text.empty() ? " " : text);
            const std::string state = State(driver);
            boxes.Expect(message, 16, IDOK);
            driver.Click(IDOK);
            EXPECT_EQ(State(driver), state) << text;
            Fill(driver, field, before);
        }
        EXPECT_EQ(State(driver), "1 2 0102*|01 02");
        Fill(driver, kPatchLength, "65536");
        driver.Click(kPatchApply);
        EXPECT_EQ(driver.Text(kPatchLength), "65536");
        const char question[] =
            "The block has been edited.\nSelecting cancel will undo the changes?";
        boxes.Expect(question, 33, IDCANCEL).Expect(question, 33, IDOK);
        driver.Click(IDCANCEL);
        driver.Key(Qt::Key_Escape);
    });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(dialog->GetParamBlock(), nullptr);
}

TEST_F(PatchDialogTest, WithoutABlockOneCanBeMade) {
    Run(nullptr, [&](DialogDriver& driver) {
        EXPECT_EQ(State(driver), "0 0 ");
        driver.Click(IDOK);
    });
    EXPECT_EQ(dialog->GetParamBlock(), nullptr);
    // A length above the bytes that a block has shows what it has.
    CZurParamBlock claims(7, "\x05", 1);
    claims.SetLength(0xFFFFFFFF);
    Run(&claims, [&](DialogDriver& driver) { EXPECT_EQ(State(driver), "7 1 05*|05"); });
    Run(nullptr, [&](DialogDriver& driver) {
        Fill(driver, kPatchLength, "2");
        driver.Click(IDOK);
    });
    ASSERT_NE(dialog->GetParamBlock(), nullptr);
    EXPECT_EQ(Result(), "0: 00 00");
}

}  // namespace
