#include "params/composite.h"

#include <utility>

namespace {

bool PutNumber(void* value, std::uint32_t size, std::uint32_t number) {
    auto* record = FormAt<st_paramValue>(value, size, kSizeParamValue);
    if (record == nullptr) {
        return false;
    }
    record->value = number;
    return true;
}

void AppendRange(t_paramIdList& list, std::uint32_t first, std::uint32_t limit) {
    for (std::uint32_t id = first; id < limit; ++id) {
        list.push_back(id);
    }
}

bool CountChildren(const CZurComposite& composite, st_paramValue* record) {
    if (record == nullptr) {
        return false;
    }
    record->value = static_cast<std::uint32_t>(
        record->selector == -1 ? composite.Count()
                               : composite.CountOf(static_cast<std::uint32_t>(record->selector)));
    return true;
}

bool FindChildFor(const CZurComposite& composite, st_paramChild* record) {
    CZurRawBlock* child =
        record == nullptr ? nullptr : composite.FindChild(record->id, record->index);
    if (child == nullptr) {
        return false;
    }
    record->block = child;
    return true;
}

CZurRawBlock* ChildOf(const CZurComposite& composite, const st_paramData* record) {
    return record == nullptr ? nullptr : composite.FindChild(record->id, record->index);
}

}  // namespace

CZurComposite::CZurComposite(std::uint32_t id, std::uint32_t tableCount)
    : CZurBlockVector(id), CZurIndexTable(tableCount) {}

CZurComposite::CZurComposite(const CZurComposite& other) = default;

CZurComposite& CZurComposite::operator=(const CZurComposite& other) {
    if (this != &other && GetID() == other.GetID()) {
        RemoveAll();
        CopyChildren(other);
    }
    return *this;
}

CZurComposite::~CZurComposite() = default;

void CZurComposite::ReadPayload(std::strstream* stream) {
    ReadChildren(stream, ReadStoredWord(stream));
}

bool CZurComposite::Get(std::uint32_t id, void* value, std::uint32_t size) const {
    switch (id) {
        case 0:
            return PutNumber(value, size, GetID());
        case 1:
            return PutNumber(value, size, GetLength());
        case 2:
            return WriteTo(value, size);
        case 3:
            if (auto* list = FormAt<t_paramIdList>(value, size, kSizeIdList)) {
                EnumGetParams(*list);
                return true;
            }
            return false;
        case 4:
            if (auto* list = FormAt<t_paramIdList>(value, size, kSizeIdList)) {
                EnumSetParams(*list);
                return true;
            }
            return false;
        case 5:
            if (auto* record = FormAt<st_paramStream>(value, size, kSizeParamStream)) {
                WriteDeviceMessage(record->stream);
                return true;
            }
            return false;
        case 6:
            return CountChildren(*this, FormAt<st_paramValue>(value, size, kSizeParamValue));
        case 7:
            return FindChildFor(*this, FormAt<st_paramChild>(value, size, kSizeParamChild));
        case 8: {
            const auto* record = FormAt<st_paramData>(value, size, kSizeParamData);
            const auto* child = ChildOf(*this, record);
            if (child != nullptr) {
                child->GetData(record->data, record->count);
            }
            return child != nullptr;
        }
        default:
            return false;
    }
}

bool CZurComposite::Set(std::uint32_t id, void* value, std::uint32_t size) {
    switch (id) {
        case 0:
        case 1: {
            const auto* record = FormAt<st_paramValue>(value, size, kSizeParamValue);
            if (record == nullptr) {
                return false;
            }
            id == 0 ? SetID(record->value) : SetLength(record->value);
            return true;
        }
        case 2:
            return ReadFrom(value, size);
        case 7:
            return PutChild(FormAt<st_paramChild>(value, size, kSizeParamChild));
        case 8: {
            const auto* record = FormAt<st_paramData>(value, size, kSizeParamData);
            if (record == nullptr || record->data == nullptr || record->count == 0) {
                return false;
            }
            auto* child = ChildOf(*this, record);
            if (child != nullptr) {
                child->SetData(record->data, record->count);
            }
            return child != nullptr;
        }
        default:
            return false;
    }
}

bool CZurComposite::Do(std::uint32_t id, void* value, std::uint32_t size) {
    const auto* number = FormAt<st_paramValue>(value, size, kSizeParamValue);
    switch (id) {
        case 9:
            if (number != nullptr) {
                RemoveAt(static_cast<std::int32_t>(number->value));
            }
            return number != nullptr;
        case 10:
            if (number != nullptr) {
                RemoveAllOf(number->value);
            }
            return number != nullptr;
        case 11:
            RemoveAll();
            return true;
        case 12:
            return SetStoredHeader(FormAt<st_paramStream>(value, size, kSizeParamStream));
        case 13:
            SortChildren();
            return true;
        default:
            return false;
    }
}

bool CZurComposite::IsEqual(const CZurComposite& other) const {
    if (this == &other) {
        return true;
    }
    st_paramValue otherId;
    st_paramValue otherCount;
    if (!other.Get(0, &otherId, kSizeParamValue) || otherId.value != GetID() ||
        !other.Get(6, &otherCount, kSizeParamValue) ||
        otherCount.value != static_cast<std::uint32_t>(Count())) {
        return false;
    }
    for (std::int32_t position = 0; position < Count(); ++position) {
        st_paramChild theirs{kAnyBlock, position, nullptr};
        const auto* mine = FindChild(kAnyBlock, position);
        if (!other.Get(7, &theirs, kSizeParamChild) || !mine->IsEqual(*theirs.block)) {
            return false;
        }
    }
    return true;
}

void CZurComposite::BuildChildren() {}

void CZurComposite::OnReadDone() {}

void CZurComposite::SetDefaults() {}

void CZurComposite::WriteDeviceMessage(std::strstream* /*stream*/) const {}

void CZurComposite::EnumGetParams(t_paramIdList& list) const {
    AppendRange(list, GetFirstGetParam(), GetGetParamLimit());
}

std::uint32_t CZurComposite::GetFirstGetParam() const {
    return 0;
}

std::uint32_t CZurComposite::GetGetParamLimit() const {
    return 14;
}

void CZurComposite::EnumSetParams(t_paramIdList& list) const {
    AppendRange(list, GetFirstSetParam(), GetSetParamLimit());
}

std::uint32_t CZurComposite::GetFirstSetParam() const {
    return 0;
}

std::uint32_t CZurComposite::GetSetParamLimit() const {
    return 0;
}

bool CZurComposite::WriteTo(void* record, std::uint32_t size) const {
    const auto* target = FormAt<st_paramStream>(record, size, kSizeParamStream);
    if (target == nullptr || target->stream == nullptr) {
        return false;
    }
    Write(target->stream);
    return true;
}

bool CZurComposite::ReadFrom(void* record, std::uint32_t size) {
    const auto* source = FormAt<st_paramStream>(record, size, kSizeParamStream);
    if (source == nullptr || source->stream == nullptr) {
        return false;
    }
    Do(11, nullptr, 0);
    Read(source->stream, source->flag != 0);
    return true;
}

CZurRawBlock* CZurComposite::FindChild(std::uint32_t id, std::int32_t index) const {
    CZurRawBlock* child = nullptr;
    if (id == kAnyBlock) {
        ChildAt(index, child);
    } else {
        FindOccurrence(id, index == -1 ? 0 : index, child);
    }
    return child;
}

void CZurComposite::ReadTree(std::strstream* stream) {
    st_paramStream record{0, 0, 0, stream};
    Do(12, &record, kSizeParamStream);
    ReadChildren(stream, record.count);
}

bool CZurComposite::PutChild(st_paramChild* record) {
    if (record == nullptr || record->block == nullptr) {
        return false;
    }
    const bool byPosition = record->id == kAnyBlock;
    if (Holds(record->block)) {
        // It cannot be owned twice; put into its own place, it simply stays there.
        return (byPosition || record->index != -1) &&
               FindChild(record->id, record->index) == record->block;
    }
    MakeRoom(1);  // a put that fails must leave the block to its owner
    std::unique_ptr<CZurRawBlock> block(record->block);
    if (byPosition) {
        RemoveAt(record->index);
    } else {
        record->index = RemoveOccurrence(record->id, record->index);
    }
    AddChild(std::move(block), record->index);
    return true;
}

bool CZurComposite::SetStoredHeader(st_paramStream* record) {
    if (record != nullptr && record->stream != nullptr) {
        SetID(ReadStoredWord(record->stream));
        SetLength(ReadStoredWord(record->stream));
        record->count = ReadStoredWord(record->stream);
    }
    return true;
}

void CZurComposite::ReadChildren(std::strstream* stream, std::uint32_t count) {
    // The stored count is only a claim: reading stops where the stream has no more blocks.
    for (; count != 0 && HoldsAnotherBlock(stream); --count) {
        ReadChild(stream);
    }
    OnReadDone();
}
