#include "link/device_ownership.h"

#include "platform/hooks.h"

namespace {

constexpr DWORD kHeldWaitMilliseconds = 250;
constexpr DWORD kReleaseLimitMilliseconds = 10'000;

void WaitUntilFree(const CSingleLock& lock) {
    while (lock.IsLocked()) {
        Sleep(1);
    }
}

}  // namespace

bool CDeviceOwnership::HasAllParts() const {
    return mainLock_ != nullptr && stateLock_ != nullptr && releaseEvent_ != nullptr &&
           heldEvent_ != nullptr;
}

bool CDeviceOwnership::IsHeldByAnyone() const {
    return WaitForSingleObject(*heldEvent_, kHeldWaitMilliseconds) != WAIT_TIMEOUT;
}

bool CDeviceOwnership::Acquire() {
    if (!HasAllParts()) {
        return false;
    }
    WaitUntilFree(*mainLock_);
    if (!mainLock_->Lock()) {
        return false;
    }
    const bool acquired = AcquireLocked();
    mainLock_->Unlock();
    return acquired;
}

bool CDeviceOwnership::AcquireLocked() {
    if (IsOwned()) {
        return true;
    }
    if (!RequestRelease() || IsOwned() || IsHeldByAnyone()) {
        return false;
    }
    return MarkHeld() && StartWatch();
}

bool CDeviceOwnership::MarkHeld() {
    if (!stateLock_->Lock()) {
        return false;
    }
    if (onAcquire_ != nullptr) {
        onAcquire_(context_);
    }
    owned_ = 1;
    const bool marked = heldEvent_->SetEvent() && releaseEvent_->ResetEvent();
    stateLock_->Unlock();
    if (!marked) {
        Drop();
    }
    return marked;
}

bool CDeviceOwnership::StartWatch() {
    releasesAtAcquire_ = mainLock_->ReleaseCount();
    ++watchers_;
    if (!AfxBeginThread(&CDeviceOwnership::RunWatch, this)) {
        // Held without anybody to answer a request, the device would be out of reach for others
        // until their time-out.
        --watchers_;
        Drop();
        return false;
    }
    WaitForSingleObject(*heldEvent_, INFINITE);
    return true;
}

void CDeviceOwnership::Drop() {
    if (onRelease_ != nullptr) {
        onRelease_(context_);
    }
    owned_ = 0;
    heldEvent_->ResetEvent();
}

bool CDeviceOwnership::RequestRelease() {
    if (!HasAllParts() || !stateLock_->Lock()) {
        return true;
    }
    if (IsOwned() || IsHeldByAnyone()) {
        releaseEvent_->SetEvent();
        WaitReleased();
    }
    stateLock_->Unlock();
    return true;
}

void CDeviceOwnership::WaitReleased() {
    const CWaitCursor waitCursor;
    const DWORD start = GetTickCount();
    while (IsOwned() || IsHeldByAnyone()) {
        if (GetTickCount() - start >= kReleaseLimitMilliseconds) {
            // Nobody answers: from here on the device counts as free.
            heldEvent_->ResetEvent();
            return;
        }
        Sleep(kHeldWaitMilliseconds);
    }
}

void CDeviceOwnership::GiveUp() {
    if (!HasAllParts() || !mainLock_->Lock()) {
        return;
    }
    if (IsOwned()) {
        releaseEvent_->SetEvent();
    }
    while (watchers_ != 0) {
        Sleep(1);
    }
    releaseEvent_->ResetEvent();
    mainLock_->Unlock();
}

std::uint32_t CDeviceOwnership::OwnerWatch(void* ownership) {
    auto& self = *static_cast<CDeviceOwnership*>(ownership);
    if (!self.HasAllParts()) {
        return 0;
    }
    while (self.mainLock_->IsLocked() &&
           self.mainLock_->ReleaseCount() == self.releasesAtAcquire_) {
        Sleep(0);
    }
    WaitForSingleObject(*self.releaseEvent_, INFINITE);
    self.Drop();
    return 0;
}

// GiveUp must know when the thread has done with the ownership.
std::uint32_t CDeviceOwnership::RunWatch(void* ownership) {
    const std::uint32_t result = OwnerWatch(ownership);
    --static_cast<CDeviceOwnership*>(ownership)->watchers_;
    return result;
}
