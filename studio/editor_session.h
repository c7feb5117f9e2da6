#pragma once

#include <memory>
#include <optional>
#include <string>

#include "dialog/orbix_main_dlg.h"
#include "event/event_record.h"
#include "link/smw_manager.h"
#include "params/param_block.h"
#include "params/pattern_block.h"
#include "studio/document.h"
#include "studio/options.h"
#include "studio/studio_settings.h"

/// The editor dialog on behalf of the program: gives it the surroundings that it wants from a
/// host, and looks at its state from outside while it is open. Main thread.
class EditorSession {
public:
    /// `link` is borrowed. A range binds every editing to it; what lies outside stays as it is.
    EditorSession(CZurSMWMan& link, const std::optional<StudioOptions::Range>& range)
        : link_(link),
          range_(range ? EventRange{kRangeMode, range->start, range->end} : EventRange()) {}

    /// A dialog on a copy of the document's pattern; the session outlives it.
    std::unique_ptr<COrbixMainDlg> MakeDialog(const Document& document,
                                              const std::string& csvLoadFolder = "",
                                              const std::string& csvSaveFolder = "");

    /// Runs the dialog and gives DoModal's result. With IDOK the document has taken the changes
    /// over. The folders of the dialog's event files come from `settings` and go back there.
    int Edit(Document& document, StudioSettings& settings);

    /// The dialog that is open, null without one.
    COrbixMainDlg* OpenDialog() const { return dialog_; }

    /// What OK would give just now, in stored form, though the dialog goes on as if nothing had
    /// been asked. Nothing while no dialog is open, while a question stands before it, or while a
    /// text field has the focus: what is half typed there must not be read.
    std::optional<std::string> Snapshot() const;
    /// Whether the open dialog holds changes.
    bool HasChanges() const;

private:
    CZurSMWMan& link_;
    EventRange range_;
    CZurParamBlock patch_{0, 0U};
    COrbixMainDlg* dialog_ = nullptr;
    const CQelCPB_3DPattern* whole_ = nullptr;  ///< The document's, while the dialog is open.
};
