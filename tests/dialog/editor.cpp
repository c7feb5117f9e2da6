#include "tests/dialog/editor.h"

#include <gtest/gtest.h>

std::vector<_tagEvent3D> Song() {
    _tagEvent3D far = Position(2, 480, 1500);
    far.azimuth = -90;
    far.elevation = 30;
    return {TimeSig(0, 4, 4),    Position(0, 0),    far,
            TimeSig(1920, 3, 4), Position(1, 1920), Position(2, 3360)};
}

CQelCPB_3DPattern PatternOf(std::vector<_tagEvent3D> events, const std::string& name) {
    C3DEventData store;
    for (_tagEvent3D& event : events) {
        EXPECT_EQ(store.AddEvent(&event, 1), 0);
    }
    CQelCPB_3DPattern pattern;
    store.StoreToPattern(&pattern, name);
    return pattern;
}

Editor::Editor(const CQelCPB_3DPattern& pattern, CQelCPB_3DPattern* given, bool freeMode,
               unsigned long start, unsigned long end)
    : source(pattern),
      dialog(nullptr, given, nullptr, nullptr, link, nullptr, 0, start, end, freeMode, "/load",
             "/save") {
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
            line += " " + list.GetItemText(row, column);
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

std::string Editor::Buttons() {
    std::string enabled;
    for (const auto& [id, name] : {std::pair{kBtnOk, "OK "},
                                   {kBtnUpdate, "Update "},
                                   {kBtnDelete, "Delete "},
                                   {kBtnUndo, "Undo "},
                                   {kBtnRedo, "Redo "}}) {
        enabled += driver->Enabled(id) ? name : "";
    }
    return enabled;
}

Lines Editor::State() {
    Lines state = Rows();
    state.push_back(Fields());
    state.push_back(Buttons());
    return state;
}

void Editor::Fill(int id, const std::string& text) {
    auto& edit = *dialog.GetDlgItemAs<CEdit>(id);
    edit.SetFocus();
    edit.SetSel(0, static_cast<int>(edit.GetWindowText().size()));
    driver->Type(id, text);
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
