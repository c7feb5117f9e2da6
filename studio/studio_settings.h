#pragma once

#include <QByteArray>
#include <QSettings>
#include <string>
#include <vector>

/// What the program remembers from one session to the next, in `settings.ini` in the user's folder
/// for this program's configuration ($XDG_CONFIG_HOME/orbix-studio). Every change is on the disk
/// when the call returns. Paths are kept byte for byte. Main thread.
class StudioSettings {
public:
    StudioSettings();

    /// Newest first, at most kMostRecent.
    std::vector<std::string> RecentFiles() const;
    void NoteRecent(const std::string& file);
    void ForgetRecent(const std::string& file);

    /// Where the question for a file starts; "" the first time.
    enum class Folder { patterns, csvLoad, csvSave };
    std::string LastFolder(Folder folder) const;
    void NoteFolder(Folder folder, const std::string& path);

    /// What the editor sends to, as a line of TextOf (ports/output_choice.h); "" for nothing.
    std::string Output() const;
    void NoteOutput(const std::string& line);

    QByteArray WindowGeometry() const;
    QByteArray WindowState() const;
    void NoteWindow(const QByteArray& geometry, const QByteArray& state);

    static constexpr std::size_t kMostRecent = 8;

private:
    void StoreRecent(const std::vector<std::string>& files);

    QSettings store_;
};
