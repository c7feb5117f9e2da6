#include <unordered_set>
#include <utility>

#include "params/param_block.h"
#include "params/time_sig_blocks.h"
#include "sequence/byte_stream.h"

namespace {

constexpr std::uint32_t kEntry = 5700;

std::unique_ptr<CZurRawBlock> ReadListChild(std::strstream* stream) {
    std::uint32_t id = 0;
    CZurByteStream(stream, false).Peek(id);
    if (id == kEntry) {
        return std::make_unique<CQelCPB_TimeSig>(stream);
    }
    return std::make_unique<CZurParamBlock>(stream, true);
}

void GiveIdentifier(CQelCPB_TimeSig& block) {
    st_paramValue id{-1, kEntry};
    block.SetParam(0, &id, kSizeParamValue);
}

}  // namespace

CQelComposite_TimeSigList::CQelComposite_TimeSigList() : CZurComposite(0, 0) {}

CQelComposite_TimeSigList::CQelComposite_TimeSigList(std::strstream* stream) : CZurComposite(0, 0) {
    ReadTree(stream);
}

CQelComposite_TimeSigList::CQelComposite_TimeSigList(const CQelComposite_TimeSigList& other) =
    default;

CQelComposite_TimeSigList::~CQelComposite_TimeSigList() = default;

bool CQelComposite_TimeSigList::Get(std::uint32_t id, void* value, std::uint32_t size) const {
    switch (id) {
        case 5700: {
            auto* record = FormAt<st_paramValue>(value, size, kSizeParamValue);
            if (record != nullptr) {
                record->value = static_cast<std::uint32_t>(CountOf(kEntry));
            }
            return record != nullptr;
        }
        case 5701:
            return GetTimeSigEntry(
                FormAt<st_paramTimeSigEntry>(value, size, kSizeParamTimeSigEntry));
        case 5702:
            return GetEntries(FormAt<t_paramTimeSigEntryList>(value, size, kSizeTimeSigEntryList));
        default:
            return CZurComposite::Get(id, value, size);
    }
}

bool CQelComposite_TimeSigList::Set(std::uint32_t id, void* value, std::uint32_t size) {
    switch (id) {
        case 5701:
            return SetTimeSigEntry(
                FormAt<st_paramTimeSigEntry>(value, size, kSizeParamTimeSigEntry));
        case 5702:
            return SetEntries(FormAt<t_paramTimeSigEntryList>(value, size, kSizeTimeSigEntryList));
        default:
            return CZurComposite::Set(id, value, size);
    }
}

bool CQelComposite_TimeSigList::Do(std::uint32_t id, void* value, std::uint32_t size) {
    switch (id) {
        case 5703:
            return CZurComposite::Do(9, value, size);
        case 5704: {
            st_paramValue entries{-1, kEntry};
            return CZurComposite::Do(10, &entries, kSizeParamValue);
        }
        default:
            return CZurComposite::Do(id, value, size);
    }
}

void CQelComposite_TimeSigList::ReadChild(std::strstream* stream) {
    try {
        AddChild(ReadListChild(stream), -1);
    } catch (...) {
        NoteSwallowedFailure();  // a child that cannot be read is left out
    }
}

std::uint32_t CQelComposite_TimeSigList::GetFirstGetParam() const {
    return 5700;
}

std::uint32_t CQelComposite_TimeSigList::GetGetParamLimit() const {
    return 5705;
}

std::uint32_t CQelComposite_TimeSigList::GetFirstSetParam() const {
    return 5700;
}

std::uint32_t CQelComposite_TimeSigList::GetSetParamLimit() const {
    return 5701;
}

bool CQelComposite_TimeSigList::GetTimeSigEntry(st_paramTimeSigEntry* entry) const {
    if (entry == nullptr) {
        return false;
    }
    auto* block = dynamic_cast<CQelCPB_TimeSig*>(FindChild(kEntry, entry->index));
    if (block != nullptr) {
        entry->block = block;
    }
    return block != nullptr;
}

bool CQelComposite_TimeSigList::SetTimeSigEntry(const st_paramTimeSigEntry* entry) {
    if (entry == nullptr || entry->block == nullptr) {
        return false;
    }
    GiveIdentifier(*entry->block);
    st_paramChild child{kEntry, entry->index, entry->block};
    return CZurComposite::Set(7, &child, kSizeParamChild);
}

bool CQelComposite_TimeSigList::GetEntries(t_paramTimeSigEntryList* list) const {
    if (list == nullptr) {
        return false;
    }
    const std::int32_t count = CountOf(kEntry);
    for (std::int32_t index = 0; index < count; ++index) {
        st_paramTimeSigEntry entry{index};
        if (GetTimeSigEntry(&entry)) {
            list->push_back(entry);
        }
    }
    return true;
}

bool CQelComposite_TimeSigList::SetEntries(const t_paramTimeSigEntryList* list) {
    if (list == nullptr) {
        return false;
    }
    // Each block can be owned but once, and those that a get lent may come back.
    std::unordered_set<const CZurRawBlock*> given;
    for (const auto& entry : *list) {
        if (entry.block != nullptr) {
            given.insert(entry.block);
        }
    }
    MakeRoom(given.size());
    // Nothing raises once the children are taken, so that no block is left without an owner.
    auto old = TakeAll();
    for (auto& block : old) {
        if (given.contains(block.get())) {
            static_cast<void>(block.release());
        } else if (block->GetID() != kEntry) {
            AddChild(std::move(block), -1);
        }
    }
    for (const auto& entry : *list) {
        if (given.erase(entry.block) != 0) {
            GiveIdentifier(*entry.block);
            AddChild(std::unique_ptr<CZurRawBlock>(entry.block), -1);
        }
    }
    return true;
}

CQelCPB_TimeSigList::CQelCPB_TimeSigList(std::uint32_t id) : CZurCPB(id) {
    HoldNew<CQelComposite_TimeSigList>();
}

CQelCPB_TimeSigList::CQelCPB_TimeSigList(std::strstream* stream) : CZurCPB(stream) {
    if (stream != nullptr) {
        HoldNew<CQelComposite_TimeSigList>(stream);
    }
}

CQelCPB_TimeSigList::CQelCPB_TimeSigList(const CQelCPB_TimeSigList& other) : CZurCPB(other) {
    HoldCopyOf<CQelComposite_TimeSigList>(other);
}

CQelCPB_TimeSigList::~CQelCPB_TimeSigList() = default;

std::unique_ptr<CZurRawBlock> CQelCPB_TimeSigList::Clone() const {
    return std::make_unique<CQelCPB_TimeSigList>(*this);
}
