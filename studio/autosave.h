#pragma once

#include <QLockFile>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Autosaves: each running program keeps its unsaved work in a pattern file of its own, in the
/// user's folder for this program's data and never where documents are. One autosave is
///
///     ID.3dp      the work, a whole pattern file
///     ID.origin   the path of the document it belongs to, nothing for one that was never saved
///     ID.lock     held while the program lives
///
/// so that an autosave whose lock is free belongs to a program that crashed. Main thread.

/// $XDG_DATA_HOME/orbix-studio/autosave; need not be there.
std::string AutosaveFolder();

/// The autosave of this program. Makes nothing before the first Keep. Its end leaves the work in
/// place: only Drop says that nobody needs it any more.
class AutosaveSlot {
public:
    explicit AutosaveSlot(std::string folder);

    /// Brings the work to the disk, whole or not at all, if it isn't there already. False with
    /// `reason` on failure; what was kept before then stays, unless it was of another origin.
    bool Keep(const std::string& origin, std::string_view bytes, std::string& reason);
    /// Takes the work away.
    void Drop();

private:
    bool Take(std::string& reason);
    bool NoteOrigin(const std::string& origin, std::string& reason);

    std::string folder_;
    std::string base_;  // path without extension
    std::unique_ptr<QLockFile> lock_;
    bool keeping_ = false;
    std::string origin_;
    std::string bytes_;
};

/// An autosave that a crash has left. It can't be found again while this object lives.
class CrashedAutosave {
public:
    CrashedAutosave(std::string base, std::unique_ptr<QLockFile> lock);

    /// The document's path; "" when it was never saved.
    const std::string& Origin() const { return origin_; }
    std::string File() const;
    /// Takes it away.
    void Remove();
    /// Puts a file that can't be read out of the way, under another name; gives its
    /// name, the old one where that can't be done.
    std::string SetAside();

private:
    std::string base_;
    std::unique_ptr<QLockFile> lock_;
    std::string origin_;
};

/// All that crashes have left in a folder, the newest first. Clears away what is left of programs
/// that had no unsaved work.
std::vector<CrashedAutosave> FindCrashedAutosaves(const std::string& folder);
