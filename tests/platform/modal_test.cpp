#include <gtest/gtest.h>

#include <QToolTip>
#include <QWidget>
#include <cstdlib>
#include <thread>

#include "platform/native.h"
#include "platform/qt/widget_access.h"
#include "tests/platform/probe_dialog.h"
#include "tests/support/ui_driver.h"

namespace {

using probe::ProbeDialog;

class Modal : public testing::Test {
protected:
    probe::Resources resources_;
    ProbeDialog dialog_;
};

TEST_F(Modal, ADialogHasTheSizeOfItsUnitsAndKeepsIt) {
    class Editor : public CDialog {
    public:
        Editor() : CDialog(102) {}
    } editor;
    RunDialog(editor, [&](DialogDriver&) {
        EXPECT_EQ(editor.GetClientRect(), (RECT{0, 0, 659, 583}));
        QWidget* window = WidgetOfWindow(editor.m_hWnd);
        EXPECT_EQ(window->minimumSize(), window->maximumSize());
        EXPECT_TRUE(window->isModal());
    });
    EXPECT_EQ(editor.m_hWnd, nullptr);
}

TEST_F(Modal, TheCloseButtonAsksTheDialog) {
    const int result = RunDialog(dialog_, [&](DialogDriver& user) {
        dialog_.onMessage = [](UINT message, WPARAM, LPARAM) { return message == WM_CLOSE; };
        WidgetOfWindow(dialog_.m_hWnd)->close();
        user.Settle();
        EXPECT_TRUE(WidgetOfWindow(dialog_.m_hWnd)->isVisible());
        EXPECT_EQ(dialog_.log.back(), "close");
        dialog_.onMessage = nullptr;
        WidgetOfWindow(dialog_.m_hWnd)->close();
    });
    EXPECT_EQ(result, IDCANCEL);
}

TEST_F(Modal, ObjectsOutliveTheirWindows) {
    for (int round = 0; round < 2; ++round) {
        RunDialog(dialog_, [&](DialogDriver& user) {
            EXPECT_EQ(dialog_.GetDlgItem(probe::kNumber), &dialog_.number);
            EXPECT_EQ(dialog_.page.GetParent(), dialog_.GetDlgItem(probe::kTab));
            EXPECT_EQ(user.Text(probe::kNumber), "");
            user.Type(probe::kNumber, "1");
        });
        EXPECT_EQ(dialog_.number.m_hWnd, nullptr);
        EXPECT_EQ(dialog_.page.m_hWnd, nullptr);
        EXPECT_EQ(dialog_.number.GetWindowText(), "");
    }
}

TEST_F(Modal, AHandlerMayTakeTheWindowApart) {
    enum class From { click, key, spin, scroll, timer, paint };
    for (const From from :
         {From::click, From::key, From::spin, From::scroll, From::timer, From::paint}) {
        dialog_.onMessage = nullptr;
        dialog_.onCommand = nullptr;
        const int result = RunDialog(dialog_, [&](DialogDriver& user) {
            const UINT wanted = from == From::scroll  ? WM_HSCROLL
                                : from == From::timer ? WM_TIMER
                                : from == From::paint ? WM_PAINT
                                                      : WM_COMMAND;
            dialog_.onMessage = [&dialog = dialog_, wanted](UINT message, WPARAM, LPARAM) {
                if (message == wanted) {
                    dialog.DestroyWindow();
                }
                return message == wanted;
            };
            switch (from) {
                case From::click:
                    return user.Click(probe::kButton);
                case From::key:
                    return user.Type(probe::kNumber, "1");
                case From::spin:
                    return user.ClickSpin(probe::kSpin, true);
                case From::scroll:
                    return user.Key(probe::kSlider, Qt::Key_Right);
                case From::timer:
                    dialog_.SetTimer(1, 0);
                    return user.Settle();
                case From::paint:
                    dialog_.Invalidate();
                    return user.Settle();
            }
        });
        EXPECT_EQ(result, IDCANCEL) << static_cast<int>(from);
        EXPECT_EQ(dialog_.m_hWnd, nullptr) << static_cast<int>(from);
        EXPECT_EQ(dialog_.number.m_hWnd, nullptr) << static_cast<int>(from);
    }
}

TEST_F(Modal, AnExceptionOfAHandlerComesOutOfDoModal) {
    for (const UINT message : {WM_COMMAND, WM_PAINT, WM_TIMER, WM_CLOSE, WM_HSCROLL}) {
        dialog_.onMessage = nullptr;
        EXPECT_THROW(RunDialog(dialog_,
                               [&](DialogDriver& user) {
                                   dialog_.onMessage = [message](UINT seen, WPARAM,
                                                                 LPARAM) -> bool {
                                       return seen == message ? throw -107 : false;
                                   };
                                   dialog_.SetTimer(1, 0);
                                   dialog_.Invalidate();
                                   user.Key(probe::kSlider, Qt::Key_Right);
                                   user.Click(probe::kButton);
                                   WidgetOfWindow(dialog_.m_hWnd)->close();
                                   user.Settle();
                               }),
                     int)
            << message;
        EXPECT_EQ(dialog_.m_hWnd, nullptr);
    }
}

TEST_F(Modal, AnExceptionOfAnInnerDialogReachesTheHandlerThatRanIt) {
    const int result = RunDialog(dialog_, [&](DialogDriver& user) {
        dialog_.onCommand = [&](UINT id, UINT) {
            if (id != probe::kButton) {
                return;
            }
            ProbeDialog inner;
            inner.onCommand = [](UINT, UINT) { throw std::string("inner"); };
            EXPECT_THROW(
                RunDialog(inner, [](DialogDriver& nested) { nested.Click(probe::kButton); }),
                std::string);
            dialog_.EndDialog(5);
        };
        user.Click(probe::kButton);
    });
    EXPECT_EQ(result, 5);
}

TEST_F(Modal, AToolTipThatIsLeftOpenGoesWithTheToolkit) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto runAndExit = [this] {
        RunDialog(dialog_, [](DialogDriver&) { QToolTip::showText({5, 5}, "left open"); });
        std::exit(0);  // NOLINT(concurrency-mt-unsafe): the exit is what is tested
    };
    EXPECT_EXIT(runAndExit(), testing::ExitedWithCode(0), "");
}

TEST_F(Modal, ItCanEndBeforeItBegins) {
    class Early : public ProbeDialog {
        BOOL OnInitDialog() override {
            EndDialog(12);
            return ProbeDialog::OnInitDialog();
        }
    } early;
    EXPECT_EQ(early.DoModal(), 12);
    EXPECT_EQ(CDialog(999).DoModal(), -1);  // No such template.
}

TEST_F(Modal, AForeignThreadGetsNoDialog) {
    ASSERT_TRUE(native::EnsureToolkit());
    int result = 0;
    std::thread([&] { result = dialog_.DoModal(); }).join();
    EXPECT_EQ(result, -1);
    EXPECT_EQ(dialog_.m_hWnd, nullptr);
}

}  // namespace
