#pragma once

#include <cstdint>
#include <vector>

#include "sequence/api.h"

/// A table of 32-bit entries that a derived class can reach by key. The composites of this folder
/// build it empty; it then does nothing and answers -1.
class ORBIX_API CZurIndexTable {
public:
    /// What an entry holds until it is set.
    static constexpr std::uint32_t kNoEntry = 0xFFFFFFFFU;

    explicit CZurIndexTable(std::uint32_t count);
    CZurIndexTable(const CZurIndexTable&) = default;
    CZurIndexTable& operator=(const CZurIndexTable&) = default;

    virtual ~CZurIndexTable();                                    // 1
    virtual void OnReset();                                       // 2
    virtual void Resize(std::uint32_t count);                     // 3
    virtual void SetEntry(const void* key, std::uint32_t value);  // 4
    virtual std::uint32_t GetEntry(const void* key) const;        // 5
    virtual void ClearEntry(const void* key);                     // 6
    virtual void ClearAll();                                      // 7
    /// -1 for a null key.
    virtual std::int32_t IndexOfKey(const void* key) const;  // 8
    virtual std::int32_t KeyToIndex(const void* key) const;  // 9

private:
    std::vector<std::uint32_t> table;
};
