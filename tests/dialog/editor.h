#pragma once

#include <functional>
#include <string>
#include <vector>

#include "dialog/orbix_main_dlg.h"
#include "link/smw_manager.h"
#include "params/param_block.h"
#include "params/pattern_block.h"
#include "tests/event/event_builders.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/ui_driver.h"

using Lines = std::vector<std::string>;

inline constexpr UINT kErrorBox = 16;

/// A file with nothing but 4/4.
inline const std::string kTake =
    "Division,480\r\n3D ID,Meas,Beat,Tick,Distance,Azimuth,Elevation,TimeSig.\r\n"
    ",1,1,0,,,,4_4\r\n";

/// Six events over three measures: 4/4, and 3/4 from measure 2.
std::vector<_tagEvent3D> Song();
CQelCPB_3DPattern PatternOf(const std::vector<_tagEvent3D>& events);
/// The same with other time signatures, as only another program can have written them.
CQelCPB_3DPattern WithTimeSigs(CQelCPB_3DPattern pattern, std::vector<t_tSigRec> records);

/// A control's number by what a screen reader calls it; throws when there is none of that name.
int ControlNamed(const std::string& name);

/// Notes what goes out, and says it did not.
struct NotingDevice : Device {
    bool PrepareOutput(std::uint32_t) override { return true; }
    std::int32_t WriteBlock(const void* data, std::uint32_t length) override;
    Lines blocks;
};

/// An editor on a pattern, with the message boxes it is to show, driven by a script. Each one
/// starts with the view settings of a fresh process.
class Editor {
public:
    /// On no pattern and no block.
    Editor() : Editor({}, false, true, 0, 0) {}
    explicit Editor(const CQelCPB_3DPattern& pattern) : Editor(pattern, true, true, 0, 0) {}
    /// In range mode.
    Editor(const CQelCPB_3DPattern& pattern, unsigned long rangeStart, unsigned long rangeEnd)
        : Editor(pattern, true, false, rangeStart, rangeEnd) {}
    ~Editor() { ownership.GiveUp(); }

    /// Opens the editor and runs the script; gives DoModal's result.
    int Run(const std::function<void()>& script);

    /// Each row as image number, "*" when selected, and the texts behind the image, "." for none.
    Lines Rows();
    /// "measure:beat:tick ID numerator/denominator", with "timesig" when that radio is chosen.
    std::string Fields();
    /// All that an editor shows and has done: the rows, the fields, which controls are dim or
    /// ticked, the host's block, what went to the device. A refused command must leave it.
    Lines State();
    bool IsOpen() const;

    void Fill(int id, const std::string& text) { driver->Fill(id, text); }
    void FillTime(const std::string& measure, const std::string& beat, const std::string& tick);
    void ChooseRow(int comboId, int row);
    void Click(int id) { driver->Click(id); }
    void ClickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                  Qt::MouseButton button = Qt::LeftButton) {
        driver->ClickRow(kListEvents, row, modifiers, button);
    }

    CQelCPB_3DPattern source;
    CZurParamBlock block{2900, "\x01\x02\x03", 3};
    CSingleLock mainLock, stateLock, busy;
    CEvent release, held;
    NotingDevice device;
    CDeviceOwnership ownership{&mainLock, &stateLock, &release, &held, nullptr, nullptr, nullptr};
    CZurSMWMan link{&ownership, &device, nullptr, &busy};
    COrbixMainDlg dialog;
    MessageBoxScript boxes;
    DialogDriver* driver = nullptr;

private:
    Editor(const CQelCPB_3DPattern& pattern, bool given, bool freeMode, unsigned long start,
           unsigned long end);
};
