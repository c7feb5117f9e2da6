#include "studio/editor_session.h"

#include <QApplication>
#include <QDialog>

#include "event/pattern_range.h"
#include "params/pattern_form.h"
#include "platform/controls.h"
#include "platform/hooks.h"

namespace {

/// Lets the session know its dialog for a scope.
class OpenScope {
public:
    OpenScope(COrbixMainDlg*& place, COrbixMainDlg* dialog) : place_(place) { place_ = dialog; }
    ~OpenScope() { place_ = nullptr; }
    OpenScope(const OpenScope&) = delete;
    OpenScope& operator=(const OpenScope&) = delete;

private:
    COrbixMainDlg*& place_;
};

bool IsTextFieldFocused() {
    return dynamic_cast<CEdit*>(CWnd::GetFocus()) != nullptr;
}

// The toolkit's own dialogs; the editor is none of them.
bool IsQuestionOpen() {
    return qobject_cast<QDialog*>(QApplication::activeModalWidget()) != nullptr;
}

}  // namespace

std::unique_ptr<COrbixMainDlg> EditorSession::MakeDialog(const Document& document,
                                                         const std::string& csvLoadFolder,
                                                         const std::string& csvSaveFolder) {
    const auto pattern = PatternInside(document.Pattern(), range_);
    return std::make_unique<COrbixMainDlg>(
        nullptr, pattern.get(), &patch_, nullptr, link_, nullptr, static_cast<unsigned short>(0),
        range_.start, range_.end, !range_.IsBound(), csvLoadFolder.c_str(), csvSaveFolder.c_str());
}

int EditorSession::Edit(Document& document, StudioSettings& settings) {
    using Folder = StudioSettings::Folder;
    const std::unique_ptr<COrbixMainDlg> dialog = MakeDialog(
        document, settings.LastFolder(Folder::csvLoad), settings.LastFolder(Folder::csvSave));
    const OpenScope scope(dialog_, dialog.get());
    whole_ = &document.Pattern();
    const int answer = static_cast<int>(dialog->DoModal());
    settings.NoteFolder(Folder::csvLoad, dialog->GetInitialDirCsvLoad());
    settings.NoteFolder(Folder::csvSave, dialog->GetInitialDirCsvSave());
    if (answer == IDOK && dialog->Get3DPatternForTool() != nullptr) {
        auto edited = CopyPattern(*dialog->Get3DPatternForTool());
        AppendOutside(document.Pattern(), range_, *edited);
        document.TakeEdited(std::move(edited));
    }
    return answer;
}

std::optional<std::string> EditorSession::Snapshot() const {
    if (dialog_ == nullptr || dialog_->Get3DPatternForTool() == nullptr || IsTextFieldFocused() ||
        IsQuestionOpen()) {
        return std::nullopt;
    }
    const auto pattern = CopyPattern(*dialog_->Get3DPatternForTool());
    dialog_->Update3DPatternForTool(pattern.get());
    AppendOutside(*whole_, range_, *pattern);
    return WritePatternBytes(*pattern);
}

bool EditorSession::HasChanges() const {
    return dialog_ != nullptr && (dialog_->GetModified() || dialog_->IsNameModified());
}
