#pragma once

#include <cstdint>

#include "params/block_vector.h"
#include "params/index_table.h"
#include "params/value_forms.h"

/// A list of children that answers numbered requests, the base of every structured object. `Get`,
/// `Set` and `Do` take the records of value_forms.h and give true for success; a wrong size, a
/// null value or an unknown number gives false and changes nothing. A concrete class tests its own
/// numbers first and hands all others here.
///
/// Requests for all: get 0 identifier, 1 length, 2 write to a stream, 3 and 4 the numbers that can
/// be got and set, 5 device message, 6 count of children, 7 a child, 8 a child's bytes; set 0, 1,
/// 2 (empty, then read), 7 (put a child in), 8; do 9 remove the child at a position, 10 remove all
/// of an identifier, 11 remove all, 12 read the header of a tree, 13 sort.
class ORBIX_API CZurComposite : public CZurBlockVector, public CZurIndexTable {
public:
    CZurComposite(std::uint32_t id, std::uint32_t tableCount);
    CZurComposite(const CZurComposite& other);
    /// Replaces the children by clones; nothing when the identifiers differ.
    CZurComposite& operator=(const CZurComposite& other);
    ~CZurComposite() override;

    /// Reads the children through `ReadChild`, so that they have their types.
    void ReadPayload(std::strstream* stream) override;                          // 11
    virtual bool Get(std::uint32_t id, void* value, std::uint32_t size) const;  // 17
    virtual bool Set(std::uint32_t id, void* value, std::uint32_t size);        // 18
    virtual bool Do(std::uint32_t id, void* value, std::uint32_t size);         // 19
    /// Same identifier and equal children in the same order.
    virtual bool IsEqual(const CZurComposite& other) const;  // 20
    /// Makes the default children.
    virtual void BuildChildren();  // 21
    /// Reads one child and adds it. What goes wrong on the way is swallowed: nothing is added.
    virtual void ReadChild(std::strstream* stream) = 0;  // 22
    /// Runs after all children of a stream are in.
    virtual void OnReadDone();                                      // 23
    virtual void SetDefaults();                                     // 24
    virtual void WriteDeviceMessage(std::strstream* stream) const;  // 25
    virtual void EnumGetParams(t_paramIdList& list) const;          // 26
    virtual std::uint32_t GetFirstGetParam() const;                 // 27
    virtual std::uint32_t GetGetParamLimit() const;                 // 28
    virtual void EnumSetParams(t_paramIdList& list) const;          // 29
    virtual std::uint32_t GetFirstSetParam() const;                 // 30
    virtual std::uint32_t GetSetParamLimit() const;                 // 31
    virtual bool WriteTo(void* record, std::uint32_t size) const;   // 32
    virtual bool ReadFrom(void* record, std::uint32_t size);        // 33

    /// A child, borrowed, or null. With `kAnyBlock` the index is a position; index -1 with an
    /// identifier is the first of it.
    CZurRawBlock* FindChild(std::uint32_t id, std::int32_t index) const;
    /// Adds the children of a stored composite to this one: header, count, children. A composite
    /// that is to become what the stream holds must be empty before.
    void ReadTree(std::strstream* stream);

private:
    bool PutChild(st_paramChild* record);
    bool SetStoredHeader(st_paramStream* record);
    void ReadChildren(std::strstream* stream, std::uint32_t count);
};
