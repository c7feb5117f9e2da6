#include "params/number_blocks.h"

#include <cstring>

#include "sequence/byte_stream.h"

CZurIntBlock::CZurIntBlock(std::uint32_t id, std::uint32_t value)
    : CZurRawBlock(id, InObject{storage}) {
    EncodeBigEndian32(value, storage.data());
}

CZurIntBlock::CZurIntBlock(std::strstream* stream) : CZurIntBlock(0U) {
    CZurBlock::ReadHeader(stream, true);
    CZurIntBlock::ReadPayload(stream);
}

CZurIntBlock::CZurIntBlock(const CZurIntBlock& other)
    : CZurRawBlock(other.GetID(), InObject{storage}), storage(other.storage) {
    CZurBlock::SetLength(other.GetLength());
}

CZurIntBlock& CZurIntBlock::operator=(const CZurIntBlock& other) {
    CZurBlock::operator=(other);
    storage = other.storage;
    return *this;
}

CZurIntBlock::~CZurIntBlock() = default;

void CZurIntBlock::ReadPayload(std::strstream* stream) {
    ReadInPlace(stream);
}

void CZurIntBlock::SetData(const void* source, std::uint32_t /*count*/) {
    SetValue(source);
}

void CZurIntBlock::SetValue(const void* source) {
    if (source != nullptr) {
        std::uint32_t value = 0;
        std::memcpy(&value, source, sizeof value);
        EncodeBigEndian32(value, storage.data());
    }
}

void CZurIntBlock::GetData(void* target, std::uint32_t /*count*/) const {
    GetValue(target);
}

void CZurIntBlock::GetValue(void* target) const {
    if (target != nullptr) {
        const std::uint32_t value = DecodeBigEndian32(storage.data());
        std::memcpy(target, &value, sizeof value);
    }
}

std::unique_ptr<CZurRawBlock> CZurIntBlock::Clone() const {
    return std::make_unique<CZurIntBlock>(*this);
}

CZurIntParamBlock::CZurIntParamBlock(std::uint32_t id, std::uint32_t value)
    : CZurIntBlock(id, value), CZurParamPort(this) {}

CZurIntParamBlock::CZurIntParamBlock(std::strstream* stream)
    : CZurIntBlock(stream), CZurParamPort(this) {}

CZurIntParamBlock::CZurIntParamBlock(const CZurIntParamBlock& other)
    : CZurIntBlock(other), CZurParamPort(this) {}

CZurIntParamBlock& CZurIntParamBlock::operator=(const CZurIntParamBlock& other) {
    CZurIntBlock::operator=(other);
    return *this;
}

CZurIntParamBlock::~CZurIntParamBlock() = default;

std::unique_ptr<CZurRawBlock> CZurIntParamBlock::Clone() const {
    return std::make_unique<CZurIntParamBlock>(*this);
}

CZurShortBlock::CZurShortBlock(std::uint32_t id, std::uint16_t value)
    : CZurRawBlock(id, InObject{storage}) {
    EncodeBigEndian16(static_cast<std::int16_t>(value), storage.data());
}

CZurShortBlock::CZurShortBlock(std::strstream* stream) : CZurShortBlock(0U, 0) {
    CZurBlock::ReadHeader(stream, true);
    CZurShortBlock::ReadPayload(stream);
}

CZurShortBlock::CZurShortBlock(const CZurShortBlock& other)
    : CZurRawBlock(other.GetID(), InObject{storage}), storage(other.storage) {
    CZurBlock::SetLength(other.GetLength());
}

CZurShortBlock& CZurShortBlock::operator=(const CZurShortBlock& other) {
    CZurBlock::operator=(other);
    storage = other.storage;
    return *this;
}

CZurShortBlock::~CZurShortBlock() = default;

void CZurShortBlock::ReadPayload(std::strstream* stream) {
    ReadInPlace(stream);
}

void CZurShortBlock::SetData(const void* source, std::uint32_t /*count*/) {
    SetValue(source);
}

void CZurShortBlock::SetValue(const void* source) {
    if (source != nullptr) {
        std::uint16_t value = 0;
        std::memcpy(&value, source, sizeof value);
        EncodeBigEndian16(static_cast<std::int16_t>(value), storage.data());
    }
}

void CZurShortBlock::GetData(void* target, std::uint32_t /*count*/) const {
    GetValue(target);
}

void CZurShortBlock::GetValue(void* target) const {
    if (target != nullptr) {
        const auto value = static_cast<std::uint16_t>(DecodeBigEndian16(storage.data()));
        std::memcpy(target, &value, sizeof value);
    }
}

std::unique_ptr<CZurRawBlock> CZurShortBlock::Clone() const {
    return std::make_unique<CZurShortBlock>(*this);
}

CZurShortParamBlock::CZurShortParamBlock(std::uint32_t id, std::uint16_t value)
    : CZurShortBlock(id, value), CZurParamPort(this) {}

CZurShortParamBlock::CZurShortParamBlock(std::strstream* stream)
    : CZurShortBlock(stream), CZurParamPort(this) {}

CZurShortParamBlock::CZurShortParamBlock(const CZurShortParamBlock& other)
    : CZurShortBlock(other), CZurParamPort(this) {}

CZurShortParamBlock& CZurShortParamBlock::operator=(const CZurShortParamBlock& other) {
    CZurShortBlock::operator=(other);
    return *this;
}

CZurShortParamBlock::~CZurShortParamBlock() = default;

std::unique_ptr<CZurRawBlock> CZurShortParamBlock::Clone() const {
    return std::make_unique<CZurShortParamBlock>(*this);
}
