#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <utility>

#include "link/device.h"
#include "link/device_ownership.h"
#include "platform/threads.h"
#include "sequence/api.h"

/// Holds a manager's busy lock for a scope. On a thread that holds the lock already it does
/// nothing, neither now nor on leaving; another thread's hold is waited for without a limit.
class ORBIX_API CBusyGuard {
public:
    /// Takes `lock` and sets `flag` to 1, unless this thread holds the lock already.
    CBusyGuard(CSingleLock& lock, std::atomic<std::uint8_t>& flag);
    /// Sets the flag to 0 and unlocks, if this guard took the lock.
    ~CBusyGuard();
    CBusyGuard(const CBusyGuard&) = delete;
    CBusyGuard& operator=(const CBusyGuard&) = delete;

private:
    CSingleLock& lock_;
    std::atomic<std::uint8_t>& flag_;
    bool taken_;
};

/// The way from the editor to the device. The host makes one (LocalLink makes it with all it
/// needs), hands it out by reference and keeps it alive. It owns nothing of what it points to.
/// Any thread; locks are taken in the order busy, main, state.
class ORBIX_API CZurSMWMan {
public:
    /// A manager with nothing behind it: refuses everything.
    CZurSMWMan() : CZurSMWMan(nullptr, nullptr, nullptr, nullptr) {}
    /// Without an owner, a device and a busy lock nothing goes out; the block event may be null.
    CZurSMWMan(CDeviceOwnership* owner, Device* device, CEvent* blockEvent, CSingleLock* busyLock)
        : owner_(owner), device_(device), blockEvent_(blockEvent), busyLock_(busyLock) {}
    CZurSMWMan(const CZurSMWMan&) = delete;
    CZurSMWMan& operator=(const CZurSMWMan&) = delete;

    /// Takes the device, prepares it and gives it `length` bytes. The result of WriteBlock, or -1
    /// when it did not come to that. May wait more than ten seconds for another holder.
    std::int32_t SendData(const void* data, std::uint32_t length);

    /// Is told of every SendData, after it, on its thread: the data and the result. Set it before
    /// anybody sends.
    using Observer =
        std::function<void(const void* data, std::uint32_t length, std::int32_t result)>;
    void SetObserver(Observer observer) { observer_ = std::move(observer); }

    /// Takes the device and has it make ready; false when either failed.
    bool PrepareDevice(std::uint32_t value);

    /// Makes this side the device's holder if it isn't yet. False without an owner, while the
    /// block event is signalled, or when another holder doesn't give the device up. The other
    /// operations call it under the busy lock; a call from outside must not meet an Attach.
    bool EnsureOwned();

    /// Changes owner and device (null: none) after a transfer under way has ended.
    void Attach(CDeviceOwnership* owner, Device* device);

    /// Refuses everything from now on.
    void Close() { closed_ = 1; }
    bool IsClosed() const { return closed_ != 0; }

private:
    bool IsRefusing() const;
    std::int32_t SendBlock(const void* data, std::uint32_t length);

    std::atomic<CDeviceOwnership*> owner_;
    std::atomic<Device*> device_;
    CEvent* blockEvent_;
    std::atomic<std::uint8_t> closed_ = 0;
    CSingleLock* busyLock_;
    std::atomic<std::uint8_t> busy_ = 0;
    Observer observer_;
};
