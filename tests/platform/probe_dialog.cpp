#include "tests/platform/probe_dialog.h"

#include <array>

#include "platform/native.h"

namespace probe {

namespace {

using enum ControlKind;

constexpr std::array<const char*, 3> kChoices{"one", "two", "three"};

constexpr std::array<ControlTemplate, 21> kControls{{
    {groupBox, 8, "&Frame", 2, 2, 200, 90, 0, nullptr, {}},
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
    {pushButton, 91, "Dim", 280, 115, 30, 12, kTabStop | kDisabled, nullptr, {}},
    {pushButton, kOk, "OK", 280, 150, 30, 12, kTabStop | kDefaultButton, nullptr, {}},
    {pushButton, kCancel, "Cancel", 280, 165, 30, 12, kTabStop, nullptr, {}},
}};

constexpr std::array<ControlTemplate, 2> kPageControls{{
    {edit, kPageEdit, "", 3, 3, 40, 12, kTabStop, nullptr, {}},
    {slider, kPageSlider, "", 3, 18, 60, 10, kTabStop, nullptr, {}},
}};

constexpr std::array<DialogTemplate, 3> kDialogs{{
    {100, "Probe", 320, 200, false, true, kControls},
    {101, "Page", 90, 32, true, false, kPageControls},
    {102, "Editor", 439, 359, false, false, {}},
}};

constexpr std::array<PictureResource, 2> kPictures{{
    {1, 16, "<svg viewBox='0 0 16 16'><rect width='16' height='16' fill='#ff0000'/></svg>"},
    {2, 16, "<svg viewBox='0 0 16 16'><rect width='8' height='16' fill='#ffffff'/></svg>"},
}};

constexpr ResourceTable kTable{kDialogs, {}, kPictures, kPictures};

const char* NameOf(UINT message) {
    switch (message) {
        case WM_KEYDOWN:
            return "keydown";
        case WM_KEYUP:
            return "keyup";
        case WM_CHAR:
            return "char";
        case WM_SETFOCUS:
            return "focus";
        case WM_KILLFOCUS:
            return "blur";
        case WM_PASTE:
            return "paste";
        case WM_COPY:
            return "copy";
        case WM_CUT:
            return "cut";
        case WM_UNDO:
            return "undo";
        case WM_LBUTTONDOWN:
            return "press";
        case WM_LBUTTONUP:
            return "release";
        case WM_MOUSEMOVE:
            return "move";
        case WM_CAPTURECHANGED:
            return "capture lost";
        case WM_PAINT:
            return "paint";
        case WM_CLOSE:
            return "close";
        case WM_TIMER:
            return "timer";
        default:
            return nullptr;
    }
}

std::string IdOf(LPARAM control) {
    return std::to_string(native::GetControlId(reinterpret_cast<HWND>(control)));
}

std::string Describe(const NMHDR& header) {
    std::string words = std::to_string(header.idFrom) + " notify " + std::to_string(header.code);
    if (header.code == LVN_ITEMCHANGED) {
        const auto& item = reinterpret_cast<const NMLISTVIEW&>(header);
        words += " row " + std::to_string(item.iItem) + " " + std::to_string(item.uOldState) +
                 "->" + std::to_string(item.uNewState);
    } else if (header.code == NM_RCLICK || header.code == NM_DBLCLK) {
        words += " row " + std::to_string(reinterpret_cast<const NMLISTVIEW&>(header).iItem);
    }
    return words;
}

}  // namespace

LRESULT NotingEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool text = message == WM_KEYDOWN || message == WM_CHAR || message == WM_KEYUP;
    if (const char* known = NameOf(message); known != nullptr && message < WM_MOUSEMOVE) {
        log_.push_back(std::to_string(GetDlgCtrlID()) + " " + known +
                       (text ? " " + std::to_string(wParam) : std::string()));
    } else if (known != nullptr && message >= WM_CUT) {
        log_.push_back(std::to_string(GetDlgCtrlID()) + " " + known);
    }
    return message == swallowed ? 0 : CEdit::WindowProc(message, wParam, lParam);
}

LRESULT ProbePage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_HSCROLL) {
        log_.push_back("page scroll " + IdOf(lParam));
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
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
}

BOOL ProbeDialog::PreTranslateMessage(MSG* message) {
    const bool taken = std::any_of(takenKeys.begin(), takenKeys.end(), [&](int key) {
        return message->message == WM_KEYDOWN && message->wParam == static_cast<WPARAM>(key);
    });
    return taken ? TRUE : CDialog::PreTranslateMessage(message);
}

LRESULT ProbeDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT answer = 0;
    if (message == WM_COMMAND) {
        const auto code = static_cast<UINT>(wParam >> 16U);
        log.push_back(std::to_string(wParam & 0xFFFFU) + " command " + std::to_string(code));
        if (onCommand) {
            onCommand(static_cast<UINT>(wParam & 0xFFFFU), code);
        }
    } else if (message == WM_NOTIFY) {
        auto& header = *reinterpret_cast<NMHDR*>(lParam);
        if (header.code != NM_CUSTOMDRAW) {
            log.push_back(Describe(header));
        }
        answer = onNotify ? onNotify(header) : 0;
    } else if (message == WM_HSCROLL) {
        log.push_back("scroll " + IdOf(lParam));
    } else if (const char* known = NameOf(message);
               known != nullptr && (logMouse || message > WM_MBUTTONUP || message < WM_MOUSEMOVE)) {
        const POINT point = UnpackPoint(lParam);
        const bool mouse = message >= WM_MOUSEMOVE && message <= WM_MBUTTONUP;
        log.push_back(mouse ? std::string(known) + " " + std::to_string(point.x) + "," +
                                  std::to_string(point.y)
                            : known);
    }
    if (onMessage && onMessage(message, wParam, lParam)) {
        return 0;
    }
    const LRESULT result = m_hWnd == nullptr ? 0 : CDialog::WindowProc(message, wParam, lParam);
    return message == WM_NOTIFY ? answer : result;
}

Resources::Resources() {
    AfxInitExtensionModule(kTable);
}

Resources::~Resources() {
    AfxTermExtensionModule(kTable);
}

}  // namespace probe
