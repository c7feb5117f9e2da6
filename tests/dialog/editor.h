#pragma once

#include <functional>
#include <string>
#include <vector>

#include "dialog/orbix_main_dlg.h"
#include "link/smw_manager.h"
#include "params/pattern_block.h"
#include "tests/event/event_builders.h"
#include "tests/support/ui_driver.h"

using Lines = std::vector<std::string>;

inline constexpr UINT kErrorBox = 16;
inline constexpr UINT kQuestionBox = 33;
inline constexpr UINT kReportBox = 48;

/// Six events over three measures: 4/4, and 3/4 from measure 2.
std::vector<_tagEvent3D> Song();
CQelCPB_3DPattern PatternOf(std::vector<_tagEvent3D> events, const std::string& name = "Song");

/// An editor on a pattern, with the message boxes it is to show, driven by a script. Each one
/// starts with the view settings of a fresh process.
class Editor {
public:
    /// On no pattern.
    Editor() : Editor({}, nullptr, true, 0, 0) {}
    explicit Editor(const CQelCPB_3DPattern& pattern) : Editor(pattern, &source, true, 0, 0) {}
    /// In range mode.
    Editor(const CQelCPB_3DPattern& pattern, unsigned long rangeStart, unsigned long rangeEnd)
        : Editor(pattern, &source, false, rangeStart, rangeEnd) {}

    /// Opens the editor and runs the script; gives DoModal's result.
    int Run(const std::function<void()>& script);

    /// Each row as image number, "*" when selected, and the texts behind the image.
    Lines Rows();
    /// "measure:beat:tick ID numerator/denominator", with "timesig" when that radio is chosen.
    std::string Fields();
    /// Which of OK, Update, Delete, Undo, Redo are enabled.
    std::string Buttons();
    /// All of the above: what a refused command must leave as it was.
    Lines State();

    /// Replaces the text of a box as a user does.
    void Fill(int id, const std::string& text);
    void FillTime(const std::string& measure, const std::string& beat, const std::string& tick);
    void ChooseRow(int comboId, int row);
    void Click(int id) { driver->Click(id); }
    void ClickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        driver->ClickRow(kListEvents, row, modifiers);
    }

    CQelCPB_3DPattern source;
    CZurSMWMan link{nullptr, nullptr, nullptr, nullptr};
    COrbixMainDlg dialog;
    MessageBoxScript boxes;
    DialogDriver* driver = nullptr;

private:
    Editor(const CQelCPB_3DPattern& pattern, CQelCPB_3DPattern* given, bool freeMode,
           unsigned long start, unsigned long end);
};
