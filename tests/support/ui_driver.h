#pragma once

#include <QImage>
#include <QPoint>
#include <QTest>
#include <QWidget>
#include <Qt>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/dialog.h"
#include "platform/hooks.h"
#include "platform/native.h"

class QFileDialog;
class QWindow;

/// Drives a dialog as a user does: finds widgets by control number and sends real key and mouse
/// events through the toolkit's window. Linking this file makes the process run on the offscreen
/// platform (unless the environment names one) with a runtime folder of its own.
class DialogDriver {
public:
    explicit DialogDriver(CDialog& dialog) : dialog_(dialog) {}

    /// The widget of a control of this dialog; fails the test and throws when there is none. The
    /// controls of a page are reached through a driver made on the page.
    QWidget& Widget(int id);
    /// A point inside the control's middle, in the window's coordinates.
    QPoint PointOf(int id);

    void Click(int id, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(&Window(), Qt::LeftButton, modifiers, PointOf(id));
    }
    /// Gives the control the focus and types.
    void Type(int id, const std::string& text);
    /// Types over the text of a box.
    void Fill(int id, const std::string& text);
    void Key(int id, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        Widget(id).setFocus();
        Key(key, modifiers);
    }
    /// To whatever has the focus.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&Window(), key, modifiers);
    }
    void ClickSpin(int id, bool up);
    void ClickTab(int id, int index);

    /// Points are in the dialog's client coordinates.
    void MousePress(QPoint point, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(&Window(), button, {}, point);
    }
    void MouseMove(QPoint point) { QTest::mouseMove(&Window(), point); }
    void MouseRelease(QPoint point, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(&Window(), button, {}, point);
    }

    void ClickRow(int list, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                  Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&Window(), button, modifiers, RowPoint(list, row));
    }
    void DoubleClickRow(int list, int row) {
        QTest::mouseDClick(&Window(), Qt::LeftButton, {}, RowPoint(list, row));
    }
    /// All texts of a list, row by row.
    std::vector<std::vector<std::string>> RowTexts(int list);
    std::vector<int> SelectedRows(int list);

    std::string Text(int id) { return native::GetText(native::GetDlgItem(dialog_.m_hWnd, id)); }
    bool Enabled(int id) { return Widget(id).isEnabled(); }
    bool Checked(int id);

    /// Lets everything that is waiting in the event loop happen.
    void Settle();
    /// The dialog as it looks now.
    QImage Grab();

private:
    QWindow& Window();
    QPoint RowPoint(int list, int row);

    CDialog& dialog_;
};

/// What RunDialog gives when the script came to its end with the dialog still open.
inline constexpr int kEndedByDriver = -99;

/// Runs the dialog's DoModal and, once it is shown and active, the script inside its event loop;
/// then ends the dialog if it is still open. What the script throws fails the test. Gives
/// DoModal's result.
int RunDialog(CDialog& dialog, const std::function<void(DialogDriver&)>& script);

/// Drops files on a window, or whatever takes its events.
void DropFiles(QObject& window, const std::vector<std::string>& files);

/// Does what brings up a file dialog, and runs the script on that once it is shown; a dialog that
/// is open still is given up then. False when none came.
bool WithFileDialog(const std::function<void()>& open,
                    const std::function<void(QFileDialog&)>& script);
/// Writes the name and presses Enter; true when the dialog has closed.
bool EnterName(QFileDialog& dialog, const std::string& name);

/// Expected message boxes, in order, with the user's answers. An unexpected box, another text or
/// style, or a box that never came fails the test. Puts the hooks back at its end.
class MessageBoxScript {
public:
    MessageBoxScript();
    ~MessageBoxScript();
    MessageBoxScript(const MessageBoxScript&) = delete;
    MessageBoxScript& operator=(const MessageBoxScript&) = delete;

    MessageBoxScript& Expect(const CString& text, UINT style, int answer);

private:
    struct Box {
        CString text;
        UINT style;
        int answer;
    };
    int Answer(const CString& text, UINT style);

    HooksScope hooks_;
    std::deque<Box> boxes_;
};
