#include "platform/qt/peer.h"

#include "platform/native.h"

namespace toolkit {

PeerBase::~PeerBase() {
    if (record_ != nullptr) {
        record_->peer = nullptr;
        record_->widget = nullptr;
    }
}

void PeerBase::NotifyCommand(UINT code) {
    if (record_ != nullptr) {
        CallOut([&] { dispatch::Command(record_, code); });
    }
}

}  // namespace toolkit
