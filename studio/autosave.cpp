#include "studio/autosave.h"

#include <QDateTime>
#include <QDir>
#include <QStandardPaths>
#include <QUuid>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "platform/files.h"

namespace {

constexpr const char* kWork = ".3dp";
constexpr const char* kOrigin = ".origin";
constexpr const char* kLock = ".lock";
constexpr const char* kAside = ".damaged";
constexpr int kOldSeconds = 3600;

// A lock never grows stale by its age; the lock of a process that is gone does.
std::unique_ptr<QLockFile> TryLock(const std::string& base) {
    auto lock = std::make_unique<QLockFile>(QString::fromStdString(base + kLock));
    lock->setStaleLockTime(0);
    return lock->tryLock(0) ? std::move(lock) : nullptr;
}

void RemoveFile(const std::string& file) {
    std::error_code gone;
    std::filesystem::remove(file, gone);
}

bool Exists(const std::string& file) {
    std::error_code error;
    return std::filesystem::exists(file, error);
}

// Half-written files of a crash in the middle of a write; a younger one may be in work.
void ClearTemporaries(const QDir& folder) {
    const QDateTime old = QDateTime::currentDateTime().addSecs(-kOldSeconds);
    for (const QFileInfo& entry : folder.entryInfoList({".orbix-*"}, QDir::Files | QDir::Hidden)) {
        if (entry.lastModified() < old) {
            RemoveFile(entry.filePath().toStdString());
        }
    }
}

}  // namespace

std::string AutosaveFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString() +
           "/autosave";
}

AutosaveSlot::AutosaveSlot(std::string folder) : folder_(std::move(folder)) {}

bool AutosaveSlot::Take(std::string& reason) {
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    std::filesystem::permissions(folder_, std::filesystem::perms::owner_all, error);
    base_ = folder_ + "/" + QUuid::createUuid().toString(QUuid::Id128).toStdString();
    lock_ = TryLock(base_);
    if (lock_ == nullptr) {
        reason = folder_ + ": cannot be written" + (error ? ": " + error.message() : "");
    }
    return lock_ != nullptr;
}

// The origin changes only where no work is kept, so that the two always belong together.
bool AutosaveSlot::NoteOrigin(const std::string& origin, std::string& reason) {
    if (keeping_ && origin == origin_) {
        return true;
    }
    Drop();
    origin_ = origin;
    return WriteFileCommitted(base_ + kOrigin, origin, &reason);
}

bool AutosaveSlot::Keep(const std::string& origin, std::string_view bytes, std::string& reason) {
    if (keeping_ && origin == origin_ && bytes == bytes_) {
        return true;
    }
    if ((lock_ == nullptr && !Take(reason)) || !NoteOrigin(origin, reason) ||
        !WriteFileCommitted(base_ + kWork, bytes, &reason)) {
        return false;
    }
    keeping_ = true;
    bytes_ = bytes;
    return true;
}

void AutosaveSlot::Drop() {
    if (std::exchange(keeping_, false)) {
        RemoveFile(base_ + kWork);
        RemoveFile(base_ + kOrigin);
    }
}

CrashedAutosave::CrashedAutosave(std::string base, std::unique_ptr<QLockFile> lock)
    : base_(std::move(base)),
      lock_(std::move(lock)),
      origin_(ReadWholeFile(base_ + kOrigin).value_or("")) {}

std::string CrashedAutosave::File() const {
    return base_ + kWork;
}

void CrashedAutosave::Remove() {
    RemoveFile(base_ + kWork);
    RemoveFile(base_ + kOrigin);
}

std::string CrashedAutosave::SetAside() {
    const std::string aside = File() + kAside;
    return std::rename(File().c_str(), aside.c_str()) == 0 ? aside : File();
}

std::vector<CrashedAutosave> FindCrashedAutosaves(const std::string& folder) {
    const QDir place(QString::fromStdString(folder));
    ClearTemporaries(place);
    std::vector<CrashedAutosave> found;
    // First the works, by their times, then what is left without one.
    QStringList names = place.entryList({QString("*") + kWork}, QDir::Files, QDir::Time);
    names += place.entryList({QString("*") + kOrigin, QString("*") + kLock}, QDir::Files);
    for (const QString& name : names) {
        const std::string base = place.filePath(name.section('.', 0, 0)).toStdString();
        std::unique_ptr<QLockFile> lock = TryLock(base);
        if (lock == nullptr) {
            continue;  // of a program that runs, or one that is found already
        }
        CrashedAutosave crashed(base, std::move(lock));
        if (Exists(crashed.File())) {
            found.push_back(std::move(crashed));
        } else {
            crashed.Remove();
        }
    }
    return found;
}
