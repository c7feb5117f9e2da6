#include "params/param_port.h"

namespace {

bool GetBytes(const CZurRawBlock& owner, const st_paramBytes* bytes) {
    if (bytes == nullptr) {
        return false;
    }
    owner.GetData(bytes->data, bytes->count);
    return true;
}

bool SetBytes(CZurRawBlock& owner, const st_paramBytes* bytes) {
    if (bytes == nullptr) {
        return false;
    }
    owner.SetData(bytes->data, bytes->count);
    return true;
}

bool GetNumber(st_paramValue* record, std::uint32_t number) {
    if (record == nullptr) {
        return false;
    }
    record->value = number;
    return true;
}

}  // namespace

CZurParamPort::~CZurParamPort() {
    if (owned) {
        delete owner;
    }
}

bool CZurParamPort::GetParam(std::uint32_t id, void* value, std::uint32_t size) const {
    if (owner == nullptr) {
        return false;
    }
    switch (id) {
        case 0:
            return GetNumber(FormAt<st_paramValue>(value, size, kSizeParamValue), owner->GetID());
        case 1:
            return GetNumber(FormAt<st_paramValue>(value, size, kSizeParamValue),
                             owner->GetLength());
        case 2:
            return GetBytes(*owner, FormAt<st_paramBytes>(value, size, kSizeParamBytes));
        case 3:
            if (auto* record = FormAt<st_paramStream>(value, size, kSizeParamStream)) {
                owner->Write(record->stream);
                return true;
            }
            return false;
        case 4:
            if (auto* list = FormAt<t_paramIdList>(value, size, kSizeIdList)) {
                EnumParams(*list);
                return true;
            }
            return false;
        default:
            return GetParamEx(id, value, size);
    }
}

bool CZurParamPort::SetParam(std::uint32_t id, void* value, std::uint32_t size) {
    if (owner == nullptr) {
        return false;
    }
    const auto* number = FormAt<st_paramValue>(value, size, kSizeParamValue);
    switch (id) {
        case 0:
            if (number != nullptr) {
                owner->SetID(number->value);
            }
            return number != nullptr;
        case 1:
            if (number != nullptr) {
                owner->SetLength(number->value);
            }
            return number != nullptr;
        case 2:
            return SetBytes(*owner, FormAt<st_paramBytes>(value, size, kSizeParamBytes));
        case 3:
            if (auto* record = FormAt<st_paramStream>(value, size, kSizeParamStream)) {
                owner->Read(record->stream, true);
                return true;
            }
            return false;
        default:
            return SetParamEx(id, value, size);
    }
}

bool CZurParamPort::DoParam(std::uint32_t id, void* value, std::uint32_t size) {
    return DoParamEx(id, value, size);
}

bool CZurParamPort::GetParamEx(std::uint32_t /*id*/, void* /*value*/,
                               std::uint32_t /*size*/) const {
    return false;
}

bool CZurParamPort::SetParamEx(std::uint32_t /*id*/, void* /*value*/, std::uint32_t /*size*/) {
    return false;
}

bool CZurParamPort::DoParamEx(std::uint32_t /*id*/, void* /*value*/, std::uint32_t /*size*/) {
    return false;
}

void CZurParamPort::EnumParams(t_paramIdList& list) const {
    for (std::uint32_t id = GetFirstParam(); id < GetParamLimit(); ++id) {
        list.push_back(id);
    }
}

std::uint32_t CZurParamPort::GetFirstParam() const {
    return 0;
}

std::uint32_t CZurParamPort::GetParamLimit() const {
    return 5;
}
