#include "tests/platform/probe_dialog.h"

#include <array>
#include <map>

#include "platform/native.h"

namespace probe {

namespace {

using enum ControlKind;

constexpr std::array<const char*, 3> kChoices{"one", "two", "three"};

constexpr std::array<ControlTemplate, 20> kControls{{
    {placeFrame, kPlace, "", 210, 60, 40, 40, 0, nullptr, {}},
    {staticText, kLabel, "&Number", 8, 10, 40, 8, 0, nullptr, {}},
    {edit, kNumber, "", 50, 8, 40, 12, kTabStop, "Number", {}},
    {spin, kSpin, "", 90, 8, 8, 12, 0, nullptr, {}},
    {edit, kName, "", 110, 8, 60, 12, kTabStop, "Name", {}},
    {list, kList, "", 8, 100, 266, 80, kTabStop, "Rows", {}},
    {slider, kSlider, "", 8, 30, 100, 10, kTabStop, "Slider", {}},
    {checkBox, kBox, "plain", 8, 45, 50, 10, kTabStop, nullptr, {}},
    {autoCheckBox, kAutoBox, "auto", 60, 45, 50, 10, kTabStop, nullptr, {}},
    {pushLikeCheck, kStayButton, "stay", 110, 45, 30, 12, kTabStop, nullptr, {}},
    {radioButton, kRadioA, "a", 8, 60, 30, 10, kTabStop | kGroupStart, nullptr, {}},
    {radioButton, kRadioB, "b", 40, 60, 30, 10, 0, nullptr, {}},
    {radioButton, kRadioC, "c", 72, 60, 30, 10, kTabStop | kGroupStart, nullptr, {}},
    {comboBox, kCombo, "", 110, 60, 60, 12, kTabStop | kGroupStart, "Choice", kChoices},
    {customStatic, kPainted, "", 8, 75, 100, 10, 0, nullptr, {}},
    {tab, kTab, "", 210, 2, 100, 50, kTabStop, "Pages", {}},
    {pushButton, kButton, "&Go", 280, 100, 30, 12, kTabStop, nullptr, {}},
    {pushButton, kDimButton, "Dim", 280, 115, 30, 12, kTabStop | kDisabled, nullptr, {}},
    {pushButton, IDOK, "OK", 280, 150, 30, 12, kTabStop | kDefaultButton, nullptr, {}},
    {pushButton, IDCANCEL, "Cancel", 280, 165, 30, 12, kTabStop, nullptr, {}},
}};

constexpr std::array<ControlTemplate, 2> kPageControls{{
    {edit, kReadOnlyEdit, "", 3, 3, 40, 12, kTabStop | kReadOnly, nullptr, {}},
    {slider, 51, "", 3, 18, 60, 10, kTabStop, nullptr, {}},
}};

constexpr std::array<DialogTemplate, 2> kDialogs{{
    {100, "Probe", 320, 200, false, true, kControls},
    {101, "Page", 90, 32, true, false, kPageControls},
}};

constexpr std::array<PictureResource, 1> kPictures{{
    {1, 16, "<svg viewBox='0 0 16 16'><rect width='16' height='16' fill='#ff0000'/></svg>"},
}};

constexpr ResourceTable kTable{kDialogs, {}, kPictures, kPictures};

using Names = std::map<UINT, std::string>;
const Names kNotedByEdits{{WM_KEYDOWN, "keydown"}, {WM_KEYUP, "keyup"},    {WM_CHAR, "char"},
                          {WM_SETFOCUS, "focus"},  {WM_KILLFOCUS, "blur"}, {WM_PASTE, "paste"}};
const Names kNotedByDialog{{WM_CAPTURECHANGED, "capture lost"},
                           {WM_CLOSE, "close"},
                           {WM_LBUTTONDOWN, "press"},
                           {WM_LBUTTONUP, "release"},
                           {WM_MOUSEMOVE, "move"}};

std::string Describe(const NMHDR& header) {
    std::string words = std::to_string(header.idFrom) + " notify " + std::to_string(header.code);
    const auto& item = reinterpret_cast<const NMLISTVIEW&>(header);
    if (header.code == LVN_ITEMCHANGED || header.code == NM_RCLICK || header.code == NM_DBLCLK) {
        words += " row " + std::to_string(item.iItem);
    }
    if (header.code == LVN_ITEMCHANGED) {
        words += " " + std::to_string(item.uOldState) + "->" + std::to_string(item.uNewState);
    }
    return words;
}

// What the dialog notes of a message, empty for most.
std::string Describe(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) {
        return std::to_string(wParam & 0xFFFFU) + " command " + std::to_string(wParam >> 16U);
    }
    if (message == WM_NOTIFY) {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        return header.code == NM_CUSTOMDRAW ? "" : Describe(header);
    }
    if (message == WM_HSCROLL) {
        return std::to_string(native::GetControlId(reinterpret_cast<HWND>(lParam))) + " scroll";
    }
    const auto known = kNotedByDialog.find(message);
    const POINT point = UnpackPoint(lParam);
    return known == kNotedByDialog.end() ? ""
           : message < WM_MOUSEMOVE || message > WM_MBUTTONUP
               ? known->second
               : known->second + " " + std::to_string(point.x) + "," + std::to_string(point.y);
}

}  // namespace

LRESULT NotingEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const auto known = kNotedByEdits.find(message); known != kNotedByEdits.end()) {
        const bool key = message == WM_KEYDOWN || message == WM_CHAR || message == WM_KEYUP;
        dynamic_cast<ProbeDialog&>(*GetParent())
            .Note(std::to_string(GetDlgCtrlID()) + " " + known->second +
                  (key ? " " + std::to_string(wParam) : ""));
    }
    return message == swallowed ? 0 : CEdit::WindowProc(message, wParam, lParam);
}

BOOL ProbeDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    page.Create(101, GetDlgItem(kTab));
    const RECT size = page.GetClientRect();
    page.MoveWindow({3, 22, 3 + size.right, 22 + size.bottom});
    Item<CTabCtrl>(kTab).InsertItem(0, "First");
    Item<CTabCtrl>(kTab).InsertItem(1, "Second");
    page.ShowWindow(SW_SHOW);
    return TRUE;
}

void ProbeDialog::DoDataExchange(CDataExchange* exchange) {
    DDX_Control(exchange, kNumber, number);
    DDX_Control(exchange, kName, name);
    DDX_Text(exchange, kName, text);
}

LRESULT ProbeDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const std::string line = Describe(message, wParam, lParam); !line.empty()) {
        Note(line);
    }
    const bool taken = onMessage && onMessage(message, wParam, lParam);
    return taken || m_hWnd == nullptr ? 0 : CDialog::WindowProc(message, wParam, lParam);
}

Test::Test() {
    AfxInitExtensionModule(kTable);
}

Test::~Test() {
    AfxTermExtensionModule(kTable);
}

}  // namespace probe
