#pragma once

#include <cstdint>

#include "platform/types.h"

/// What processes of one user share through files in the user's runtime folder. The files are
/// never removed: removing one would let two processes lock two files of one name. All claims are
/// advisory locks on open files, so they end with their process, however it ends.
namespace os {

/// Opens (and makes, mode 0600) the file of that name in the runtime folder (XDG_RUNTIME_DIR,
/// else /run/user/UID, else /tmp), with the user's number in the name to keep users apart in /tmp.
/// Follows no link and takes no file of another user. A descriptor, or -1.
int OpenRuntimeFile(const CString& name);

/// An exclusive lock between processes; one object locks against every other, in this process
/// too. The caller keeps its threads apart.
class SharedLock {
public:
    explicit SharedLock(const CString& name);
    ~SharedLock();
    SharedLock(const SharedLock&) = delete;
    SharedLock& operator=(const SharedLock&) = delete;

    /// Waits without a limit. False when the file can't be used.
    bool Acquire();
    void Release();
    /// True while another object holds the lock.
    bool IsHeldElsewhere() const;

private:
    int descriptor_;
};

/// A flag between processes. It lapses when the process that raised it ends.
///
/// The file's byte 0 says who raised the flag: 0 nobody, else a place number 1 to 250. Each
/// object claims a free place for its life by a lock on the byte of that number (which need not
/// exist), so a number whose byte nobody locks is a dead one's. A lock on byte 0 covers changes.
/// The caller keeps its threads apart, but for IsRaised.
class SharedFlag {
public:
    explicit SharedFlag(const CString& name);
    ~SharedFlag();
    SharedFlag(const SharedFlag&) = delete;
    SharedFlag& operator=(const SharedFlag&) = delete;

    /// False when the file can't be used.
    bool Change(bool raised);
    bool IsRaised() const;

private:
    bool ClaimPlace();
    bool WriteRaiser(std::uint8_t place);

    int descriptor_;
    std::uint8_t place_ = 0;
};

}  // namespace os
