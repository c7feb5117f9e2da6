#include <QMenuBar>
#include <QMessageBox>

#include "studio/main_window.h"

namespace {

constexpr int kRecentCaptionWidth = 60;

// The end of a path says most; an ampersand would be taken for a key mark.
QString RecentCaption(const std::string& file) {
    QString text = QString::fromStdString(file);
    if (text.size() > kRecentCaptionWidth) {
        text = "..." + text.right(kRecentCaptionWidth);
    }
    return text.replace('&', "&&");
}

}  // namespace

void MainWindow::MakeMenus() {
    MakeFileMenu(*menuBar()->addMenu(tr("&File")));
    MakeEditMenu(*menuBar()->addMenu(tr("&Edit")));
    MakeViewMenu(*menuBar()->addMenu(tr("&View")));
    MakeHelpMenu(*menuBar()->addMenu(tr("&Help")));
}

void MainWindow::MakeFileMenu(QMenu& menu) {
    menu.addAction(tr("&New"), QKeySequence::New, this, [this] { New(); });
    menu.addAction(tr("&Open..."), QKeySequence::Open, this, [this] { AskAndOpen(); });
    recentMenu_ = menu.addMenu(tr("Open &Recent"));
    connect(recentMenu_, &QMenu::aboutToShow, this, [this] { FillRecentMenu(); });
    menu.addSeparator();
    menu.addAction(tr("&Save"), QKeySequence::Save, this, [this] { Save(); });
    menu.addAction(tr("Save &As..."), QKeySequence("Ctrl+Shift+S"), this, [this] { SaveAs(); });
    menu.addSeparator();
    menu.addAction(tr("&Quit"), QKeySequence("Ctrl+Q"), this, [this] { close(); });
}

void MainWindow::FillRecentMenu() {
    recentMenu_->clear();
    for (const std::string& file : settings_.RecentFiles()) {
        recentMenu_->addAction(RecentCaption(file), this, [this, file] { OpenInstead(file); });
    }
    if (recentMenu_->isEmpty()) {
        recentMenu_->addAction(tr("None"))->setEnabled(false);
    }
}

void MainWindow::MakeEditMenu(QMenu& menu) {
    menu.addAction(tr("&Edit events..."), QKeySequence("Ctrl+E"), this, [this] { EditEvents(); });
}

// The window's own panes; the device's monitor has its switch in the menu of the device.
void MainWindow::MakeViewMenu(QMenu& menu) {
    for (QDockWidget* pane : findChildren<QDockWidget*>()) {
        menu.addAction(pane->toggleViewAction());
    }
}

void MainWindow::MakeHelpMenu(QMenu& menu) {
    menu.addAction(tr("&About Orbix"), this, [this] { ShowAbout(); });
    menu.addAction(tr("About the &Toolkit"), this, [this] { QMessageBox::aboutQt(this); });
}

void MainWindow::ShowAbout() {
    QMessageBox::about(this, tr("About Orbix"),
                       tr("Orbix %1\nAn editor for 3D sound-position patterns.\n"
                          "The Orbix authors, MIT licence.")
                           .arg(ORBIX_VERSION));
}
