#include <QGuiApplication>
#include <QToolTip>
#include <QWidget>
#include <cstdlib>
#include <thread>

#include "platform/native.h"
#include "platform/qt/display_probe.h"
#include "platform/qt/widget_access.h"
#include "tests/platform/probe_dialog.h"

namespace {

using namespace probe;

using Send = std::function<void(ProbeDialog&, DialogDriver&)>;

class Modal : public probe::Test {
protected:
    QWidget* Window() { return WidgetOfWindow(dialog_.m_hWnd); }

    /// Runs the dialog, has a message sent to it, and the handler deal with that.
    static int RunWith(ProbeDialog& dialog, UINT wanted, const Send& send,
                       const std::function<void()>& handler) {
        dialog.onMessage = nullptr;
        return RunDialog(dialog, [&](DialogDriver& user) {
            dialog.onMessage = [&handler, wanted](UINT message, WPARAM, LPARAM) {
                if (message == wanted) {
                    handler();
                }
                return message == wanted;
            };
            send(dialog, user);
            user.Settle();
        });
    }
};

TEST_F(Modal, KeepsItsSizeAndItsObjectsAndIsAskedByTheCloseButton) {
    const int result = Run([&](DialogDriver& user) {
        EXPECT_EQ(dialog_.GetClientRect(), MapDialogRect(0, 0, 320, 200));
        EXPECT_EQ(Window()->minimumSize(), Window()->maximumSize());
        EXPECT_TRUE(Window()->isModal());
        EXPECT_EQ(dialog_.GetDlgItem(kNumber), &dialog_.number);
        EXPECT_EQ(dialog_.page.GetParent(), dialog_.GetDlgItem(kTab));
        TakeLog();
        dialog_.onMessage = [](UINT message, WPARAM, LPARAM) { return message == WM_CLOSE; };
        Window()->close();
        user.Settle();
        EXPECT_TRUE(Window()->isVisible());
        EXPECT_EQ(TakeLog(), "close");
        dialog_.onMessage = nullptr;
        Window()->close();
    });
    EXPECT_EQ(result, IDCANCEL);
}

TEST_F(Modal, AHandlerMayTakeTheWindowApartOrThrow) {
    const std::pair<UINT, Send> kinds[] = {
        {WM_COMMAND, [](auto&, auto& user) { user.Click(kButton); }},
        {WM_COMMAND, [](auto&, auto& user) { user.Type(kNumber, "1"); }},
        {WM_COMMAND, [](auto&, auto& user) { user.ClickSpin(kSpin, true); }},
        {WM_HSCROLL, [](auto&, auto& user) { user.Key(kSlider, Qt::Key_Right); }},
        {WM_TIMER, [](auto& dialog, auto&) { dialog.SetTimer(1, 0); }},
        {WM_PAINT, [](auto& dialog, auto&) { dialog.Invalidate(); }},
        {WM_NOTIFY, [](auto&, auto& user) { user.Widget(kList).grab(); }},
        {WM_CLOSE, [](auto& dialog, auto&) { WidgetOfWindow(dialog.m_hWnd)->close(); }}};
    for (const auto& [message, send] : kinds) {
        SCOPED_TRACE(message);
        EXPECT_EQ(RunWith(dialog_, message, send, [&] { dialog_.DestroyWindow(); }), IDCANCEL);
        EXPECT_EQ(dialog_.m_hWnd, nullptr);
        EXPECT_EQ(dialog_.number.m_hWnd, nullptr);
        EXPECT_THROW(RunWith(dialog_, message, send, [] { throw -107; }), int);
        EXPECT_EQ(dialog_.m_hWnd, nullptr);
    }
    // What an inner dialog throws reaches the handler that ran it.
    const Send& click = kinds[0].second;
    const auto runInner = [&] {
        ProbeDialog inner;
        EXPECT_THROW(RunWith(inner, WM_COMMAND, click, [] { throw -107; }), int);
        dialog_.EndDialog(5);
    };
    EXPECT_EQ(RunWith(dialog_, WM_COMMAND, click, runInner), 5);
}

TEST_F(Modal, AToolTipThatIsLeftOpenGoesWithTheToolkit) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto runAndExit = [this] {
        Run([](DialogDriver&) { QToolTip::showText({5, 5}, "left open"); });
        std::exit(0);  // NOLINT(concurrency-mt-unsafe): the exit is what is tested
    };
    EXPECT_EXIT(runAndExit(), testing::ExitedWithCode(0), "");
}

TEST_F(Modal, OpensOnAnyOfTheDisplaysAskedFor) {
    const QByteArray before = qgetenv("QT_QPA_PLATFORM");
    for (const auto& [asked, reachable] :
         {std::pair(";", false), {"wayland:a", false}, {"wayland;offscreen:b", true}}) {
        qputenv("QT_QPA_PLATFORM", asked);
        EXPECT_EQ(toolkit::DisplayReachable(), reachable) << asked;
    }
    qputenv("QT_QPA_PLATFORM", before);
}

TEST_F(Modal, ItCanEndBeforeItBegins) {
    class Early : public ProbeDialog {
        BOOL OnInitDialog() override {
            EndDialog(12);
            return ProbeDialog::OnInitDialog();
        }
    } early;
    EXPECT_EQ(early.DoModal(), 12);
    EXPECT_EQ(CDialog(999).DoModal(), -1) << "no such template";
    int result = 0;
    const QCursor* cursor = nullptr;
    std::thread([&] {
        const CWaitCursor wait;
        cursor = QGuiApplication::overrideCursor();
        result = dialog_.DoModal();
    }).join();
    EXPECT_EQ(result, -1) << "a foreign thread";
    EXPECT_EQ(cursor, nullptr) << "nor has it a cursor";
    EXPECT_EQ(dialog_.m_hWnd, nullptr);
}

}  // namespace
