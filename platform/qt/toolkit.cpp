#include <sys/syscall.h>
#include <unistd.h>

#include <QApplication>
#include <QThread>
#include <QWidget>
#include <clocale>
#include <cstdlib>
#include <utility>

#include "platform/native.h"
#include "platform/qt/accessible.h"
#include "platform/qt/display_probe.h"
#include "platform/qt/hooks_qt.h"
#include "platform/qt/toolkit.h"

namespace {

/// The application of a host that has none.
class OwnApplication {
public:
    OwnApplication() : application_(count_, arguments_) {
        // Starting the toolkit takes over the user's number format, but files and fields are
        // written with a point.
        std::setlocale(LC_NUMERIC, "C");
        QApplication::setQuitOnLastWindowClosed(false);
    }

private:
    char name_[6] = "orbix";
    char* arguments_[2] = {name_, nullptr};
    int count_ = 1;
    QApplication application_;
};

OwnApplication* ownApplication = nullptr;

void DeleteOwnApplication() {
    delete std::exchange(ownApplication, nullptr);
}

bool OnMainThread() {
    return syscall(SYS_gettid) == getpid();
}

bool MakeOwnApplication() {
    if (!OnMainThread() || !toolkit::DisplayReachable()) {
        return false;
    }
    ownApplication = new OwnApplication;
    std::atexit(&DeleteOwnApplication);
    return true;
}

bool MadeAndEndedWindow() {
    QWidget widget;
    return widget.winId() != 0;
}

}  // namespace

namespace toolkit {

void NoteFirstRun() {
    // Exit handlers and the toolkit's own statics go in the reverse order of their making. A window
    // that comes and goes here makes those that the end of a window needs: what is left at exit, a
    // tool tip say, would else be taken apart without them.
    static const bool noted = ownApplication != nullptr && MadeAndEndedWindow() &&
                              std::atexit(&DeleteOwnApplication) == 0;
    static_cast<void>(noted);
}

}  // namespace toolkit

namespace native {

bool EnsureToolkit() {
    const QCoreApplication* application = QCoreApplication::instance();
    if (application == nullptr) {
        if (!MakeOwnApplication()) {
            return false;
        }
    } else if (qobject_cast<const QApplication*>(application) == nullptr ||
               application->thread() != QThread::currentThread()) {
        return false;
    }
    toolkit::InstallHooks();
    toolkit::InstallVirtualItems();
    toolkit::InstallComboNames();
    return true;
}

}  // namespace native
