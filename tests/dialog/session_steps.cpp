#include "tests/dialog/session_steps.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QKeySequence>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

#include "platform/qt/widget_access.h"

namespace {

int Number(const Lines& words, std::size_t at = 1) {
    return std::stoi(words.at(at));
}

void Press(const std::string& name) {
    const QKeyCombination keys = QKeySequence(QString::fromStdString(name))[0];
    QTest::keyClick(QApplication::activeModalWidget()->windowHandle(), keys.key(),
                    keys.keyboardModifiers());
}

void TabTo(const std::string& name) {
    for (int presses = 0; presses < 60; ++presses) {
        Press("Tab");
        if (FocusName() == name) {
            return;
        }
    }
    throw std::runtime_error("Tab never comes to " + name);
}

// The keys go to the patch dialog, once that is shown.
void Patch(Editor& editor, const Lines& words) {
    const QWidget* frame = QApplication::activeModalWidget();
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (QApplication::activeModalWidget() != frame) {
            poll.stop();
            std::for_each(words.begin() + 1, words.end(), Press);
        }
    });
    poll.start(1);
    editor.Click(kBtnPatch);
}

// Files of the current folder; a name of digits is of a path with that many bytes. They are opened
// with the rights of nobody in particular, also when the superuser runs this.
void Drop(Editor& editor, const Lines& words) {
    Lines paths;
    for (auto word = words.begin() + 1; word != words.end(); ++word) {
        paths.push_back(std::filesystem::absolute(*word));
        if (const int length = std::atoi(word->c_str()); length > 0) {
            paths.back().insert(paths.back().size() - word->size(),
                                static_cast<std::size_t>(length) - paths.back().size(), 'n');
        }
    }
    DropFiles(*WidgetOfWindow(editor.dialog.m_hWnd)->windowHandle(), paths);
    ASSERT_EQ(seteuid(getuid() == 0 ? 65534 : getuid()), 0);
    editor.driver->Settle();
    ASSERT_EQ(seteuid(getuid()), 0);
}

QPoint OnPlane(Editor& editor, const Lines& words) {
    return editor.driver->PointOf(kPlaneAbove) + QPoint(Number(words, 1), Number(words, 2));
}

const std::map<std::string, void (*)(Editor&, const Lines&)> kSteps{
    {"row", [](auto& e, auto& w) { e.ClickRow(Number(w)); }},
    {"shift-row", [](auto& e, auto& w) { e.ClickRow(Number(w), Qt::ShiftModifier); }},
    {"ctrl-row", [](auto& e, auto& w) { e.ClickRow(Number(w), Qt::ControlModifier); }},
    {"right-row", [](auto& e, auto& w) { e.ClickRow(Number(w), {}, Qt::RightButton); }},
    {"double-row", [](auto& e, auto& w) { e.driver->DoubleClickRow(kListEvents, Number(w)); }},
    {"time", [](auto& e, auto& w) { e.FillTime(w.at(1), w.at(2), w.at(3)); }},
    {"press", [](auto&, auto& w) { std::for_each(w.begin() + 1, w.end(), Press); }},
    {"hold", [](auto& e, auto& w) { e.driver->MousePress(OnPlane(e, w)); }},
    {"move", [](auto& e, auto& w) { e.driver->MouseMove(OnPlane(e, w)); }},
    {"release", [](auto& e, auto& w) { e.driver->MouseRelease(OnPlane(e, w)); }},
    {"close", [](auto& e, auto&) { WidgetOfWindow(e.dialog.m_hWnd)->close(); }},
    {"patch", Patch},
    {"drop", Drop},
};

}  // namespace

std::string FocusName() {
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? "" : focus->accessibleName().toStdString();
}

void DoStep(Editor& editor, const std::string& step) {
    if (const std::size_t on = step.find(" on "); on != std::string::npos) {
        editor.driver->Widget(ControlNamed(step.substr(on + 4))).setFocus();
        return DoStep(editor, step.substr(0, on));
    }
    std::istringstream stream(step);
    const Lines words(std::istream_iterator<std::string>(stream), {});
    const std::size_t equals = step.find(" = ");
    if (const auto known = kSteps.find(words.at(0)); known != kSteps.end()) {
        known->second(editor, words);
    } else if (words[0] == "tab") {
        TabTo(step.substr(4));
    } else {
        const int id = ControlNamed(step.substr(0, equals));
        if (equals == std::string::npos) {
            editor.Click(id);
        } else if (dynamic_cast<QComboBox*>(&editor.driver->Widget(id)) != nullptr) {
            editor.ChooseRow(id, std::stoi(step.substr(equals + 3)));
        } else {
            editor.Fill(id, step.substr(equals + 3));
        }
    }
}
