#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "platform/controls.h"
#include "platform/data_exchange.h"
#include "platform/dialog.h"
#include "platform/dialog_template.h"
#include "tests/support/ui_driver.h"

/// A small dialog with one control of each kind, which writes down the messages that reach it and
/// its two edits.
namespace probe {

inline constexpr int kPlace = 9, kNumber = 10, kSpin = 11, kName = 12, kList = 20, kSlider = 30;
inline constexpr int kTab = 40, kReadOnlyEdit = 50, kCombo = 70, kLabel = 80, kPainted = 81;
inline constexpr int kBox = 60, kAutoBox = 61, kStayButton = 62, kButton = 90, kDimButton = 91;
inline constexpr int kRadioA = 63, kRadioB = 64, kRadioC = 65;

/// Notes keys, characters, focus and pasting with its dialog, and may swallow one of these.
class NotingEdit : public CEdit {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    UINT swallowed = 0;
};

class ProbeDialog : public CDialog {
public:
    ProbeDialog() : CDialog(100) {}

    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    void Note(const std::string& line) { log += (log.empty() ? "" : "; ") + line; }
    template <typename Control>
    Control& Item(int id) {
        return dynamic_cast<Control&>(*GetDlgItem(id));
    }

    /// What happened, in order: "10 keydown 55; 10 char 55; 10 command 768".
    std::string log;
    NotingEdit number;
    NotingEdit name;
    CPropertyPage page{101};
    /// Goes to and fro between here and the name's box.
    CString text;
    /// Runs on messages, after they are noted; true keeps them from the base class.
    std::function<bool(UINT message, WPARAM wParam, LPARAM lParam)> onMessage;
};

/// Has a probe dialog; its templates are findable while a test runs.
class Test : public testing::Test {
protected:
    Test();
    ~Test() override;

    int Run(const std::function<void(DialogDriver& user)>& script) {
        return RunDialog(dialog_, script);
    }
    /// The log, which begins anew.
    std::string TakeLog() { return std::exchange(dialog_.log, {}); }

    ProbeDialog dialog_;
};

}  // namespace probe
