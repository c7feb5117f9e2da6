#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "params/block.h"

/// A block that holds bytes. It owns its buffer, except where a derived class keeps the bytes
/// inside the object. No operation throws but the allocator.
class ORBIX_API CZurRawBlock : public CZurBlock {
public:
    /// `length` zero bytes.
    CZurRawBlock(std::uint32_t id, std::uint32_t length);
    /// `length` bytes copied from `source`, or zeros when that is null.
    CZurRawBlock(std::uint32_t id, const void* source, std::uint32_t length);
    /// Reads a whole block of any identifier, whatever `anyId` says.
    CZurRawBlock(std::strstream* stream, bool anyId);
    CZurRawBlock(const CZurRawBlock& other);
    /// Takes over identifier, length and a copy of the bytes.
    CZurRawBlock& operator=(const CZurRawBlock& other);
    ~CZurRawBlock() override;

    void WritePayload(std::strstream* stream) const override;  // 10
    /// Takes the stored length, or what the stream still holds when that is less.
    void ReadPayload(std::strstream* stream) override;  // 11

    /// Copies into the start of the buffer, no more than `GetLength()` bytes; never grows it.
    virtual void SetData(const void* source, std::uint32_t count);  // 14
    /// Sets the natural unit of the block: here one byte.
    virtual void SetValue(const void* source);  // 15
    /// Copies from the start of the buffer, no more than `GetLength()` bytes.
    virtual void GetData(void* target, std::uint32_t count) const;  // 16
    /// Gets the natural unit of the block: here one byte.
    virtual void GetValue(void* target) const;  // 17
    /// Same identifier, length and bytes.
    virtual bool IsEqual(const CZurRawBlock& other) const;  // 18
    /// A new block of the same class that shares nothing with this one.
    virtual std::unique_ptr<CZurRawBlock> Clone() const;  // 19

    /// The byte, or 0 outside the buffer.
    std::uint8_t GetByteAt(std::uint32_t index) const;
    bool Equals(const CZurRawBlock& other) const { return IsEqual(other); }
    bool NotEquals(const CZurRawBlock& other) const { return !IsEqual(other); }

protected:
    /// Bytes that a derived class keeps inside its own object, whose whole room is the length.
    struct InObject {
        std::span<std::uint8_t> storage;
    };
    CZurRawBlock(std::uint32_t id, InObject where);

    /// Reads a payload into the room there is: what is missing becomes 0, what is too much is
    /// skipped and the length cut.
    void ReadInPlace(std::strstream* stream);
    /// The bytes that count: the length can be set above the room of the buffer.
    std::span<std::uint8_t> Bytes() const;

private:
    void Replace(std::uint32_t count);

    std::unique_ptr<std::uint8_t[]> buffer;
    std::span<std::uint8_t> data;
};
