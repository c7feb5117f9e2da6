#include <QApplication>
#include <QProcess>
#include <QWindow>
#include <csignal>
#include <cstdio>
#include <filesystem>

#include "studio/device_desk.h"
#include "studio/exit_codes.h"
#include "studio/main_window.h"
#include "studio/options.h"
#include "studio/questions.h"
#include "studio/render.h"

namespace {

// Longest that the editor waits for the window to become the active one, to lie above it.
constexpr int kActivationMilliseconds = 300;

// What must be in the environment before the toolkit starts.
void PrepareToolkit(const StudioOptions& options) {
    if (options.renderTo.empty()) {
        return;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
}

bool HasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

// Opens what was asked for; the exit code where that ends the program.
std::optional<int> OpenAtStart(MainWindow& window, const StudioOptions& options) {
    const std::string& file = options.file;
    const bool recovered = window.OfferRecovery(file);
    std::error_code error;
    if (file.empty() ||
        (recovered && std::filesystem::equivalent(window.CurrentDocument().File(), file, error))) {
        return std::nullopt;
    }
    if (recovered) {
        // This window is taken; the file gets a program of its own.
        QStringList arguments{"--no-edit"};
        if (options.range) {
            arguments +=
                {"--range", QString("%1:%2").arg(options.range->start).arg(options.range->end)};
        }
        QProcess::startDetached(QApplication::applicationFilePath(),
                                arguments << QString::fromStdString(file));
        return std::nullopt;
    }
    std::string reason;
    PatternFileFault fault = PatternFileFault::unreadable;
    if (window.Open(file, reason, &fault)) {
        return std::nullopt;
    }
    ShowFailure(&window, reason);
    return fault == PatternFileFault::unreadable ? exit_code::kFailed : exit_code::kRefused;
}

void EditOnceActive(MainWindow& window) {
    auto* wait = new QTimer(&window);
    wait->setSingleShot(true);
    QObject::connect(qApp, &QGuiApplication::focusWindowChanged, wait, [wait] { wait->start(0); });
    QObject::connect(wait, &QTimer::timeout, &window, [&window, wait] {
        QObject::disconnect(qApp, nullptr, wait, nullptr);  // The editor moves the focus too.
        if (window.EditEvents() == -1) {
            QApplication::exit(exit_code::kAlreadyOpen);
        }
    });
    wait->start(kActivationMilliseconds);
}

int RunWindow(const StudioOptions& options) {
    DeviceLink device;
    MainWindow window(device.Manager(), options.range);
    const DeviceDesk desk(window, device);
    window.show();
    if (const std::optional<int> exitCode = OpenAtStart(window, options)) {
        return *exitCode;
    }
    if (options.edit) {
        EditOnceActive(window);
    }
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    int exitCode = exit_code::kDone;
    const std::optional<StudioOptions> options = ParseCommandLine(argc, argv, exitCode);
    if (!options) {
        return exitCode;
    }
    // A file size limit shows as a failed write, which can be told to the user.
    std::signal(SIGXFSZ, SIG_IGN);
    PrepareToolkit(*options);
    if (!HasDisplay()) {
        std::fputs("orbix-studio: no display; --render OUT.png draws without one\n", stderr);
        return exit_code::kFailed;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName("orbix-studio");
    QApplication::setApplicationDisplayName("Orbix");
    QApplication::setDesktopFileName("orbix-studio");
    return options->renderTo.empty() ? RunWindow(*options) : RenderToFile(*options);
}
