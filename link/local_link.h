#pragma once

#include <memory>

#include "link/device.h"
#include "link/smw_manager.h"
#include "platform/threads.h"
#include "platform/types.h"
#include "sequence/api.h"

/// A ready-made manager with everything behind it. Sides of all processes of this user that open
/// the same name contend for one device: while one holds it, the others ask it to give way; a
/// side whose process dies has given it up. They meet in four files for each name in the runtime
/// folder, orbix-link-HASH.main-UID, .state-UID, .release-UID and .held-UID
/// (platform/shared_state.h says what is in them), which the holder looks at every 100 ms and the
/// others as the ownership's times say. Taking a free device lasts 0.5 s by those times, sending on
/// a device already held nothing.
///
/// Open and Close belong to one thread; Manager() may be used on any.
class ORBIX_API LocalLink {
public:
    /// Nothing goes out until a device is opened.
    LocalLink();
    ~LocalLink();
    LocalLink(const LocalLink&) = delete;
    LocalLink& operator=(const LocalLink&) = delete;

    /// Closes what was open and puts `device` behind the manager, under a name that tells it
    /// from all other devices of the machine. With "" for a name the device is this object's
    /// alone, and no files are made. The caller keeps `device` alive until Close. Takes nothing
    /// yet: the first transfer does.
    void Open(const CString& name, Device& device);

    /// Takes the device from the manager after a transfer under way has ended, and gives it up.
    void Close();

    /// True while this side holds the device.
    bool IsOwned() const;

    /// The manager stays the same object for the link's life.
    CZurSMWMan& Manager() { return manager_; }
    /// While this is signalled nothing goes out.
    CEvent& BlockEvent() { return blockEvent_; }

private:
    struct Side;

    CSingleLock busyLock_;
    CEvent blockEvent_;
    CZurSMWMan manager_;
    std::unique_ptr<Side> side_;
};
