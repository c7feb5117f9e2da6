#include "tests/dialog/editor.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>

#include "platform/qt/widget_access.h"
#include "res/resources.h"
#include "tests/params/block_support.h"
#include "tests/support/bytes.h"

namespace {

std::string NameOf(const ControlTemplate& control) {
    std::string name = control.accessibleName != nullptr ? control.accessibleName : control.caption;
    std::erase(name, '&');
    return name;
}

}  // namespace

std::vector<_tagEvent3D> Song() {
    _tagEvent3D far = Position(2, 480, 1500);
    far.azimuth = -90;
    far.elevation = 30;
    return {TimeSig(0, 4, 4),    Position(0, 0),    far,
            TimeSig(1920, 3, 4), Position(1, 1920), Position(2, 3360)};
}

CQelCPB_3DPattern PatternOf(const std::vector<_tagEvent3D>& events) {
    C3DEventData store;
    AddAll(store, events);
    CQelCPB_3DPattern pattern;
    store.StoreToPattern(&pattern, "Song");
    return pattern;
}

CQelCPB_3DPattern WithTimeSigs(CQelCPB_3DPattern pattern, std::vector<t_tSigRec> records) {
    EXPECT_TRUE(SetTimeSigs(pattern, std::move(records)));
    return pattern;
}

int ControlNamed(const std::string& name) {
    for (const ControlTemplate& control : kMainDialogTemplate.controls) {
        if (control.id >= 0 && NameOf(control) == name) {
            return control.id;
        }
    }
    throw std::out_of_range("no control " + name);
}

std::int32_t NotingDevice::WriteBlock(const void* data, std::uint32_t length) {
    blocks.push_back(Hex({static_cast<const char*>(data), length}));
    return -1;  // Nobody looks at it.
}

Editor::Editor(const CQelCPB_3DPattern& pattern, bool given, bool freeMode, unsigned long start,
               unsigned long end)
    : source(pattern),
      dialog(nullptr, given ? &source : nullptr, given ? &block : nullptr, nullptr, link, nullptr,
             0, start, end, freeMode, "/load", "/save") {
    C3DGraph::s_nXReverse = C3DGraph::s_nYReverse = C3DGraph::s_nZReverse = 0;
    C3DGraph::s_nIndexView = C3DGraph::s_nIndexLine = 1;
    C3DGraph::s_strZoomText.clear();
}

int Editor::Run(const std::function<void()>& script) {
    return RunDialog(dialog, [&](DialogDriver& shown) {
        driver = &shown;
        script();
    });
}

Lines Editor::Rows() {
    const auto& list = *dialog.GetDlgItemAs<CListCtrl>(kListEvents);
    Lines rows;
    for (int row = 0; row < list.GetItemCount(); ++row) {
        std::string line = std::to_string(list.GetItemImage(row));
        line += list.GetItemState(row, LVIS_SELECTED) != 0 ? "*" : "";
        for (int column = 1; column < 9; ++column) {
            const std::string text = list.GetItemText(row, column);
            line += text.empty() ? " ." : " " + text;
        }
        rows.push_back(line);
    }
    return rows;
}

std::string Editor::Fields() {
    return driver->Text(kEditMeasure) + ":" + driver->Text(kEditBeat) + ":" +
           driver->Text(kEditTick) + " ID" + driver->Text(kComboId) + " " +
           driver->Text(kEditNumerator) + "/" + driver->Text(4024) +
           (driver->Checked(kRadioTimeSig) ? " timesig" : "");
}

Lines Editor::State() {
    Lines state = Rows();
    for (const ControlTemplate& control : kMainDialogTemplate.controls) {
        if (control.id < 0) {
            continue;
        }
        const auto* button = dynamic_cast<QAbstractButton*>(&driver->Widget(control.id));
        if (!driver->Enabled(control.id)) {
            state.push_back("~" + NameOf(control) + " dim");
        }
        if (button != nullptr && button->isChecked()) {
            state.push_back("~" + NameOf(control) + " ticked");
        }
    }
    const auto* plane = QAccessible::queryAccessibleInterface(&driver->Widget(kPlaneAbove));
    for (int dot = 0; dot < plane->childCount(); ++dot) {
        if (plane->child(dot)->state().selected) {
            state.push_back("~" + plane->child(dot)->text(QAccessible::Name).toStdString());
        }
    }
    std::string bytes(block.GetLength(), '\0');
    block.GetData(bytes.data(), block.GetLength());
    state.insert(state.end(), {"fields " + Fields(), "name " + driver->Text(kEditName),
                               "zoom " + driver->Text(kComboZoom),
                               "block " + std::to_string(block.GetID()) + ": " + Hex(bytes)});
    for (const std::string& sent : device.blocks) {
        state.push_back("sent " + sent);
    }
    return state;
}

bool Editor::IsOpen() const {
    const QWidget* widget = WidgetOfWindow(dialog.m_hWnd);
    return widget != nullptr && widget->isVisible();
}

void Editor::FillTime(const std::string& measure, const std::string& beat,
                      const std::string& tick) {
    Fill(kEditMeasure, measure);
    Fill(kEditBeat, beat);
    Fill(kEditTick, tick);
}

void Editor::ChooseRow(int comboId, int row) {
    driver->Key(comboId, Qt::Key_Home);
    for (int step = 0; step < row; ++step) {
        driver->Key(comboId, Qt::Key_Down);
    }
}
