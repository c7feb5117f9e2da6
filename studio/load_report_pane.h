#pragma once

#include <QDockWidget>
#include <QPlainTextEdit>
#include <QPushButton>

#include "event/report.h"

/// All remarks of a load, a line each, where the editor's box shows the first five: to be read,
/// copied and saved as text.
class LoadReportPane : public QDockWidget {
public:
    explicit LoadReportPane(QWidget* parent = nullptr);

    /// Fills the pane; it comes up when there is something to read, and goes away when not.
    void ShowReport(const C3DReport& report);

private:
    void CopyAll();
    void Save();

    QPlainTextEdit* lines_;
    QPushButton* copy_;
    QPushButton* save_;
};
