#include "link/smw_manager.h"

#include "platform/hooks.h"

CBusyGuard::CBusyGuard(CSingleLock& lock, std::atomic<std::uint8_t>& flag)
    : lock_(lock), flag_(flag), taken_(!lock.IsLockedByThisThread() && lock.Lock()) {
    if (taken_) {
        flag_ = 1;
    }
}

CBusyGuard::~CBusyGuard() {
    if (taken_) {
        flag_ = 0;
        lock_.Unlock();
    }
}

bool CZurSMWMan::IsRefusing() const {
    return IsClosed() || device_ == nullptr || busyLock_ == nullptr;
}

std::int32_t CZurSMWMan::SendData(const void* data, std::uint32_t length) {
    const std::int32_t result = SendBlock(data, length);
    if (observer_) {
        observer_(data, length, result);
    }
    return result;
}

std::int32_t CZurSMWMan::SendBlock(const void* data, std::uint32_t length) {
    if (IsRefusing()) {
        return -1;
    }
    const CBusyGuard guard(*busyLock_, busy_);
    if (!EnsureOwned() || !PrepareDevice(1)) {
        return -1;
    }
    return device_.load()->WriteBlock(data, length);
}

bool CZurSMWMan::PrepareDevice(std::uint32_t value) {
    if (IsRefusing()) {
        return false;
    }
    const CBusyGuard guard(*busyLock_, busy_);
    // Another device may have been attached, or none, while the lock was waited for.
    Device* const device = device_;
    return EnsureOwned() && device != nullptr && device->PrepareOutput(value);
}

bool CZurSMWMan::EnsureOwned() {
    CDeviceOwnership* const owner = owner_;
    if (owner == nullptr) {
        return false;
    }
    if (blockEvent_ != nullptr && WaitForSingleObject(*blockEvent_, 0) != WAIT_TIMEOUT) {
        return false;
    }
    if (busy_ == 0 && busyLock_ != nullptr) {
        while (busyLock_->IsLocked()) {
            Sleep(1);
        }
    }
    return owner->Acquire();
}

void CZurSMWMan::Attach(CDeviceOwnership* owner, Device* device) {
    if (busyLock_ == nullptr) {
        return;
    }
    const CBusyGuard guard(*busyLock_, busy_);
    owner_ = owner;
    device_ = device;
}
