#include "studio/recovery.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <utility>

#include "platform/files.h"
#include "studio/questions.h"

namespace {

enum class Choice { autosaved, saved, discard, later };

QString VersionText(const QString& caption, const std::string& file) {
    const QFileInfo info(QString::fromStdString(file));
    if (!info.exists()) {
        return QObject::tr("%1: none").arg(caption);
    }
    return QObject::tr("%1: %2, %3 bytes")
        .arg(caption, info.lastModified().toString("yyyy-MM-dd HH:mm:ss"),
             QLocale().toString(info.size()));
}

QString QuestionText(const CrashedAutosave& crashed) {
    const QString what = crashed.Origin().empty() ? QObject::tr("A pattern that was never saved")
                                                  : QString::fromStdString(crashed.Origin());
    return QObject::tr("The last session ended without saving:\n%1").arg(what) + "\n\n" +
           VersionText(QObject::tr("Saved version"), crashed.Origin()) + "\n" +
           VersionText(QObject::tr("Autosaved version"), crashed.File()) + "\n\n" +
           QObject::tr("Which one do you want to go on with?");
}

Choice Ask(QWidget* parent, const CrashedAutosave& crashed) {
    QMessageBox box(QMessageBox::Question, QObject::tr("Orbix"), QuestionText(crashed), {}, parent);
    box.setTextFormat(Qt::PlainText);
    QPushButton* recover = box.addButton(QObject::tr("&Autosaved"), QMessageBox::AcceptRole);
    const bool isSaved = QFileInfo::exists(QString::fromStdString(crashed.Origin()));
    const QAbstractButton* other =
        box.addButton(isSaved ? QObject::tr("&Saved") : QObject::tr("&Discard Autosave"),
                      QMessageBox::DestructiveRole);
    box.setEscapeButton(box.addButton(QObject::tr("Decide &Later"), QMessageBox::RejectRole));
    box.setDefaultButton(recover);
    box.exec();
    if (box.clickedButton() == recover) {
        return Choice::autosaved;
    }
    if (box.clickedButton() == other) {
        return isSaved ? Choice::saved : Choice::discard;
    }
    return Choice::later;
}

// A crash right behind a save leaves an autosave that says nothing new.
bool IsSameAsSaved(const CrashedAutosave& crashed) {
    if (KindOfPath(crashed.Origin()) == PathKind::other) {
        return false;  // whose other end may never come
    }
    const auto saved = ReadWholeFile(crashed.Origin());
    return saved.has_value() && saved == ReadWholeFile(crashed.File());
}

// The old autosave goes only when the new one is there.
Document Recover(QWidget* parent, CrashedAutosave& crashed,
                 std::unique_ptr<CQelCPB_3DPattern> pattern, AutosaveSlot& slot) {
    Document document = Document::Recovered(std::move(pattern), crashed.Origin());
    std::string reason;
    if (slot.Keep(document.File(), document.StoredBytes(), reason)) {
        crashed.Remove();
    } else {
        ShowFailure(parent, "The autosave cannot be renewed: " + reason);
    }
    return document;
}

// A saved version that can't be opened leaves the autosave, which is then all there is.
std::optional<Document> OpenSaved(QWidget* parent, const CrashedAutosave& crashed) {
    std::string reason;
    std::optional<Document> document = Document::Open(crashed.Origin(), reason);
    if (!document) {
        ShowFailure(parent, reason);
    }
    return document;
}

}  // namespace

std::optional<Document> OfferRecovery(QWidget* parent, const std::string& folder,
                                      const std::string& askedFor, AutosaveSlot& slot) {
    for (CrashedAutosave& crashed : FindCrashedAutosaves(folder)) {
        if (IsSameAsSaved(crashed)) {
            crashed.Remove();
            continue;
        }
        std::string reason;
        auto pattern = LoadPatternFile(crashed.File(), reason);
        if (pattern == nullptr) {
            ShowFailure(parent, reason + "\nKept as " + crashed.SetAside());
            continue;
        }
        const Choice choice = Ask(parent, crashed);
        if (choice == Choice::autosaved) {
            return Recover(parent, crashed, std::move(pattern), slot);
        }
        std::optional<Document> saved;
        if (choice == Choice::saved) {
            saved = OpenSaved(parent, crashed);
        }
        if (saved || choice == Choice::discard) {
            crashed.Remove();
        }
        if (saved && askedFor.empty()) {
            return saved;
        }
    }
    return std::nullopt;
}
