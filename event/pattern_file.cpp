#include "event/pattern_file.h"

#include "params/pattern_form.h"
#include "platform/files.h"

std::unique_ptr<CQelCPB_3DPattern> LoadPatternFile(const CString& path, CString& reason) {
    CString words;
    const auto bytes = ReadWholeFile(path, &words);
    if (!bytes) {
        reason = path + ": cannot be read: " + words;
        return nullptr;
    }
    if (bytes->empty()) {
        reason = path + ": not a 3D pattern: expected a stored pattern, found an empty file";
        return nullptr;
    }
    PatternFault fault;
    auto pattern = ReadPatternBytes(*bytes, fault);
    if (pattern == nullptr) {
        reason = path + ": not a 3D pattern: " + fault.Text();
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
