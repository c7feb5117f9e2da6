#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/types.h"
#include "sequence/api.h"

/// Locks, events and threads. All bounded waits run on the clock of the hooks, so that a made-up
/// clock carries them; waits without a limit are real ones. A lock or event with a name is shared
/// by all objects of that name in all processes of this user, and comes free by itself when the
/// process that locked or signalled it dies. Names are file names: letters, digits, '-' and '.'.

inline constexpr DWORD INFINITE = 0xFFFFFFFF;
inline constexpr DWORD WAIT_OBJECT_0 = 0;
inline constexpr DWORD WAIT_TIMEOUT = 258;

namespace os {
class SharedLock;
class SharedFlag;
}  // namespace os

/// A lock that everybody can see is held. Not recursive. Any thread.
class ORBIX_API CSingleLock {
public:
    CSingleLock();
    explicit CSingleLock(const CString& name);
    ~CSingleLock();
    CSingleLock(const CSingleLock&) = delete;
    CSingleLock& operator=(const CSingleLock&) = delete;

    /// Waits without a limit and takes the lock. False when a named lock's file can't be used.
    bool Lock();
    /// Lets the lock go, from any thread. False when it was not locked through this object.
    bool Unlock();

    /// True while anyone holds the lock, here or in another process.
    bool IsLocked() const;
    /// True while it was this thread that locked it, through this object.
    bool IsLockedByThisThread() const;
    /// How often the lock was let go through this object, wrapping.
    std::uint32_t ReleaseCount() const;

private:
    mutable std::mutex mutex_;
    std::condition_variable released_;
    bool locked_ = false;
    std::thread::id holder_;
    std::uint32_t releaseCount_ = 0;
    std::unique_ptr<os::SharedLock> shared_;
};

/// A flag to wait for, which stays signalled until it is reset. Begins unsignalled. Any thread.
class ORBIX_API CEvent {
public:
    CEvent();
    explicit CEvent(const CString& name);
    ~CEvent();
    CEvent(const CEvent&) = delete;
    CEvent& operator=(const CEvent&) = delete;

    /// Both are false when a named event's file can't be used.
    bool SetEvent();
    bool ResetEvent();
    bool IsSignalled() const;

private:
    friend ORBIX_API DWORD WaitForSingleObject(const CEvent& event, DWORD milliseconds);
    bool Change(bool signalled);
    bool IsSignalledLocked() const;
    void WaitSignalled() const;

    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    bool signalled_ = false;
    std::unique_ptr<os::SharedFlag> shared_;
};

/// Waits until `event` is signalled: WAIT_OBJECT_0, or WAIT_TIMEOUT after `milliseconds`. 0 only
/// looks, INFINITE waits without a limit.
ORBIX_API DWORD WaitForSingleObject(const CEvent& event, DWORD milliseconds);

using AFX_THREADPROC = std::uint32_t (*)(void* parameter);

/// Runs `procedure` with `parameter` on a thread of its own that nobody joins; false when no
/// thread can be had.
ORBIX_API bool AfxBeginThread(AFX_THREADPROC procedure, void* parameter);
