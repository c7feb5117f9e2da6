#pragma once

#include <memory>
#include <optional>
#include <string>

#include "event/event_store.h"
#include "event/pattern_file.h"
#include "event/report.h"
#include "params/pattern_block.h"

/// One open pattern: the pattern itself, its event table, the file it belongs to, whether it
/// differs from that file, and what had to be corrected when it was loaded. Shows nothing and asks
/// nothing. Main thread.
class Document {
public:
    /// A new pattern without a file, not modified.
    Document();

    /// Reads a pattern file. What the load corrects or leaves out is corrected in the pattern too
    /// and makes the document modified. Nothing, with `reason` and `kind`, on failure.
    static std::optional<Document> Open(const std::string& file, std::string& reason,
                                        PatternFileFault* kind = nullptr);
    /// A document of `file` ("": never saved) that holds another state than the file's: modified.
    static Document Recovered(std::unique_ptr<CQelCPB_3DPattern> pattern, const std::string& file);

    /// Writes the pattern to `file`, which becomes the document's own. On failure false with
    /// `reason`; file and document are then as they were.
    bool Save(const std::string& file, std::string& reason);
    /// Takes a changed pattern over; the document is modified.
    void TakeEdited(std::unique_ptr<CQelCPB_3DPattern> pattern);

    const CQelCPB_3DPattern& Pattern() const { return *pattern_; }
    const C3DEventData& Events() const { return events_; }
    /// Absolute path; empty for a pattern that was never saved.
    const std::string& File() const { return file_; }
    /// File name without folders, or "Untitled".
    std::string Label() const;
    std::string Name() const;
    bool IsModified() const { return modified_; }
    /// All remarks of the load that the document came from.
    const C3DReport& Report() const { return report_; }
    /// The bytes that Save would write.
    std::string StoredBytes() const;

private:
    Document(std::unique_ptr<CQelCPB_3DPattern> pattern, std::string file);
    void LoadEvents(C3DReport& report);

    std::unique_ptr<CQelCPB_3DPattern> pattern_;
    C3DEventData events_;
    std::string file_;
    C3DReport report_;
    bool modified_ = false;
};
