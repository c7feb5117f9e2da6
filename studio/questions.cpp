#include "studio/questions.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <cstdio>

namespace {

QString PatternFilter() {
    return QObject::tr("3D patterns (*.3dp)");
}

std::string Run(QFileDialog& dialog, const std::string& folder) {
    if (!folder.empty()) {
        dialog.setDirectory(QString::fromStdString(folder));
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {};
    }
    return dialog.selectedFiles().constFirst().toStdString();
}

}  // namespace

void ShowFailure(QWidget* parent, const std::string& words) {
    std::fprintf(stderr, "orbix-studio: %s\n", words.c_str());
    QMessageBox box(QMessageBox::Critical, QObject::tr("Orbix"), QString::fromStdString(words),
                    QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

std::string AskForFileToOpen(QWidget* parent, const std::string& folder) {
    QFileDialog dialog(parent, QObject::tr("Open Pattern"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({PatternFilter(), QObject::tr("All files (*)")});
    return Run(dialog, folder);
}

std::string AskForFileToSave(QWidget* parent, const std::string& folder,
                             const std::string& suggestion) {
    QFileDialog dialog(parent, QObject::tr("Save Pattern"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters({PatternFilter(), QObject::tr("All files (*)")});
    dialog.setDefaultSuffix("3dp");
    dialog.selectFile(QString::fromStdString(suggestion));
    return Run(dialog, folder);
}

CloseChoice AskWhetherToSave(QWidget* parent, const std::string& label) {
    QMessageBox box(
        QMessageBox::Question, QObject::tr("Orbix"),
        QObject::tr("%1 has been modified.\nSave the changes?").arg(QString::fromStdString(label)),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
        case QMessageBox::Save:
            return CloseChoice::save;
        case QMessageBox::Discard:
            return CloseChoice::discard;
        default:
            return CloseChoice::cancel;
    }
}

RetryChoice AskAfterFailedSave(QWidget* parent, const std::string& reason) {
    QMessageBox box(QMessageBox::Warning, QObject::tr("Orbix"), QString::fromStdString(reason),
                    QMessageBox::Cancel, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(QObject::tr("The changes are still open and can be saved."));
    const QAbstractButton* again =
        box.addButton(QObject::tr("&Try Again"), QMessageBox::AcceptRole);
    QPushButton* other = box.addButton(QObject::tr("&Save As..."), QMessageBox::AcceptRole);
    box.setDefaultButton(other);
    box.exec();
    if (box.clickedButton() == again) {
        return RetryChoice::tryAgain;
    }
    return box.clickedButton() == other ? RetryChoice::otherName : RetryChoice::cancel;
}
