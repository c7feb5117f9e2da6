#pragma once

#include <memory>
#include <string>

#include "dialog/orbix_main_dlg.h"
#include "link/smw_manager.h"
#include "params/param_block.h"
#include "params/pattern_block.h"
#include "studio/options.h"

/// One document with the surroundings that the editor dialog wants from its host: the pattern as
/// it stands in the file, a patch block, a link with no device behind it.
class EditorSession {
public:
    /// Reads the pattern of `options.file`, or takes a new one when there is none. False with
    /// `reason` when the file can't be read (exitCode 1) or is no pattern (3).
    bool Open(const StudioOptions& options, std::string& reason, int& exitCode);

    /// A dialog on the document; the session outlives it.
    std::unique_ptr<COrbixMainDlg> MakeDialog();

    const std::string& File() const { return file_; }

private:
    std::string file_;
    std::optional<StudioOptions::Range> range_;
    std::unique_ptr<CQelCPB_3DPattern> pattern_;
    CZurParamBlock patch_{0, 0U};
    CZurSMWMan link_;
};
