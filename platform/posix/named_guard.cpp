#include "platform/named_guard.h"

#include <sys/file.h>
#include <unistd.h>

#include "platform/shared_state.h"

CNamedGuard::CNamedGuard(const CString& name) : descriptor_(os::OpenRuntimeFile(name)) {
    if (descriptor_ >= 0 && ::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
        ::close(descriptor_);
        descriptor_ = -1;
    }
}

CNamedGuard::~CNamedGuard() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}
