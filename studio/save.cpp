#include "studio/save.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include "event/pattern_file.h"
#include "studio/exit_codes.h"

namespace {

enum class Choice { tryAgain, otherName, giveUp };

std::string AskForName() {
    QFileDialog dialog(nullptr, QObject::tr("Save Pattern"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(QObject::tr("3D patterns (*.3dp)"));
    dialog.setDefaultSuffix("3dp");
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {};
    }
    return dialog.selectedFiles().constFirst().toStdString();
}

Choice AskWhatNext(const std::string& text, bool canTryAgain) {
    QMessageBox box(QMessageBox::Warning, QObject::tr("Orbix"), QString::fromStdString(text));
    const QAbstractButton* again =
        canTryAgain ? box.addButton(QObject::tr("&Try Again"), QMessageBox::AcceptRole) : nullptr;
    QPushButton* other = box.addButton(QObject::tr("&Save As..."), QMessageBox::AcceptRole);
    const QAbstractButton* discard =
        box.addButton(QObject::tr("&Discard Changes"), QMessageBox::DestructiveRole);
    box.setDefaultButton(other);
    box.setEscapeButton(other);
    box.exec();
    if (box.clickedButton() == discard) {
        return Choice::giveUp;
    }
    return again != nullptr && box.clickedButton() == again ? Choice::tryAgain : Choice::otherName;
}

}  // namespace

int SaveEditedPattern(CQelCPB_3DPattern& pattern, std::string file) {
    for (;;) {
        Choice next = Choice::otherName;
        if (file.empty() && (file = AskForName()).empty()) {
            next = AskWhatNext("The pattern has not been saved.", false);
        } else {
            std::string reason;
            if (SavePatternFile(file, pattern, reason)) {
                return exit_code::kDone;
            }
            next = AskWhatNext(reason, true);
        }
        if (next == Choice::giveUp) {
            return exit_code::kFailed;
        }
        if (next == Choice::otherName) {
            file.clear();
        }
    }
}
