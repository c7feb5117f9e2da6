#include "studio/save.h"

#include <algorithm>
#include <filesystem>

#include "studio/questions.h"

namespace {

// A name for a pattern that has no file yet.
std::string SuggestionFor(const Document& document) {
    if (!document.File().empty()) {
        return document.File();
    }
    std::string name = document.Name();
    std::replace(name.begin(), name.end(), '/', '-');
    return (name.empty() || name.front() == '.' ? document.Label() : name) + ".3dp";
}

std::string AskForName(QWidget* parent, const Document& document, const StudioSettings& settings) {
    const std::string folder = document.File().empty()
                                   ? settings.LastFolder(StudioSettings::Folder::patterns)
                                   : std::filesystem::path(document.File()).parent_path().string();
    return AskForFileToSave(parent, folder, SuggestionFor(document));
}

void NoteSaved(const std::string& file, StudioSettings& settings) {
    settings.NoteRecent(file);
    settings.NoteFolder(StudioSettings::Folder::patterns,
                        std::filesystem::path(file).parent_path().string());
}

bool SaveTo(QWidget* parent, Document& document, StudioSettings& settings, std::string file) {
    while (!file.empty()) {
        std::string reason;
        if (document.Save(file, reason)) {
            NoteSaved(document.File(), settings);
            return true;
        }
        const RetryChoice choice = AskAfterFailedSave(parent, reason);
        if (choice == RetryChoice::cancel) {
            return false;
        }
        if (choice == RetryChoice::otherName) {
            file = AskForName(parent, document, settings);
        }
    }
    return false;
}

}  // namespace

bool SaveDocument(QWidget* parent, Document& document, StudioSettings& settings) {
    if (document.File().empty()) {
        return SaveDocumentAs(parent, document, settings);
    }
    return SaveTo(parent, document, settings, document.File());
}

bool SaveDocumentAs(QWidget* parent, Document& document, StudioSettings& settings) {
    return SaveTo(parent, document, settings, AskForName(parent, document, settings));
}

bool MayClose(QWidget* parent, Document& document, StudioSettings& settings) {
    if (!document.IsModified()) {
        return true;
    }
    switch (AskWhetherToSave(parent, document.Label())) {
        case CloseChoice::save:
            return SaveDocument(parent, document, settings);
        case CloseChoice::discard:
            return true;
        case CloseChoice::cancel:
            break;
    }
    return false;
}
