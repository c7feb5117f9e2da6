#include "params/param_block.h"

CZurParamBlock::CZurParamBlock(std::uint32_t id, std::uint32_t length)
    : CZurParamBlock(id, nullptr, length) {}

CZurParamBlock::CZurParamBlock(std::uint32_t id, const void* source, std::uint32_t length)
    : CZurRawBlock(id, source, length), CZurParamPort(this) {}

CZurParamBlock::CZurParamBlock(std::strstream* stream, bool anyId)
    : CZurRawBlock(stream, anyId), CZurParamPort(this) {}

CZurParamBlock::CZurParamBlock(const CZurParamBlock& other)
    : CZurRawBlock(other), CZurParamPort(this) {}

CZurParamBlock& CZurParamBlock::operator=(const CZurParamBlock& other) {
    CZurRawBlock::operator=(other);
    return *this;
}

CZurParamBlock::~CZurParamBlock() = default;

std::unique_ptr<CZurRawBlock> CZurParamBlock::Clone() const {
    return std::make_unique<CZurParamBlock>(*this);
}
