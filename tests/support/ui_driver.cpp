#include "tests/support/ui_driver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <QUrl>
#include <QWindow>
#include <cstdlib>
#include <stdexcept>

#include "platform/controls.h"
#include "platform/qt/widget_access.h"

#if defined(__SANITIZE_ADDRESS__)
// The toolkit and its font library keep caches to the end of the process on purpose; our own
// leaks show in the tests without windows.
extern "C" const char* __asan_default_options() {
    return "detect_leaks=0";
}  // NOLINT
#endif

namespace {

/// Stands before any application object: tests must not open windows on the desk they run on, nor
/// meet a guard that a running editor holds.
class TestEnvironment {
public:
    TestEnvironment() {
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
        // The second, because the file dialog keeps its history there.
        for (const char* name : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME"}) {
            setenv(name, folder_.path().toUtf8().constData(), 1);
        }
        // What the system says of a file is shown, and when it was written.
        setenv("LC_ALL", "C.UTF-8", 1);
        setenv("LANGUAGE", "", 1);
        setenv("TZ", "UTC", 1);
    }

private:
    QTemporaryDir folder_;
};

const TestEnvironment testEnvironment;

constexpr int kPollMilliseconds = 1;
constexpr int kMostPolls = 1000;
constexpr int kWatchdogMilliseconds = 60000;

bool IsUp(const CDialog& dialog) {
    const QWidget* widget = WidgetOfWindow(dialog.m_hWnd);
    return widget != nullptr && widget->isVisible() && widget->isActiveWindow();
}

void RunScript(CDialog& dialog, const std::function<void(DialogDriver&)>& script) {
    DialogDriver driver(dialog);
    try {
        driver.Settle();
        script(driver);
    } catch (const std::exception& failure) {
        ADD_FAILURE() << "the script stopped: " << failure.what();
    }
    dialog.EndDialog(kEndedByDriver);
}

}  // namespace

QWidget& DialogDriver::Widget(int id) {
    QWidget* widget = WidgetOfWindow(native::GetDlgItem(dialog_.m_hWnd, id));
    if (widget == nullptr) {
        throw std::runtime_error("no control " + std::to_string(id));
    }
    return *widget;
}

QWindow& DialogDriver::Window() {
    QWidget* widget = WidgetOfWindow(dialog_.m_hWnd);
    if (widget == nullptr || widget->window()->windowHandle() == nullptr) {
        throw std::runtime_error("the dialog has no window");
    }
    return *widget->window()->windowHandle();
}

QPoint DialogDriver::PointOf(int id) {
    const QWidget& widget = Widget(id);
    return widget.mapTo(widget.window(), widget.rect().center());
}

void DialogDriver::Type(int id, const std::string& text) {
    Widget(id).setFocus();
    for (const QChar character : QString::fromStdString(text)) {
        QTest::sendKeyEvent(QTest::Click, &Window(), Qt::Key_unknown, QString(character),
                            Qt::NoModifier);
    }
}

void DialogDriver::Fill(int id, const std::string& text) {
    auto& edit = dynamic_cast<QLineEdit&>(Widget(id));
    edit.setFocus();
    edit.selectAll();
    Type(id, text);
}

void DialogDriver::ClickSpin(int id, bool up) {
    const QWidget& spin = Widget(id);
    const QPoint place(spin.width() / 2, up ? 2 : spin.height() - 3);
    QTest::mouseClick(&Window(), Qt::LeftButton, Qt::NoModifier, spin.mapTo(spin.window(), place));
}

void DialogDriver::ClickTab(int id, int index) {
    const auto& bar = dynamic_cast<QTabBar&>(Widget(id));
    QTest::mouseClick(&Window(), Qt::LeftButton, Qt::NoModifier,
                      bar.mapTo(bar.window(), bar.tabRect(index).center()));
}

QPoint DialogDriver::RowPoint(int list, int row) {
    Settle();
    auto& view = dynamic_cast<QTreeView&>(Widget(list));
    const QModelIndex index = view.model()->index(row, 1);
    view.scrollTo(index);
    return view.viewport()->mapTo(view.window(), view.visualRect(index).center());
}

std::vector<std::vector<std::string>> DialogDriver::RowTexts(int list) {
    HWND window = native::GetDlgItem(dialog_.m_hWnd, list);
    Settle();
    const int columns = dynamic_cast<QTreeView&>(Widget(list)).model()->columnCount();
    std::vector<std::vector<std::string>> rows(static_cast<std::size_t>(native::ListCount(window)));
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < columns; ++column) {
            rows[row].push_back(native::ListGetText(window, static_cast<int>(row), column));
        }
    }
    return rows;
}

std::vector<int> DialogDriver::SelectedRows(int list) {
    HWND window = native::GetDlgItem(dialog_.m_hWnd, list);
    std::vector<int> rows;
    for (int row = -1; (row = native::ListNext(window, row, LVNI_SELECTED)) >= 0;) {
        rows.push_back(row);
    }
    return rows;
}

bool DialogDriver::Checked(int id) {
    return dynamic_cast<QAbstractButton&>(Widget(id)).isChecked();
}

void DialogDriver::Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

QImage DialogDriver::Grab() {
    Settle();
    return WidgetOfWindow(dialog_.m_hWnd)->grab().toImage();
}

int RunDialog(CDialog& dialog, const std::function<void(DialogDriver&)>& script) {
    if (!native::EnsureToolkit()) {
        ADD_FAILURE() << "no toolkit";
        return -1;
    }
    QTimer watchdog;
    QObject::connect(&watchdog, &QTimer::timeout, [] {
        std::fputs("the dialog hangs\n", stderr);
        std::abort();
    });
    watchdog.start(kWatchdogMilliseconds);
    QTimer poll;
    int polls = 0;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (IsUp(dialog) || (dialog.m_hWnd != nullptr && ++polls > kMostPolls)) {
            poll.stop();
            RunScript(dialog, script);
        }
    });
    poll.start(kPollMilliseconds);
    return dialog.DoModal();
}

void DropFiles(QObject& window, const std::vector<std::string>& files) {
    QMimeData data;
    QList<QUrl> urls;
    for (const std::string& file : files) {
        urls.append(QUrl::fromLocalFile(QString::fromStdString(file)));
    }
    data.setUrls(urls);
    QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &drop);
}

bool WithFileDialog(const std::function<void()>& open,
                    const std::function<void(QFileDialog&)>& script) {
    native::EnsureToolkit();
    bool shown = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeWindow());
        if (dialog == nullptr || shown) {
            return;
        }
        shown = true;
        script(*dialog);
        if (dialog->isVisible()) {
            QTest::keyClick(dialog->windowHandle(), Qt::Key_Escape);
        }
    });
    poll.start(kPollMilliseconds);
    open();
    return shown;
}

bool EnterName(QFileDialog& dialog, const std::string& name) {
    auto& field = *dialog.findChild<QLineEdit*>("fileNameEdit");
    field.setFocus();
    field.setText(QString::fromStdString(name));  // Typed keys bring proposals up.
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
    return !dialog.isVisible();
}

MessageBoxScript::MessageBoxScript() {
    Hooks().messageBox = [this](const CString& text, UINT style) { return Answer(text, style); };
}

MessageBoxScript::~MessageBoxScript() {
    for (const Box& box : boxes_) {
        ADD_FAILURE() << "no message box came with: " << box.text;
    }
}

MessageBoxScript& MessageBoxScript::Expect(const CString& text, UINT style, int answer) {
    boxes_.push_back({text, style, answer});
    return *this;
}

int MessageBoxScript::Answer(const CString& text, UINT style) {
    if (boxes_.empty()) {
        ADD_FAILURE() << "unexpected message box: " << text;
        return (style & MB_TYPEMASK) == MB_OK ? IDOK : IDCANCEL;
    }
    const Box box = boxes_.front();
    boxes_.pop_front();
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.style, style) << text;
    return box.answer;
}
