#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "params/param_port.h"
#include "params/raw_block.h"

/// One 32-bit number, kept big-endian in four bytes inside the object. Setting and getting data
/// move the number in the machine's own form, four bytes whatever the count.
class ORBIX_API CZurIntBlock : public CZurRawBlock {
public:
    explicit CZurIntBlock(std::uint32_t id, std::uint32_t value = 0);
    /// Reads a whole block of any identifier.
    explicit CZurIntBlock(std::strstream* stream);
    CZurIntBlock(const CZurIntBlock& other);
    CZurIntBlock& operator=(const CZurIntBlock& other);
    ~CZurIntBlock() override;

    /// Reads into the four bytes; a longer payload is no valid block, its surplus is skipped.
    void ReadPayload(std::strstream* stream) override;               // 11
    void SetData(const void* source, std::uint32_t count) override;  // 14
    /// Takes one `std::uint32_t`.
    void SetValue(const void* source) override;                      // 15
    void GetData(void* target, std::uint32_t count) const override;  // 16
    /// Gives one `std::uint32_t`.
    void GetValue(void* target) const override;            // 17
    std::unique_ptr<CZurRawBlock> Clone() const override;  // 19

private:
    std::array<std::uint8_t, 4> storage = {};
};

/// A 32-bit number with a port.
class ORBIX_API CZurIntParamBlock : public CZurIntBlock, public CZurParamPort {
public:
    explicit CZurIntParamBlock(std::uint32_t id, std::uint32_t value = 0);
    explicit CZurIntParamBlock(std::strstream* stream);
    CZurIntParamBlock(const CZurIntParamBlock& other);
    CZurIntParamBlock& operator=(const CZurIntParamBlock& other);
    ~CZurIntParamBlock() override;

    std::unique_ptr<CZurRawBlock> Clone() const override;  // 19
};

/// One 16-bit number, kept big-endian in two bytes inside the object. Setting and getting data
/// move the number in the machine's own form, two bytes whatever the count.
class ORBIX_API CZurShortBlock : public CZurRawBlock {
public:
    CZurShortBlock(std::uint32_t id, std::uint16_t value);
    /// Reads a whole block of any identifier.
    explicit CZurShortBlock(std::strstream* stream);
    CZurShortBlock(const CZurShortBlock& other);
    CZurShortBlock& operator=(const CZurShortBlock& other);
    ~CZurShortBlock() override;

    /// Reads into the two bytes; a longer payload is no valid block, its surplus is skipped.
    void ReadPayload(std::strstream* stream) override;               // 11
    void SetData(const void* source, std::uint32_t count) override;  // 14
    /// Takes one `std::uint16_t`.
    void SetValue(const void* source) override;                      // 15
    void GetData(void* target, std::uint32_t count) const override;  // 16
    /// Gives one `std::uint16_t`.
    void GetValue(void* target) const override;            // 17
    std::unique_ptr<CZurRawBlock> Clone() const override;  // 19

private:
    std::array<std::uint8_t, 2> storage = {};
};

/// A 16-bit number with a port.
class ORBIX_API CZurShortParamBlock : public CZurShortBlock, public CZurParamPort {
public:
    CZurShortParamBlock(std::uint32_t id, std::uint16_t value);
    explicit CZurShortParamBlock(std::strstream* stream);
    CZurShortParamBlock(const CZurShortParamBlock& other);
    CZurShortParamBlock& operator=(const CZurShortParamBlock& other);
    ~CZurShortParamBlock() override;

    std::unique_ptr<CZurRawBlock> Clone() const override;  // 19
};
