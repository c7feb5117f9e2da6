#include "studio/studio_settings.h"

#include <QStandardPaths>
#include <QVariant>

namespace {

constexpr const char* kRecent = "files/recent";
constexpr const char* kOutput = "device/output";
constexpr const char* kGeometry = "window/geometry";
constexpr const char* kState = "window/state";

QString SettingsFile() {
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + "/settings.ini";
}

const char* KeyOf(StudioSettings::Folder folder) {
    switch (folder) {
        case StudioSettings::Folder::csvLoad:
            return "folders/csv-load";
        case StudioSettings::Folder::csvSave:
            return "folders/csv-save";
        case StudioSettings::Folder::patterns:
            break;
    }
    return "folders/patterns";
}

}  // namespace

StudioSettings::StudioSettings() : store_(SettingsFile(), QSettings::IniFormat) {}

std::vector<std::string> StudioSettings::RecentFiles() const {
    std::vector<std::string> files;
    for (const QVariant& file : store_.value(kRecent).toList()) {
        files.push_back(file.toByteArray().toStdString());
    }
    return files;
}

void StudioSettings::NoteRecent(const std::string& file) {
    std::vector<std::string> files = RecentFiles();
    if (!files.empty() && files.front() == file) {
        return;
    }
    std::erase(files, file);
    files.insert(files.begin(), file);
    if (files.size() > kMostRecent) {
        files.resize(kMostRecent);
    }
    StoreRecent(files);
}

void StudioSettings::ForgetRecent(const std::string& file) {
    std::vector<std::string> files = RecentFiles();
    std::erase(files, file);
    StoreRecent(files);
}

void StudioSettings::StoreRecent(const std::vector<std::string>& files) {
    QVariantList list;
    for (const std::string& file : files) {
        list.append(QByteArray::fromStdString(file));
    }
    store_.setValue(kRecent, list);
    store_.sync();
}

std::string StudioSettings::LastFolder(Folder folder) const {
    return store_.value(KeyOf(folder)).toByteArray().toStdString();
}

void StudioSettings::NoteFolder(Folder folder, const std::string& path) {
    if (path != LastFolder(folder)) {
        store_.setValue(KeyOf(folder), QByteArray::fromStdString(path));
        store_.sync();
    }
}

std::string StudioSettings::Output() const {
    return store_.value(kOutput).toByteArray().toStdString();
}

void StudioSettings::NoteOutput(const std::string& line) {
    store_.setValue(kOutput, QByteArray::fromStdString(line));
    store_.sync();
}

QByteArray StudioSettings::WindowGeometry() const {
    return store_.value(kGeometry).toByteArray();
}

QByteArray StudioSettings::WindowState() const {
    return store_.value(kState).toByteArray();
}

void StudioSettings::NoteWindow(const QByteArray& geometry, const QByteArray& state) {
    store_.setValue(kGeometry, geometry);
    store_.setValue(kState, state);
    store_.sync();
}
