#include "platform/threads.h"

#include <algorithm>
#include <chrono>
#include <system_error>

#include "platform/hooks.h"
#include "platform/shared_state.h"

namespace {

constexpr DWORD kBoundedRestMilliseconds = 10;
// Another process can't wake us. A side that asks for a device looks again every 250 ms, so an
// answer within 100 is mostly there at its second look, and the waiting costs next to nothing.
constexpr auto kSharedPoll = std::chrono::milliseconds(100);

}  // namespace

CSingleLock::CSingleLock() = default;

CSingleLock::CSingleLock(const CString& name) : shared_(std::make_unique<os::SharedLock>(name)) {}

CSingleLock::~CSingleLock() = default;

bool CSingleLock::Lock() {
    {
        std::unique_lock guard(mutex_);
        released_.wait(guard, [this] { return !locked_; });
        locked_ = true;
        holder_ = std::this_thread::get_id();
    }
    // The threads of this process are kept apart by now; the mutex stays free while other
    // processes are waited for, so that the lock's state can be asked.
    if (shared_ == nullptr || shared_->Acquire()) {
        return true;
    }
    const std::lock_guard guard(mutex_);
    locked_ = false;
    released_.notify_one();
    return false;
}

bool CSingleLock::Unlock() {
    const std::lock_guard guard(mutex_);
    if (!locked_) {
        return false;
    }
    if (shared_ != nullptr) {
        shared_->Release();
    }
    locked_ = false;
    ++releaseCount_;
    released_.notify_one();
    return true;
}

bool CSingleLock::IsLocked() const {
    const std::lock_guard guard(mutex_);
    return locked_ || (shared_ != nullptr && shared_->IsHeldElsewhere());
}

bool CSingleLock::IsLockedByThisThread() const {
    const std::lock_guard guard(mutex_);
    return locked_ && holder_ == std::this_thread::get_id();
}

std::uint32_t CSingleLock::ReleaseCount() const {
    const std::lock_guard guard(mutex_);
    return releaseCount_;
}

CEvent::CEvent() = default;

CEvent::CEvent(const CString& name) : shared_(std::make_unique<os::SharedFlag>(name)) {}

CEvent::~CEvent() = default;

bool CEvent::SetEvent() {
    return Change(true);
}

bool CEvent::ResetEvent() {
    return Change(false);
}

bool CEvent::Change(bool signalled) {
    const std::lock_guard guard(mutex_);
    if (shared_ != nullptr && !shared_->Change(signalled)) {
        return false;
    }
    signalled_ = signalled;
    changed_.notify_all();
    return true;
}

bool CEvent::IsSignalled() const {
    const std::lock_guard guard(mutex_);
    return IsSignalledLocked();
}

bool CEvent::IsSignalledLocked() const {
    return shared_ != nullptr ? shared_->IsRaised() : signalled_;
}

void CEvent::WaitSignalled() const {
    std::unique_lock guard(mutex_);
    const auto signalled = [this] { return IsSignalledLocked(); };
    if (shared_ == nullptr) {
        changed_.wait(guard, signalled);
        return;
    }
    while (!changed_.wait_for(guard, kSharedPoll, signalled)) {
    }
}

DWORD WaitForSingleObject(const CEvent& event, DWORD milliseconds) {
    if (milliseconds == INFINITE) {
        event.WaitSignalled();
        return WAIT_OBJECT_0;
    }
    const DWORD start = GetTickCount();
    while (!event.IsSignalled()) {
        const DWORD elapsed = GetTickCount() - start;
        if (elapsed >= milliseconds) {
            return WAIT_TIMEOUT;
        }
        Sleep(std::min(milliseconds - elapsed, kBoundedRestMilliseconds));
    }
    return WAIT_OBJECT_0;
}

bool AfxBeginThread(AFX_THREADPROC procedure, void* parameter) {
    try {
        std::thread(procedure, parameter).detach();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}
