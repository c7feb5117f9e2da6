#include "studio/document.h"

#include <filesystem>
#include <utility>

#include "event/left_out.h"
#include "params/pattern_form.h"
#include "platform/files.h"
#include "platform/hooks.h"

namespace {

// The current folder moves with the editor's file dialogs.
std::string Absolute(const std::string& file) {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(file, error);
    return error ? file : path.string();
}

}  // namespace

Document::Document() : Document(std::make_unique<CQelCPB_3DPattern>(), "") {}

Document::Document(std::unique_ptr<CQelCPB_3DPattern> pattern, std::string file)
    : pattern_(std::move(pattern)), file_(std::move(file)) {
    LoadEvents(report_);
    AddLeftOutOfPattern(*pattern_, events_, report_);
    if (!report_.IsEmpty()) {
        events_.StoreToPattern(pattern_.get(), Name());
        modified_ = true;
    }
}

std::optional<Document> Document::Open(const std::string& file, std::string& reason,
                                       PatternFileFault* kind) {
    if (KindOfPath(file) == PathKind::other) {
        reason = file + ": cannot be read: not a plain file";
        if (kind != nullptr) {
            *kind = PatternFileFault::unreadable;
        }
        return std::nullopt;
    }
    auto pattern = LoadPatternFile(file, reason, kind);
    if (pattern == nullptr) {
        return std::nullopt;
    }
    return Document(std::move(pattern), Absolute(file));
}

Document Document::Recovered(std::unique_ptr<CQelCPB_3DPattern> pattern, const std::string& file) {
    Document document(std::move(pattern), file);
    document.modified_ = true;
    return document;
}

bool Document::Save(const std::string& file, std::string& reason) {
    const std::string path = Absolute(file);
    if (!SavePatternFile(path, *pattern_, reason)) {
        return false;
    }
    file_ = path;
    modified_ = false;
    return true;
}

void Document::TakeEdited(std::unique_ptr<CQelCPB_3DPattern> pattern) {
    pattern_ = std::move(pattern);
    C3DReport unchanged;  // The editor has corrected all there was.
    LoadEvents(unchanged);
    modified_ = true;
}

void Document::LoadEvents(C3DReport& report) {
    const HooksScope scope;
    Hooks().waitCursor = [](bool) {};
    Hooks().messageBox = [](const CString&, UINT) { return IDOK; };  // The report is kept instead.
    events_.LoadFromPattern(pattern_.get(), report);
}

std::string Document::Label() const {
    return file_.empty() ? "Untitled" : std::filesystem::path(file_).filename().string();
}

std::string Document::Name() const {
    return PatternName(*pattern_);
}

std::string Document::StoredBytes() const {
    return WritePatternBytes(*pattern_);
}
