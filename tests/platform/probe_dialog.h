#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls.h"
#include "platform/data_exchange.h"
#include "platform/dialog.h"
#include "platform/dialog_template.h"

/// A small dialog with one control of each kind, which writes down the messages that reach it and
/// its two edits.
namespace probe {

enum Id : int {
    kOk = 1,
    kCancel = 2,
    kPlace = 9,
    kNumber = 10,
    kSpin = 11,
    kName = 12,
    kList = 20,
    kSlider = 30,
    kTab = 40,
    kPageEdit = 50,
    kPageSlider = 51,
    kBox = 60,
    kAutoBox = 61,
    kStayButton = 62,
    kRadioA = 63,
    kRadioB = 64,
    kRadioC = 65,
    kCombo = 70,
    kLabel = 80,
    kPainted = 81,
    kButton = 90,
};

using Log = std::vector<std::string>;

/// Notes keys, characters, focus and clipboard messages, and may swallow one of them.
class NotingEdit : public CEdit {
public:
    explicit NotingEdit(Log& log) : log_(log) {}
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    UINT swallowed = 0;

private:
    Log& log_;
};

class ProbePage : public CPropertyPage {
public:
    explicit ProbePage(Log& log) : CPropertyPage(101), log_(log) {}
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    Log& log_;
};

class ProbeDialog : public CDialog {
public:
    ProbeDialog() : CDialog(100), number(log), name(log), page(log) {}

    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL PreTranslateMessage(MSG* message) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    /// Takes the log, which begins anew.
    Log TakeLog() { return std::exchange(log, {}); }
    template <typename Control>
    Control& Item(int id) {
        return dynamic_cast<Control&>(*GetDlgItem(id));
    }

    Log log;
    bool logMouse = false;
    NotingEdit number;
    NotingEdit name;
    ProbePage page;
    /// Runs on each command notification, after it is noted.
    std::function<void(UINT id, UINT code)> onCommand;
    /// May answer a notification.
    std::function<LRESULT(NMHDR& header)> onNotify;
    /// Runs on messages before the base class; true keeps them from it.
    std::function<bool(UINT message, WPARAM wParam, LPARAM lParam)> onMessage;
    /// Keys that PreTranslateMessage takes.
    std::vector<int> takenKeys;
};

/// Makes the templates findable while an object lives.
class Resources {
public:
    Resources();
    ~Resources();
};

}  // namespace probe
