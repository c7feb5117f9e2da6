#include "studio/load_report_pane.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "platform/files.h"
#include "studio/questions.h"

LoadReportPane::LoadReportPane(QWidget* parent)
    : QDockWidget(tr("Load Report"), parent), lines_(new QPlainTextEdit) {
    setObjectName("LoadReport");
    auto* content = new QWidget(this);
    auto* column = new QVBoxLayout(content);
    lines_->setReadOnly(true);
    lines_->setLineWrapMode(QPlainTextEdit::NoWrap);
    lines_->setAccessibleName(windowTitle());
    lines_->setTabChangesFocus(true);
    column->addWidget(lines_);
    copy_ = new QPushButton(tr("&Copy All"));
    save_ = new QPushButton(tr("Save &Report..."));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(copy_);
    buttons->addWidget(save_);
    column->addLayout(buttons);
    setWidget(content);
    connect(copy_, &QPushButton::clicked, this, [this] { CopyAll(); });
    connect(save_, &QPushButton::clicked, this, [this] { Save(); });
}

void LoadReportPane::ShowReport(const C3DReport& report) {
    QStringList lines;
    for (const CString& line : report.Lines()) {
        lines.append(QString::fromStdString(line));
    }
    lines_->setPlainText(lines.join('\n'));
    copy_->setEnabled(!lines.isEmpty());
    save_->setEnabled(!lines.isEmpty());
    setVisible(!lines.isEmpty());
}

void LoadReportPane::CopyAll() {
    QGuiApplication::clipboard()->setText(lines_->toPlainText());
}

void LoadReportPane::Save() {
    QFileDialog dialog(this, tr("Save Report"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters({tr("Text (*.txt)"), tr("All files (*)")});
    dialog.setDefaultSuffix("txt");
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return;
    }
    const std::string file = dialog.selectedFiles().constFirst().toStdString();
    std::string reason;
    if (!WriteFileCommitted(file, lines_->toPlainText().toStdString() + "\n", &reason)) {
        ShowFailure(this, file + ": cannot be written: " + reason);
    }
}
