#include "params/index_table.h"

CZurIndexTable::CZurIndexTable(std::uint32_t count) : table(count, kNoEntry) {}

CZurIndexTable::~CZurIndexTable() = default;

void CZurIndexTable::OnReset() {}

void CZurIndexTable::Resize(std::uint32_t count) {
    table.assign(count, kNoEntry);
    OnReset();
}

void CZurIndexTable::SetEntry(const void* key, std::uint32_t value) {
    const auto index = static_cast<std::uint32_t>(IndexOfKey(key));
    if (index < table.size()) {
        table[index] = value;
    }
}

std::uint32_t CZurIndexTable::GetEntry(const void* key) const {
    const auto index = static_cast<std::uint32_t>(IndexOfKey(key));
    return index < table.size() ? table[index] : kNoEntry;
}

void CZurIndexTable::ClearEntry(const void* key) {
    SetEntry(key, kNoEntry);
}

void CZurIndexTable::ClearAll() {
    table.assign(table.size(), kNoEntry);
}

std::int32_t CZurIndexTable::IndexOfKey(const void* key) const {
    return key == nullptr ? -1 : KeyToIndex(key);
}

std::int32_t CZurIndexTable::KeyToIndex(const void* /*key*/) const {
    return -1;
}
