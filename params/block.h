#pragma once

#include <atomic>
#include <cstdint>

#include "sequence/api.h"
#include "sequence/strstream.h"

/// A piece of tagged data: a 32-bit identifier, a payload length and a payload, which derived
/// classes hold. A stored block is identifier and payload length, each four big-endian bytes, then
/// the payload. The trailing numbers give the order of the virtual operations, which is part of
/// every class of this folder. Blocks belong to one thread at a time; no operation locks.
///
/// A null stream is allowed everywhere and makes reading and writing do nothing. A stream that is
/// cut short gives zeros and shorter payloads, never an error.
class ORBIX_API CZurBlock {
public:
    /// Identifier 0, length 0.
    CZurBlock() = default;
    CZurBlock(std::uint32_t id, std::uint32_t length);
    /// Reads the header of any block.
    explicit CZurBlock(std::strstream* stream);
    CZurBlock(const CZurBlock& other);
    CZurBlock& operator=(const CZurBlock& other);

    virtual ~CZurBlock();                     // 1
    virtual std::uint32_t GetID() const;      // 2
    virtual void SetID(std::uint32_t newId);  // 3
    /// Payload bytes as the block itself counts them; what is stored is measured instead.
    virtual std::uint32_t GetLength() const;  // 4
    /// Sets the number only and moves no memory.
    virtual void SetLength(std::uint32_t newLength);  // 5
    /// Length and header.
    virtual std::uint32_t GetTotalLength() const;  // 6
    /// Writes header and payload; the stream must be able to seek, as the length is filled in
    /// behind the payload. Leaves the write position behind the block.
    virtual void Write(std::strstream* stream) const;  // 7
    /// Reads header and payload. Without `anyId` only a block of this identifier is taken.
    virtual void Read(std::strstream* stream, bool anyId);  // 8
    /// Reads identifier and length. False, with nothing consumed, when `anyId` is false and the
    /// next block has another identifier.
    virtual bool ReadHeader(std::strstream* stream, bool anyId);  // 9
    virtual void WritePayload(std::strstream* stream) const;      // 10
    virtual void ReadPayload(std::strstream* stream);             // 11
    virtual void WriteTrailer(std::strstream* stream) const;      // 12
    virtual void ReadTrailer(std::strstream* stream);             // 13

    /// Counts the changes of identifiers of all blocks that stand in a list. A list that remembers
    /// where an identifier stood asks this whether it may still believe itself: the owner of a
    /// child is not told when somebody renames it.
    static std::uint64_t Renamings() { return renamings.load(std::memory_order_relaxed); }

private:
    friend class CZurBlockVector;

    static std::atomic<std::uint64_t> renamings;

    std::uint32_t id = 0;
    std::uint32_t length = 0;
    bool listed = false;  // a child of some list; a copy is none
};

/// How many failures reading and building have swallowed on this thread: a child for which there is
/// no memory is left out. Who must have the whole of a tree asks before, and raises behind.
ORBIX_API std::uint32_t SwallowedFailures();
/// Raises `std::bad_alloc` when there were more since that number was asked.
ORBIX_API void RaiseFailuresSince(std::uint32_t before);
ORBIX_API void NoteSwallowedFailure();

/// Bytes of a stored header: identifier and length.
inline constexpr std::uint32_t kBlockHeaderSize = 8;

/// The next big-endian word; 0, with nothing consumed, when the stream is null or holds fewer
/// than four more bytes.
std::uint32_t ReadStoredWord(std::strstream* stream);

/// Whether the stream holds at least the header of one more block.
bool HoldsAnotherBlock(std::strstream* stream);
