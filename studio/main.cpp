#include <QApplication>
#include <QMessageBox>
#include <csignal>
#include <cstdio>

#include "platform/hooks.h"
#include "studio/editor_session.h"
#include "studio/exit_codes.h"
#include "studio/options.h"
#include "studio/render.h"
#include "studio/save.h"

namespace {

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

void ShowFailure(const std::string& reason) {
    std::fprintf(stderr, "orbix-studio: %s\n", reason.c_str());
    QMessageBox::critical(nullptr, "Orbix", QString::fromStdString(reason));
}

int Edit(const StudioOptions& options) {
    EditorSession session;
    std::string reason;
    int exitCode = exit_code::kDone;
    if (!session.Open(options, reason, exitCode)) {
        ShowFailure(reason);
        return exitCode;
    }
    const std::unique_ptr<COrbixMainDlg> dialog = session.MakeDialog();
    switch (dialog->DoModal()) {
        case IDOK:
            return SaveEditedPattern(*dialog->Get3DPatternForTool(), session.File());
        case IDCANCEL:
            return exit_code::kDone;
        default:
            return exit_code::kAlreadyOpen;
    }
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
    QApplication::setDesktopFileName("orbix-studio");
    return options->renderTo.empty() ? Edit(*options) : RenderToFile(*options);
}
