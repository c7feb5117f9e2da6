#pragma once

#include <atomic>
#include <cstdint>

#include "platform/threads.h"
#include "sequence/api.h"

/// One side's claim to a device that only one holder at a time may talk to. Locks and events are
/// named ones where sides live in several processes; they belong to the host, as does the
/// context, and must outlive the ownership. A side that holds the device has one watching thread,
/// which gives it up when another side asks. Any thread.
class ORBIX_API CDeviceOwnership {
public:
    using Callback = void (*)(void* context);

    /// `onAcquire` is called under the state lock on the thread that acquires, `onRelease` on the
    /// watching thread with no lock held; both may be null.
    CDeviceOwnership(CSingleLock* mainLock, CSingleLock* stateLock, CEvent* releaseEvent,
                     CEvent* heldEvent, Callback onAcquire, Callback onRelease, void* context)
        : mainLock_(mainLock),
          stateLock_(stateLock),
          releaseEvent_(releaseEvent),
          heldEvent_(heldEvent),
          onAcquire_(onAcquire),
          onRelease_(onRelease),
          context_(context) {}
    CDeviceOwnership(const CDeviceOwnership&) = delete;
    CDeviceOwnership& operator=(const CDeviceOwnership&) = delete;

    /// Makes this side the holder; true at once when it is already. Asks another holder to give
    /// way and waits for it; one that doesn't answer for ten seconds counts as gone.
    bool Acquire();

    /// Asks whoever holds the device, this side too, to give it up and waits for that, at most
    /// ten seconds. True also when nobody holds it. Never while the caller holds the state lock.
    bool RequestRelease();

    /// Gives the device up if this side holds it, and comes back when the watching thread has
    /// ended. Another side's hold is left alone. Call it before the ownership is destroyed.
    void GiveUp();

    bool IsOwned() const { return owned_ != 0; }

    /// The watching thread's procedure, `ownership` a CDeviceOwnership: once the main lock has
    /// been free, waits for a request without a limit and gives the device up. Always 0, at once
    /// when a lock or an event is missing.
    static std::uint32_t OwnerWatch(void* ownership);

private:
    bool HasAllParts() const;
    bool AcquireLocked();
    bool MarkHeld();
    bool StartWatch();
    void WaitReleased();
    bool IsHeldByAnyone() const;
    void Drop();
    static std::uint32_t RunWatch(void* ownership);

    CSingleLock* mainLock_;
    CSingleLock* stateLock_;
    CEvent* releaseEvent_;
    CEvent* heldEvent_;
    std::atomic<std::uint8_t> owned_ = 0;
    Callback onAcquire_;
    Callback onRelease_;
    void* context_;
    // How often the main lock had been let go when this side acquired. The watching thread waits
    // for a moment with the main lock free; with this it can't miss that moment when another
    // side takes the lock at once, and would otherwise wait until that side gives up on it.
    std::atomic<std::uint32_t> releasesAtAcquire_ = 0;
    std::atomic<std::uint32_t> watchers_ = 0;
};
