#include "event/pattern_file.h"

#include "params/pattern_form.h"
#include "platform/files.h"

namespace {

std::unique_ptr<CQelCPB_3DPattern> Refuse(const CString& path, PatternFileFault fault,
                                          const CString& words, CString& reason,
                                          PatternFileFault* kind) {
    const bool unreadable = fault == PatternFileFault::unreadable;
    reason = path + (unreadable ? ": cannot be read: " : ": not a 3D pattern: ") + words;
    if (kind != nullptr) {
        *kind = fault;
    }
    return nullptr;
}

}  // namespace

std::unique_ptr<CQelCPB_3DPattern> LoadPatternFile(const CString& path, CString& reason,
                                                   PatternFileFault* kind) {
    CString words;
    const auto bytes = ReadWholeFile(path, &words);
    if (!bytes) {
        return Refuse(path, PatternFileFault::unreadable, words, reason, kind);
    }
    if (bytes->empty()) {
        return Refuse(path, PatternFileFault::noPattern,
                      "expected a stored pattern, found an empty file", reason, kind);
    }
    PatternFault fault;
    auto pattern = ReadPatternBytes(*bytes, fault);
    if (pattern == nullptr) {
        return Refuse(path, PatternFileFault::noPattern, fault.Text(), reason, kind);
    }
    return pattern;
}

bool SavePatternFile(const CString& path, const CQelCPB_3DPattern& pattern, CString& reason) {
    CString words;
    if (WriteFileCommitted(path, WritePatternBytes(pattern), &words)) {
        return true;
    }
    reason = path + ": cannot be written: " + words;
    return false;
}
