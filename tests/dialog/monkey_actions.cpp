#include <QTest>
#include <QWindow>
#include <array>

#include "dialog/manager.h"
#include "platform/native.h"
#include "platform/qt/widget_access.h"
#include "tests/dialog/monkey.h"

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

QWidget& WindowOf(MonkeyHands& hands) {
    return *WidgetOfWindow(hands.editor.dialog.m_hWnd)->window();
}

QPoint AnyPoint(MonkeyHands& hands) {
    const QSize size = WindowOf(hands).size();
    return {static_cast<int>(hands.Any(static_cast<unsigned>(size.width()))),
            static_cast<int>(hands.Any(static_cast<unsigned>(size.height())))};
}

QPoint PointIn(const RECT& rect, MonkeyHands& hands) {
    return {rect.left + static_cast<int>(hands.Any(static_cast<unsigned>(rect.right - rect.left))),
            rect.top + static_cast<int>(hands.Any(static_cast<unsigned>(rect.bottom - rect.top)))};
}

QPoint PointOnPlane(MonkeyHands& hands) {
    const auto plane = static_cast<int>(hands.Any(C3DGraph::kPlaneCount));
    return PointIn(ManagerOf(hands.editor.dialog).Graph().PlaneRect(plane), hands);
}

void PressOnDot(MonkeyHands& hands) {
    const auto plane = static_cast<int>(hands.Any(C3DGraph::kPlaneCount));
    const auto dots = ManagerOf(hands.editor.dialog).Graph().DescribePlane(plane).dots;
    if (!dots.empty()) {
        hands.editor.driver->MousePress(PointIn(hands.AnyOf(dots).rect, hands));
    }
}

void Move(MonkeyHands& hands) {
    hands.editor.driver->MouseMove(hands.Any(2) == 0 ? PointOnPlane(hands) : AnyPoint(hands));
}

void Press(MonkeyHands& hands) {
    hands.editor.driver->MousePress(AnyPoint(hands), hands.AnyOf(kButtons));
}

void Release(MonkeyHands& hands) {
    hands.editor.driver->MouseRelease(PointOnPlane(hands));
}

void ClickAnywhere(MonkeyHands& hands) {
    QTest::mouseClick(WindowOf(hands).windowHandle(), hands.AnyOf(kButtons),
                      hands.AnyOf(kModifiers), AnyPoint(hands));
}

void ClickControl(MonkeyHands& hands) {
    hands.editor.driver->Click(hands.AnyOf(kControls));
}

void DoubleClick(MonkeyHands& hands) {
    QTest::mouseDClick(WindowOf(hands).windowHandle(), Qt::LeftButton, Qt::NoModifier,
                       AnyPoint(hands));
}

void ClickRow(MonkeyHands& hands) {
    const int count = hands.editor.dialog.GetDlgItemAs<CListCtrl>(kListEvents)->GetItemCount();
    if (count > 0) {
        hands.editor.driver->ClickRow(kListEvents,
                                      static_cast<int>(hands.Any(static_cast<unsigned>(count))),
                                      hands.AnyOf(kModifiers), hands.AnyOf(kButtons));
    }
}

void Key(MonkeyHands& hands) {
    hands.editor.driver->Key(hands.AnyOf(kKeys), hands.AnyOf(kModifiers));
}

void Focus(MonkeyHands& hands) {
    hands.editor.driver->Widget(hands.AnyOf(kControls)).setFocus();
}

void FillTime(MonkeyHands& hands) {
    hands.editor.FillTime(std::to_string(hands.Any(6)), std::to_string(hands.Any(6)),
                          std::to_string(hands.Any(481)));
}

void FillTimeSig(MonkeyHands& hands) {
    hands.editor.Click(kRadioTimeSig);
    hands.editor.Fill(kEditNumerator, std::to_string(hands.Any(99)));
}

void Zoom(MonkeyHands& hands) {
    hands.editor.driver->Key(kComboZoom, hands.Any(2) == 0 ? Qt::Key_Up : Qt::Key_Down);
}

// The clock of a button that is held down, without its wait.
void LetTimePass(MonkeyHands& hands) {
    dispatch::Send(native::GetFocus(), WM_TIMER, 1, 0);
    hands.editor.driver->Settle();
}

void LoadPattern(MonkeyHands& hands) {
    CQelCPB_3DPattern pattern = AnyPattern(hands.random);
    hands.editor.dialog.Reset3DManagerByTool3DPattern(&pattern);
}

void StorePattern(MonkeyHands& hands) {
    CQelCPB_3DPattern pattern;
    hands.editor.dialog.Update3DPatternForTool(&pattern);
}

void Close(MonkeyHands& hands) {
    hands.editor.driver->Click(hands.Any(2) == 0 ? kBtnOk : kBtnCancel);
}

struct Action {
    unsigned weight;
    void (*act)(MonkeyHands&);
};

constexpr Action kActions[] = {
    {18, ClickControl}, {10, Key},          {10, Move},       {6, PressOnDot},  {4, Press},
    {8, Release},       {8, ClickAnywhere}, {1, DoubleClick}, {8, ClickRow},    {4, Focus},
    {5, FillTime},      {3, FillTimeSig},   {4, Zoom},        {4, LetTimePass}, {1, StorePattern},
};
// These throw away what was built up; one action in this many is one of them.
constexpr unsigned kRareOne = 150;
constexpr void (*kRareActions[])(MonkeyHands&) = {LoadPattern, Close};

unsigned SumOfWeights() {
    unsigned sum = 0;
    for (const Action& action : kActions) {
        sum += action.weight;
    }
    return sum;
}

}  // namespace

void ActAtRandom(MonkeyHands& hands) {
    if (hands.Any(kRareOne) == 0) {
        hands.AnyOf(kRareActions)(hands);
        return;
    }
    unsigned left = hands.Any(SumOfWeights());
    for (const Action& action : kActions) {
        if (left < action.weight) {
            action.act(hands);
            return;
        }
        left -= action.weight;
    }
}

CQelCPB_3DPattern AnyPattern(std::mt19937& random) {
    const auto any = [&random](unsigned count) { return std::to_string(random() % count); };
    std::string text = "Division," + std::to_string(12 + random() % 949) + "\r\n3D ID\r\n";
    for (auto line = random() % 60; line > 0; --line) {
        const std::string time = any(9) + "," + any(5) + "," + any(300);
        text += random() % 8 == 0
                    ? "," + time + ",,,," + any(70) + "_" + std::to_string(2U << random() % 5)
                    : any(5) + "," + time + "," + any(14000) + "," + any(400) + "," + any(100);
        text += "\r\n";
    }
    C3DEventData store;
    C3DReport report;
    store.LoadCsvText(text, report);
    CQelCPB_3DPattern pattern;
    store.StoreToPattern(&pattern, "Monkey");
    return pattern;
}
