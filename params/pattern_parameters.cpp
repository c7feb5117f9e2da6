#include "params/pattern_parameters.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <typeinfo>
#include <vector>

#include "params/position_block.h"
#include "params/time_sig_blocks.h"

namespace {

constexpr std::size_t kNameLimit = 16;

/// A block's port, or null when it has none. Nearly every one is a position, and telling that takes
/// no search through its bases.
CZurParamPort* PortOf(CZurBlock* block) {
    if (block != nullptr && typeid(*block) == typeid(CQelCPB_3DPosition)) {
        return static_cast<CQelCPB_3DPosition*>(block);
    }
    return dynamic_cast<CZurParamPort*>(block);
}

/// The port of position event number `selector`, or null.
CZurParamPort* PositionPort(const CZurComposite& pattern, const st_paramValue* record) {
    if (record == nullptr) {
        return nullptr;
    }
    st_paramChild child{kPositionBlock, record->selector, nullptr};
    return pattern.Get(7, &child, kSizeParamChild) ? PortOf(child.block) : nullptr;
}

CQelCPB_TimeSigList* ListOf(const CZurComposite& pattern) {
    return dynamic_cast<CQelCPB_TimeSigList*>(pattern.FindChild(kTimeSigListBlock, -1));
}

CQelCPB_TimeSig* EntryOf(const CZurComposite& pattern, const st_paramTimeSig* record) {
    const auto* list = ListOf(pattern);
    if (record == nullptr || list == nullptr) {
        return nullptr;
    }
    st_paramTimeSigEntry entry{record->index};
    return list->GetParam(5701, &entry, kSizeParamTimeSigEntry) ? entry.block : nullptr;
}

bool GetFractionOf(const CQelCPB_TimeSig& entry, std::uint32_t& numerator,
                   std::uint32_t& denominator) {
    st_paramValue upper;
    st_paramValue lower;
    if (!entry.GetParam(5801, &upper, kSizeParamValue) ||
        !entry.GetParam(5802, &lower, kSizeParamValue)) {
        return false;
    }
    numerator = upper.value;
    denominator = lower.value;
    return true;
}

bool GetRecordOf(const CQelCPB_TimeSig& entry, t_tSigRec& record) {
    st_paramTimeValue time;
    if (!entry.GetParam(5800, &time, kSizeParamTimeValue)) {
        return false;
    }
    record.measure = time.measure;
    record.beat = time.beat;
    record.tick = time.tick;
    return GetFractionOf(entry, record.numerator, record.denominator);
}

std::unique_ptr<CQelCPB_TimeSig> EntryFrom(const t_tSigRec& record) {
    return std::make_unique<CQelCPB_TimeSig>(0U, t_MBT{record.measure, record.beat, record.tick},
                                             static_cast<std::uint16_t>(record.numerator),
                                             static_cast<std::uint16_t>(record.denominator));
}

}  // namespace

bool GetPosition(const CZurComposite& pattern, st_paramChild* record) {
    if (record == nullptr) {
        return false;
    }
    record->id = kPositionBlock;
    return pattern.CZurComposite::Get(7, record, kSizeParamChild);
}

bool SetPosition(CZurComposite& pattern, st_paramChild* record) {
    auto* block = record == nullptr ? nullptr : dynamic_cast<CQelCPB_3DPosition*>(record->block);
    if (block == nullptr) {
        return false;
    }
    st_paramValue id{-1, kPositionBlock};
    block->SetParam(0, &id, kSizeParamValue);
    record->id = kPositionBlock;
    return pattern.CZurComposite::Set(7, record, kSizeParamChild);
}

bool GetPositionField(const CZurComposite& pattern, std::uint32_t parameter,
                      st_paramValue* record) {
    const auto* port = PositionPort(pattern, record);
    return port != nullptr && port->GetParam(parameter, record, kSizeParamValue);
}

bool SetPositionField(CZurComposite& pattern, std::uint32_t parameter, st_paramValue* record) {
    auto* port = PositionPort(pattern, record);
    return port != nullptr && port->SetParam(parameter, record, kSizeParamValue);
}

bool GetName(const CZurComposite& pattern, st_paramName* record) {
    const auto* block = pattern.FindChild(kNameBlock, -1);
    if (record == nullptr || block == nullptr) {
        return false;
    }
    std::ranges::fill(record->name, '\0');
    for (std::uint32_t i = 0; i + 1 < std::size(record->name); ++i) {
        record->name[i] = static_cast<char>(block->GetByteAt(i));
        if (record->name[i] == '\0') {
            break;
        }
    }
    return true;
}

bool SetName(CZurComposite& pattern, st_paramName* record) {
    if (record == nullptr) {
        return false;
    }
    std::fill(record->name + kNameLimit, std::end(record->name), '\0');
    auto* block = pattern.FindChild(kNameBlock, -1);
    if (block == nullptr) {
        return false;
    }
    const auto& name = record->name;
    std::vector<char> bytes(std::max<std::size_t>(block->GetLength(), std::size(name)));
    std::ranges::copy(name, bytes.begin());
    block->SetData(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    return true;
}

bool GetNumber(const CZurComposite& pattern, std::uint32_t block, st_paramValue* record) {
    std::uint32_t number = 0;
    st_paramData data{block, -1, &number, sizeof number};
    if (record == nullptr || !pattern.CZurComposite::Get(8, &data, kSizeParamData)) {
        return false;
    }
    record->value = number;
    return true;
}

bool SetNumber(CZurComposite& pattern, std::uint32_t block, const st_paramValue* record) {
    std::uint32_t number = record == nullptr ? 0 : record->value;
    st_paramData data{block, -1, &number, sizeof number};
    return record != nullptr && pattern.CZurComposite::Set(8, &data, kSizeParamData);
}

bool GetTimeSigList(const CZurComposite& pattern, st_paramTimeSigList* record) {
    auto* list = ListOf(pattern);
    if (record == nullptr || list == nullptr) {
        return false;
    }
    record->list = list;
    return true;
}

bool AppendTimeSigList(CZurComposite& pattern, const st_paramTimeSigList* record) {
    if (record == nullptr || record->list == nullptr) {
        return false;
    }
    st_paramValue id{-1, kTimeSigListBlock};
    record->list->SetParam(0, &id, kSizeParamValue);
    st_paramChild child{kAnyBlock, -1, record->list};
    return pattern.CZurComposite::Set(7, &child, kSizeParamChild);
}

bool GetFraction(const CZurComposite& pattern, st_paramTimeSig* record) {
    const auto* entry = EntryOf(pattern, record);
    return entry != nullptr && GetFractionOf(*entry, record->numerator, record->denominator);
}

bool SetFraction(CZurComposite& pattern, const st_paramTimeSig* record) {
    auto* entry = EntryOf(pattern, record);
    if (entry == nullptr) {
        return false;
    }
    st_paramValue numerator{-1, record->numerator & 0xFFFFU};
    st_paramValue denominator{-1, record->denominator & 0xFFFFU};
    return entry->SetParam(5801, &numerator, kSizeParamValue) &&
           entry->SetParam(5802, &denominator, kSizeParamValue);
}

bool GetTimeSigs(const CZurComposite& pattern, const st_paramTimeSigRecords* record) {
    const auto* list = ListOf(pattern);
    t_paramTimeSigEntryList entries;
    if (record == nullptr || record->records == nullptr || list == nullptr ||
        !list->GetParam(5702, &entries, kSizeTimeSigEntryList)) {
        return false;
    }
    for (const auto& entry : entries) {
        if (entry.block == nullptr) {
            continue;
        }
        t_tSigRec timeSig;
        if (!GetRecordOf(*entry.block, timeSig)) {
            return false;
        }
        record->records->push_back(timeSig);
    }
    return true;
}

bool SetTimeSigs(CZurComposite& pattern, const st_paramTimeSigRecords* record) {
    auto* list = ListOf(pattern);
    if (record == nullptr || record->records == nullptr || list == nullptr) {
        return false;
    }
    try {
        return FillTimeSigList(*list, *record->records);
    } catch (...) {
        NoteSwallowedFailure();
        return false;
    }
}

bool FillTimeSigList(CQelCPB_TimeSigList& list, const std::vector<t_tSigRec>& records) {
    st_paramValue held;
    if (!list.GetParam(50, &held, kSizeParamValue) || held.reference == nullptr) {
        return true;  // a list that holds nothing takes everything and keeps nothing
    }
    std::vector<std::unique_ptr<CQelCPB_TimeSig>> made;
    t_paramTimeSigEntryList entries;
    for (const t_tSigRec& record : records) {
        made.push_back(EntryFrom(record));
        entries.emplace_back().block = made.back().get();
    }
    if (!list.SetParam(5702, &entries, kSizeTimeSigEntryList)) {
        return false;
    }
    for (auto& block : made) {
        static_cast<void>(block.release());  // the list's from here on
    }
    return true;
}
