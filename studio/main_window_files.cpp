#include <QMessageBox>
#include <algorithm>
#include <filesystem>
#include <utility>

#include "studio/main_window.h"
#include "studio/questions.h"
#include "studio/save.h"

namespace {

constexpr std::size_t kShownRemarks = 5;

}  // namespace

bool MainWindow::MayCloseDocument() {
    const bool mayClose = MayClose(this, document_, settings_);
    ShowDocument();
    return mayClose;
}

void MainWindow::New() {
    if (MayCloseDocument()) {
        TakeDocument(Document());
    }
}

void MainWindow::AskAndOpen() {
    const std::string file =
        AskForFileToOpen(this, settings_.LastFolder(StudioSettings::Folder::patterns));
    if (!file.empty()) {
        OpenInstead(file);
    }
}

bool MainWindow::Open(const std::string& file, std::string& reason, PatternFileFault* kind) {
    std::optional<Document> document = Document::Open(file, reason, kind);
    if (!document) {
        return false;
    }
    TakeDocument(std::move(*document));
    settings_.NoteFolder(StudioSettings::Folder::patterns,
                         std::filesystem::path(document_.File()).parent_path().string());
    SayCorrected();
    return true;
}

// A document given up stays until another one has been opened.
void MainWindow::OpenInstead(const std::string& file) {
    std::string reason;
    if (MayCloseDocument() && !Open(file, reason)) {
        settings_.ForgetRecent(file);
        ShowFailure(this, reason);
    }
}

void MainWindow::SayCorrected() {
    const std::vector<CString>& lines = document_.Report().Lines();
    if (lines.empty()) {
        return;
    }
    QString text =
        tr("%1 was corrected while it was opened:").arg(QString::fromStdString(document_.Label())) +
        "\n";
    for (std::size_t i = 0; i < std::min(lines.size(), kShownRemarks); ++i) {
        text += "\n" + QString::fromStdString(lines[i]);
    }
    if (lines.size() > kShownRemarks) {
        text += "\n" + tr("and %1 more in the load report").arg(lines.size() - kShownRemarks);
    }
    QMessageBox box(QMessageBox::Warning, tr("Orbix"), text, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void MainWindow::Save() {
    SaveDocument(this, document_, settings_);
    ShowDocument();
    KeepDocument();
}

void MainWindow::SaveAs() {
    SaveDocumentAs(this, document_, settings_);
    ShowDocument();
    KeepDocument();
}
