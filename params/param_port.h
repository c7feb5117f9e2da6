#pragma once

#include <cstdint>

#include "params/raw_block.h"
#include "params/value_forms.h"

/// The parameter interface of a block: one call shape (id, value, size) for every get, set and do.
/// Every call gives true for success; a wrong size, a null value, no owner or an unknown
/// identifier gives false and changes nothing. Identifiers 0 to 4 stand for identifier, length,
/// bytes, stream form and the list of identifiers; derived ports answer the rest.
class ORBIX_API CZurParamPort {
public:
    CZurParamPort() = default;
    /// A port serves one object for life, so a copy of a block gets a port of its own.
    CZurParamPort(const CZurParamPort&) = delete;
    CZurParamPort& operator=(const CZurParamPort&) = delete;

    virtual ~CZurParamPort();                                                          // 1
    virtual bool GetParam(std::uint32_t id, void* value, std::uint32_t size) const;    // 2
    virtual bool SetParam(std::uint32_t id, void* value, std::uint32_t size);          // 3
    virtual bool DoParam(std::uint32_t id, void* value, std::uint32_t size);           // 4
    virtual bool GetParamEx(std::uint32_t id, void* value, std::uint32_t size) const;  // 5
    virtual bool SetParamEx(std::uint32_t id, void* value, std::uint32_t size);        // 6
    virtual bool DoParamEx(std::uint32_t id, void* value, std::uint32_t size);         // 7
    /// Appends every identifier from the first up to but not including the limit.
    virtual void EnumParams(t_paramIdList& list) const;  // 8
    virtual std::uint32_t GetFirstParam() const;         // 9
    virtual std::uint32_t GetParamLimit() const;         // 10

protected:
    /// A derived class binds its own object.
    explicit CZurParamPort(CZurRawBlock* owner) : owner(owner) {}

    /// Borrowed, unless `owned` says otherwise.
    CZurRawBlock* owner = nullptr;
    /// Whether the port deletes its owner; false for all blocks that are their own port.
    bool owned = false;
};
