#include "studio/main_window.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QIcon>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "platform/hooks.h"
#include "studio/questions.h"
#include "studio/recovery.h"
#include "studio/save.h"

namespace {

constexpr int kTickMilliseconds = 1000;

}  // namespace

MainWindow::MainWindow(CZurSMWMan& link, std::optional<StudioOptions::Range> range)
    : session_(link, range), summary_(new SummaryPane), report_(new LoadReportPane(this)) {
    setWindowIcon(QIcon::fromTheme("orbix-studio"));
    setAcceptDrops(true);
    auto* edit = new QPushButton(tr("E&dit events..."));
    connect(edit, &QPushButton::clicked, this, [this] { EditEvents(); });
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->addWidget(summary_);
    column->addStretch();
    column->addWidget(edit, 0, Qt::AlignRight);
    setCentralWidget(content);
    addDockWidget(Qt::BottomDockWidgetArea, report_);
    MakeMenus();
    resize(820, 420);  // All columns of the monitor.
    restoreGeometry(settings_.WindowGeometry());
    restoreState(settings_.WindowState());
    statusBar();
    connect(&autosaveTimer_, &QTimer::timeout, this, [this] { AutosaveTick(); });
    autosaveTimer_.start(kTickMilliseconds);
    lastAutosave_ = Hooks().tickCount();
    ShowDocument();
    report_->ShowReport(document_.Report());
}

void MainWindow::ShowDocument() {
    setWindowTitle(QString::fromStdString(document_.Label()) + "[*] - Orbix");
    setWindowModified(document_.IsModified());
    summary_->ShowDocument(document_);
}

void MainWindow::TakeDocument(Document document) {
    document_ = std::move(document);
    if (!document_.File().empty()) {
        settings_.NoteRecent(document_.File());
    }
    ShowDocument();
    report_->ShowReport(document_.Report());
    KeepDocument();
}

bool MainWindow::OfferRecovery(const std::string& askedFor) {
    std::optional<Document> document = ::OfferRecovery(this, AutosaveFolder(), askedFor, autosave_);
    if (document) {
        TakeDocument(std::move(*document));
    }
    return document.has_value();
}

int MainWindow::EditEvents() {
    if (OpenDialog() != nullptr) {
        return IDCANCEL;
    }
    const int answer = session_.Edit(document_, settings_);
    if (answer == IDOK) {
        ShowDocument();
        KeepDocument();
        Save();
    }
    KeepDocument();
    return answer;
}

void MainWindow::AutosaveTick() {
    if (Hooks().tickCount() - lastAutosave_ < kAutosaveMilliseconds) {
        return;
    }
    if (OpenDialog() == nullptr || !session_.HasChanges()) {
        KeepDocument();
    } else if (const std::optional<std::string> work = session_.Snapshot()) {
        KeepWork(*work);
    }
}

// Without unsaved changes there is nothing to keep.
void MainWindow::KeepDocument() {
    if (document_.IsModified()) {
        KeepWork(document_.StoredBytes());
    } else {
        autosave_.Drop();
        lastAutosave_ = Hooks().tickCount();
    }
}

void MainWindow::KeepWork(const std::string& bytes) {
    lastAutosave_ = Hooks().tickCount();
    std::string reason;
    if (!autosave_.Keep(document_.File(), bytes, reason)) {
        statusBar()->showMessage(tr("Autosave failed: %1").arg(QString::fromStdString(reason)));
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!MayCloseDocument()) {
        event->ignore();
        return;
    }
    settings_.NoteWindow(saveGeometry(), saveState());
    autosave_.Drop();
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    event->acceptProposedAction();
    if (urls.size() != 1 || !urls.constFirst().isLocalFile()) {
        ShowFailure(this, "Only one file of this computer can be opened at a time.");
        return;
    }
    OpenInstead(urls.constFirst().toLocalFile().toStdString());
}
