#include "studio/device_link.h"

DeviceLink::DeviceLink() {
    Manager().SetObserver([this](const void* data, std::uint32_t length, std::int32_t result) {
        Tell(data, length, result);
    });
}

DeviceLink::~DeviceLink() {
    link_.Close();
}

void DeviceLink::Choose(const std::optional<OutputChoice>& choice) {
    link_.Close();
    device_.reset();
    choice_ = choice;
    if (!choice) {
        return;
    }
    device_ = MakeDevice(*choice);
    link_.Open(LinkName(*choice), *device_);
    if (choice->kind == OutputChoice::Kind::ownPort) {
        Manager().PrepareDevice(1);
    }
}

void DeviceLink::Tell(const void* data, std::uint32_t length, std::int32_t result) const {
    if (!onSent) {
        return;
    }
    Sent sent;
    sent.bytes.assign(static_cast<const char*>(data), length);
    sent.taken = result == static_cast<std::int32_t>(length);
    if (!sent.taken) {
        const CString words = device_ == nullptr ? "no device is chosen" : device_->FailureText();
        sent.reason = words.empty() ? "another program holds the device" : words;
    }
    onSent(sent);
}
