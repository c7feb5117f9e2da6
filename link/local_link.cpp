#include "link/local_link.h"

#include <cstdio>
#include <mutex>

namespace {

/// Lets data through to a device only between acquiring and release. Another side may be given
/// the device while this side's thread is on its way to write: then nothing is written, and a
/// write that has begun ends before the release is told.
class OwnedDevice : public Device {
public:
    explicit OwnedDevice(Device& device) : device_(device) {}

    bool PrepareOutput(std::uint32_t value) override {
        const std::lock_guard guard(mutex_);
        return held_ && device_.PrepareOutput(value);
    }

    std::int32_t WriteBlock(const void* data, std::uint32_t length) override {
        const std::lock_guard guard(mutex_);
        return held_ ? device_.WriteBlock(data, length) : -1;
    }

    static void OnAcquire(void* self) { static_cast<OwnedDevice*>(self)->SetHeld(true); }
    static void OnRelease(void* self) { static_cast<OwnedDevice*>(self)->SetHeld(false); }

private:
    // The device is closed for the next holder: a node opens for one process at a time.
    void SetHeld(bool held) {
        const std::lock_guard guard(mutex_);
        held_ = held;
        if (!held) {
            device_.PrepareOutput(0);
        }
    }

    std::mutex mutex_;
    Device& device_;
    bool held_ = false;
};

// A device's name may hold anything and be of any length; its 64-bit FNV-1a hash is a file name.
// No name has none.
CString FileStem(const CString& name) {
    if (name.empty()) {
        return {};
    }
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char letter : name) {
        hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001B3U;
    }
    char stem[32];
    std::snprintf(stem, sizeof stem, "orbix-link-%016llx", static_cast<unsigned long long>(hash));
    return stem;
}

// A lock or an event of a side, shared with the sides of other processes when it has a name.
template <typename Part>
Part PartOf(const CString& stem, const char* extension) {
    if (stem.empty()) {
        return Part();
    }
    return Part(stem + extension);
}

}  // namespace

struct LocalLink::Side {
    Side(const CString& stem, Device& target)
        : mainLock(PartOf<CSingleLock>(stem, ".main")),
          stateLock(PartOf<CSingleLock>(stem, ".state")),
          releaseEvent(PartOf<CEvent>(stem, ".release")),
          heldEvent(PartOf<CEvent>(stem, ".held")),
          device(target),
          ownership(&mainLock, &stateLock, &releaseEvent, &heldEvent, &OwnedDevice::OnAcquire,
                    &OwnedDevice::OnRelease, &device) {}

    CSingleLock mainLock;
    CSingleLock stateLock;
    CEvent releaseEvent;
    CEvent heldEvent;
    OwnedDevice device;
    CDeviceOwnership ownership;
};

LocalLink::LocalLink() : manager_(nullptr, nullptr, &blockEvent_, &busyLock_) {}

LocalLink::~LocalLink() {
    Close();
}

void LocalLink::Open(const CString& name, Device& device) {
    Close();
    side_ = std::make_unique<Side>(FileStem(name), device);
    manager_.Attach(&side_->ownership, &side_->device);
}

void LocalLink::Close() {
    if (side_ != nullptr) {
        manager_.Attach(nullptr, nullptr);
        side_->ownership.GiveUp();
        side_.reset();
    }
}

bool LocalLink::IsOwned() const {
    return side_ != nullptr && side_->ownership.IsOwned();
}
