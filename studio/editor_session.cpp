#include "studio/editor_session.h"

#include "event/pattern_file.h"
#include "platform/files.h"
#include "studio/exit_codes.h"

bool EditorSession::Open(const StudioOptions& options, std::string& reason, int& exitCode) {
    file_ = options.file;
    range_ = options.range;
    if (file_.empty()) {
        pattern_ = std::make_unique<CQelCPB_3DPattern>();
        return true;
    }
    pattern_ = LoadPatternFile(file_, reason);
    if (pattern_ == nullptr) {
        exitCode = ReadWholeFile(file_) ? exit_code::kRefused : exit_code::kFailed;
    }
    return pattern_ != nullptr;
}

std::unique_ptr<COrbixMainDlg> EditorSession::MakeDialog() {
    const StudioOptions::Range range = range_.value_or(StudioOptions::Range());
    return std::make_unique<COrbixMainDlg>(nullptr, pattern_.get(), &patch_, nullptr, link_,
                                           nullptr, static_cast<unsigned short>(0), range.start,
                                           range.end, !range_.has_value(), "", "");
}
