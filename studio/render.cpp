#include "studio/render.h"

#include <QApplication>
#include <QBuffer>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <cstdio>

#include "platform/controls.h"
#include "platform/files.h"
#include "platform/hooks.h"
#include "studio/document.h"
#include "studio/editor_session.h"
#include "studio/exit_codes.h"

namespace {

// Control numbers of the editor dialog.
constexpr int kPlaneFromAbove = 1018;
constexpr int kPlaneFromBehind = 1002;
constexpr UINT kZoomBox = 1023;

void Choose(COrbixMainDlg& dialog, UINT button, char axis, const std::string& axes) {
    const int check = axes.find(axis) == std::string::npos ? 0 : 1;
    auto* control = dialog.GetDlgItemAs<CButton>(static_cast<int>(button));
    if (control->GetCheck() != check) {
        control->SetCheck(check);
        dialog.SendMessage(WM_COMMAND, button);
    }
}

void ApplyView(COrbixMainDlg& dialog, const StudioOptions& options) {
    if (!options.zoom.empty()) {
        dialog.GetDlgItemAs<CComboBox>(kZoomBox)->SelectString(-1, options.zoom);
        dialog.SendMessage(WM_COMMAND, (static_cast<WPARAM>(CBN_SELCHANGE) << 16U) | kZoomBox);
    }
    Choose(dialog, 1028, 'X', options.reverse);
    Choose(dialog, 1031, 'Y', options.reverse);
    Choose(dialog, 1032, 'Z', options.reverse);
}

QRect PlanesOf(const COrbixMainDlg& dialog) {
    QRect planes;
    for (const int id : {kPlaneFromAbove, kPlaneFromBehind}) {
        RECT place = dialog.GetDlgItem(id)->GetWindowRect();
        dialog.ScreenToClient(place);
        planes |= QRect(place.left, place.top, Width(place), Height(place));
    }
    return planes;
}

// A dialog that takes its own picture as soon as it is up, and closes. It runs without the guard
// against a second editor, since it changes nothing.
class PictureDialog {
public:
    PictureDialog(COrbixMainDlg& dialog, const StudioOptions& options)
        : dialog_(dialog), options_(options) {}

    QPixmap Take() {
        QTimer::singleShot(0, qApp, [this] { TakeAndClose(); });
        dialog_.CDialog::DoModal();
        return picture_;
    }

private:
    void TakeAndClose() {
        ApplyView(dialog_, options_);
        if (QWidget* window = QApplication::activeModalWidget()) {
            picture_ = window->grab(options_.renderEditor ? window->rect() : PlanesOf(dialog_));
        }
        dialog_.EndDialog(IDCANCEL);
    }

    COrbixMainDlg& dialog_;
    const StudioOptions& options_;
    QPixmap picture_;
};

bool WritePicture(const QPixmap& picture, const std::string& file, CString& reason) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!picture.save(&buffer, "PNG")) {
        reason = "the picture could not be drawn";
        return false;
    }
    return WriteFileCommitted(
        file, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())), &reason);
}

}  // namespace

int RenderToFile(const StudioOptions& options) {
    Hooks().messageBox = [](const CString& text, UINT) {
        std::fprintf(stderr, "%s\n", text.c_str());
        return IDOK;
    };
    std::string reason;
    PatternFileFault fault = PatternFileFault::unreadable;
    const std::optional<Document> document =
        options.file.empty() ? Document() : Document::Open(options.file, reason, &fault);
    if (!document) {
        std::fprintf(stderr, "orbix-studio: %s\n", reason.c_str());
        return fault == PatternFileFault::unreadable ? exit_code::kFailed : exit_code::kRefused;
    }
    for (const CString& line : document->Report().Lines()) {
        std::fprintf(stderr, "%s\n", line.c_str());
    }
    CZurSMWMan link;
    EditorSession session(link, options.range);
    const std::unique_ptr<COrbixMainDlg> dialog = session.MakeDialog(*document);
    if (!WritePicture(PictureDialog(*dialog, options).Take(), options.renderTo, reason)) {
        std::fprintf(stderr, "orbix-studio: %s: %s\n", options.renderTo.c_str(), reason.c_str());
        return exit_code::kFailed;
    }
    return exit_code::kDone;
}
