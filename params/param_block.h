#pragma once

#include <cstdint>
#include <memory>

#include "params/param_port.h"
#include "params/raw_block.h"

/// The generic block of any length, with a port: the type by which a host and its tools hand a
/// block round.
class ORBIX_API CZurParamBlock : public CZurRawBlock, public CZurParamPort {
public:
    /// `length` zero bytes.
    CZurParamBlock(std::uint32_t id, std::uint32_t length);
    /// `length` bytes copied from `source`, or zeros when that is null.
    CZurParamBlock(std::uint32_t id, const void* source, std::uint32_t length);
    /// Reads a whole block of any identifier, whatever `anyId` says.
    CZurParamBlock(std::strstream* stream, bool anyId);
    CZurParamBlock(const CZurParamBlock& other);
    /// Takes over the block; the port stays bound to this object.
    CZurParamBlock& operator=(const CZurParamBlock& other);
    ~CZurParamBlock() override;

    std::unique_ptr<CZurRawBlock> Clone() const override;  // 19
};
