#include <QTest>
#include <QWindow>
#include <algorithm>
#include <array>

#include "dialog/manager.h"
#include "monkey/monkey.h"
#include "platform/files.h"
#include "platform/native.h"
#include "platform/qt/widget_access.h"

namespace {

constexpr std::array<int, 34> kControls = {
    kEditName,    kChkIdAll,      kChkId0,       kChkId1,        kChkId2,    kChkId3,
    kListEvents,  kEditMeasure,   kSpinMeasure,  kEditBeat,      kSpinBeat,  kEditTick,
    kSpinTick,    kRadioPosition, kRadioTimeSig, kEditNumerator, kComboId,   kTabPages,
    kBtnAdd,      kBtnUpdate,     kBtnDelete,    kBtnUndo,       kBtnRedo,   kChkXReverse,
    kChkYReverse, kChkZReverse,   kChkIndexView, kChkIndexLine,  kComboZoom, kBtnAdd,
    kBtnAdd,      kBtnUpdate,     kComboZoom,    kBtnUndo,
};
constexpr std::array<Qt::MouseButton, 4> kButtons = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton,
                                                     Qt::RightButton};
constexpr std::array<Qt::KeyboardModifiers, 5> kModifiers = {
    Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier};
constexpr std::array<Qt::Key, 25> kKeys = {
    Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Up,        Qt::Key_Down,  Qt::Key_Left,
    Qt::Key_Right,  Qt::Key_PageUp,  Qt::Key_PageDown,  Qt::Key_Home,  Qt::Key_End,
    Qt::Key_Space,  Qt::Key_Delete,  Qt::Key_Backspace, Qt::Key_Z,     Qt::Key_Y,
    Qt::Key_C,      Qt::Key_V,       Qt::Key_X,         Qt::Key_A,     Qt::Key_F2,
    Qt::Key_Return, Qt::Key_1,       Qt::Key_0,         Qt::Key_Minus, Qt::Key_Z};

QWindow& WindowOf(MonkeyHands& hands) {
    return *WidgetOfWindow(hands.editor.dialog.m_hWnd)->window()->windowHandle();
}

QPoint PointIn(const RECT& rect, MonkeyHands& hands) {
    const int x = rect.left + hands.Any(Width(rect));
    return {x, rect.top + hands.Any(Height(rect))};
}

QPoint AnyPoint(MonkeyHands& hands) {
    const QSize size = WindowOf(hands).size();
    return PointIn({0, 0, size.width(), size.height()}, hands);
}

QPoint PointOnPlane(MonkeyHands& hands) {
    const int plane = hands.Any(C3DGraph::kPlaneCount);
    return PointIn(ManagerOf(hands.editor.dialog).Graph().PlaneRect(plane), hands);
}

void PressOnDot(MonkeyHands& hands) {
    const int plane = hands.Any(C3DGraph::kPlaneCount);
    const auto dots = ManagerOf(hands.editor.dialog).Graph().DescribeDots(plane);
    if (!dots.empty()) {
        hands.editor.driver->MousePress(PointIn(hands.AnyOf(dots).rect, hands));
    }
}

void ClickRow(MonkeyHands& hands) {
    const int count = hands.editor.dialog.GetDlgItemAs<CListCtrl>(kListEvents)->GetItemCount();
    if (count > 0) {
        hands.editor.driver->ClickRow(kListEvents, hands.Any(count), hands.AnyOf(kModifiers),
                                      hands.AnyOf(kButtons));
    }
}

void FillTimeSig(MonkeyHands& hands) {
    hands.editor.Click(kRadioTimeSig);
    hands.editor.Fill(kEditNumerator, hands.AnyText(99));
}

// The clock of a button that is held down, without its wait.
void LetTimePass(MonkeyHands& hands) {
    dispatch::Send(native::GetFocus(), WM_TIMER, 1, 0);
    hands.editor.driver->Settle();
}

// The text of an event file, with lines that are put right, moved or left out.
std::string AnyTable(std::mt19937& random) {
    const auto any = [&random](unsigned count) { return std::to_string(random() % count); };
    std::string text = "Division," + std::to_string(12 + random() % 949) + "\r\n3D ID\r\n";
    for (auto line = random() % 60; line > 0; --line) {
        const std::string time = any(9) + "," + any(5) + "," + any(300);
        text += random() % 8 == 0
                    ? "," + time + ",,,," + any(70) + "_" + std::to_string(2U << random() % 5)
                    : any(5) + "," + time + "," + any(14000) + "," + any(400) + "," + any(100);
        text += "\r\n";
    }
    return text;
}

CQelCPB_3DPattern AnyPattern(std::mt19937& random) {
    C3DEventData store;
    C3DReport report;
    store.LoadCsvText(AnyTable(random), report);
    CQelCPB_3DPattern pattern;
    store.StoreToPattern(&pattern, "Monkey");
    return pattern;
}

void LoadPattern(MonkeyHands& hands) {
    CQelCPB_3DPattern pattern = AnyPattern(hands.random);
    hands.editor.dialog.Reset3DManagerByTool3DPattern(&pattern);
}

void LoadFile(MonkeyHands& hands) {
    const TemporaryFolder folder;
    WriteFileCommitted(folder / "any.csv", AnyTable(hands.random));
    hands.editor.dialog.Load3DFile((folder / "any.csv").c_str());
}

void StorePattern(MonkeyHands& hands) {
    CQelCPB_3DPattern pattern;
    hands.editor.dialog.Update3DPatternForTool(&pattern);
}

void Close(MonkeyHands& hands) {
    hands.editor.Click(hands.Any(2) == 0 ? kBtnOk : kBtnCancel);
}

struct Action {
    int weight;
    void (*act)(MonkeyHands&);
};

constexpr Action kActions[] = {
    {18, [](MonkeyHands& h) { h.editor.Click(h.AnyOf(kControls)); }},
    {10, [](MonkeyHands& h) { h.editor.driver->Key(h.AnyOf(kKeys), h.AnyOf(kModifiers)); }},
    {5, [](MonkeyHands& h) { h.editor.driver->MouseMove(PointOnPlane(h)); }},
    {5, [](MonkeyHands& h) { h.editor.driver->MouseMove(AnyPoint(h)); }},
    {6, PressOnDot},
    {4, [](MonkeyHands& h) { h.editor.driver->MousePress(AnyPoint(h), h.AnyOf(kButtons)); }},
    {8, [](MonkeyHands& h) { h.editor.driver->MouseRelease(PointOnPlane(h)); }},
    {8,
     [](MonkeyHands& h) {
         QTest::mouseClick(&WindowOf(h), h.AnyOf(kButtons), h.AnyOf(kModifiers), AnyPoint(h));
     }},
    {1,
     [](MonkeyHands& h) {
         QTest::mouseDClick(&WindowOf(h), Qt::LeftButton, Qt::NoModifier, AnyPoint(h));
     }},
    {8, ClickRow},
    {4, [](MonkeyHands& h) { h.editor.driver->Widget(h.AnyOf(kControls)).setFocus(); }},
    {5, [](MonkeyHands& h) { h.editor.FillTime(h.AnyText(6), h.AnyText(6), h.AnyText(481)); }},
    {3, FillTimeSig},
    {2, [](MonkeyHands& h) { h.editor.driver->Key(kComboZoom, Qt::Key_Up); }},
    {2, [](MonkeyHands& h) { h.editor.driver->Key(kComboZoom, Qt::Key_Down); }},
    {4, LetTimePass},
    {1, StorePattern},
};
// These throw away what was built up; one action in this many is one of them.
constexpr int kRareOne = 150;
constexpr void (*kRareActions[])(MonkeyHands&) = {LoadPattern, LoadFile, Close};

}  // namespace

void ActAtRandom(MonkeyHands& hands) {
    if (hands.Any(kRareOne) == 0) {
        hands.AnyOf(kRareActions)(hands);
        return;
    }
    std::vector<int> weights;
    std::ranges::transform(kActions, std::back_inserter(weights), &Action::weight);
    std::discrete_distribution<std::size_t> choice(weights.begin(), weights.end());
    kActions[choice(hands.random)].act(hands);
}
