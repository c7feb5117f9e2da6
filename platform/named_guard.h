#pragma once

#include "platform/types.h"
#include "sequence/api.h"

/// A guard that at most one process of this user holds under one name. It is an advisory lock on
/// a file in the user's runtime folder (XDG_RUNTIME_DIR, else /run/user/UID, else /tmp), so it
/// comes free when its holder dies, however it dies. The file itself is never removed: removing
/// it would let two processes lock two files of one name.
class ORBIX_API CNamedGuard {
public:
    /// Tries to take the guard; never waits.
    explicit CNamedGuard(const CString& name);
    ~CNamedGuard();
    CNamedGuard(const CNamedGuard&) = delete;
    CNamedGuard& operator=(const CNamedGuard&) = delete;

    /// True when this object holds the guard; false when another holds it, in this process or
    /// elsewhere, or the lock file can't be made.
    bool IsHeld() const { return descriptor_ >= 0; }

private:
    int descriptor_ = -1;
};
