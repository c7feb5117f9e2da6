#pragma once

#include <QMainWindow>
#include <QMenu>
#include <QTimer>
#include <optional>
#include <string>

#include "link/smw_manager.h"
#include "studio/autosave.h"
#include "studio/document.h"
#include "studio/editor_session.h"
#include "studio/load_report_pane.h"
#include "studio/options.h"
#include "studio/studio_settings.h"
#include "studio/summary_pane.h"

/// The program's window: one document with its summary and its load report, the menus, and the
/// editor dialog on demand. While there is unsaved work it is kept as an autosave. Main thread.
class MainWindow : public QMainWindow {
public:
    /// `link` is borrowed: the way to the device for the editor.
    explicit MainWindow(CZurSMWMan& link, std::optional<StudioOptions::Range> range = {});

    /// Offers what a crash has left. True when the user chose a document, which is open now.
    bool OfferRecovery(const std::string& askedFor);
    /// Opens a file in the place of the document. On failure false with `reason` and `kind`, and
    /// the document stays.
    bool Open(const std::string& file, std::string& reason, PatternFileFault* kind = nullptr);
    /// Runs the editor, writes what OK gave to the document's file, and gives DoModal's result.
    int EditEvents();

    const Document& CurrentDocument() const { return document_; }
    /// The editor's dialog while it is open, else null.
    COrbixMainDlg* OpenDialog() const { return session_.OpenDialog(); }

    /// Brings unsaved work to the disk if the last time was kAutosaveMilliseconds ago; called
    /// every second.
    void AutosaveTick();

    static constexpr DWORD kAutosaveMilliseconds = 5000;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // Menus (main_window_menus.cpp).
    void MakeMenus();
    void MakeFileMenu(QMenu& menu);
    void MakeEditMenu(QMenu& menu);
    void MakeViewMenu(QMenu& menu);
    void MakeHelpMenu(QMenu& menu);
    void FillRecentMenu();
    void ShowAbout();

    // Files (main_window_files.cpp).
    void New();
    void AskAndOpen();
    void OpenInstead(const std::string& file);
    void Save();
    void SaveAs();
    bool MayCloseDocument();

    void ShowDocument();
    void TakeDocument(Document document);
    void SayCorrected();
    void KeepDocument();
    void KeepWork(const std::string& bytes);

    StudioSettings settings_;
    Document document_;
    EditorSession session_;
    AutosaveSlot autosave_{AutosaveFolder()};
    QTimer autosaveTimer_;
    DWORD lastAutosave_ = 0;
    SummaryPane* summary_;
    LoadReportPane* report_;
    QMenu* recentMenu_ = nullptr;
};
