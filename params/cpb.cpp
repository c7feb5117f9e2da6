#include "params/cpb.h"

CZurCPB::CZurCPB(std::uint32_t id) : CZurRawBlock(id, InObject{storage}), CZurParamPort(this) {}

CZurCPB::CZurCPB(std::strstream* stream) : CZurCPB(CZurBlock(stream).GetID()) {}

CZurCPB::CZurCPB(const CZurCPB& other)
    : CZurRawBlock(other.GetID(), InObject{storage}), CZurParamPort(this) {
    CZurBlock::SetLength(other.GetLength());
}

CZurCPB::~CZurCPB() = default;

void CZurCPB::WritePayload(std::strstream* stream) const {
    if (const auto* composite = Held()) {
        st_paramStream record{0, 0, 0, stream};
        composite->Get(2, &record, kSizeParamStream);
    }
}

void CZurCPB::ReadPayload(std::strstream* stream) {
    if (stream == nullptr) {
        return;
    }
    // The stored length is that of the composite; the block's own stays that of its four bytes.
    SetLength(static_cast<std::uint32_t>(storage.size()));
    if (held != nullptr) {
        st_paramStream record{1, 0, 0, stream};
        held->Set(2, &record, kSizeParamStream);
    }
}

void CZurCPB::GetValue(void* target) const {
    if (target != nullptr) {
        *static_cast<CZurComposite**>(target) = Held();
    }
}

bool CZurCPB::IsEqual(const CZurRawBlock& other) const {
    if (this == &other) {
        return true;
    }
    if (dynamic_cast<const CZurCPB*>(&other) == nullptr) {
        return false;  // another kind of block would write its own unit in place of a reference
    }
    CZurComposite* mine = nullptr;
    CZurComposite* theirs = nullptr;
    GetValue(&mine);
    other.GetValue(&theirs);
    if (mine == nullptr || theirs == nullptr) {
        return mine == theirs;
    }
    return mine->IsEqual(*theirs);
}

std::unique_ptr<CZurRawBlock> CZurCPB::Clone() const {
    return std::make_unique<CZurCPB>(*this);
}

bool CZurCPB::GetParamEx(std::uint32_t id, void* value, std::uint32_t size) const {
    if (value == nullptr) {
        return false;
    }
    if (id != 50) {
        const auto* composite = Held();
        return composite == nullptr || composite->Get(id, value, size);
    }
    auto* record = FormAt<st_paramValue>(value, size, kSizeParamValue);
    if (record != nullptr) {
        GetValue(&record->reference);
    }
    return record != nullptr;
}

bool CZurCPB::SetParamEx(std::uint32_t id, void* value, std::uint32_t size) {
    if (value == nullptr) {
        return false;
    }
    if (id != 50) {
        auto* composite = Held();
        return composite == nullptr || composite->Set(id, value, size);
    }
    const auto* record = FormAt<st_paramValue>(value, size, kSizeParamValue);
    if (record != nullptr && record->reference != held.get()) {
        held.reset(record->reference);
    }
    return record != nullptr;
}

bool CZurCPB::DoParamEx(std::uint32_t id, void* value, std::uint32_t size) {
    if (id == 51) {
        held = nullptr;
        return true;
    }
    auto* composite = Held();
    return composite == nullptr || composite->Do(id, value, size);
}

CZurComposite* CZurCPB::Held() const {
    return GetLength() == storage.size() ? held.get() : nullptr;
}
