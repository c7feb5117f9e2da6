#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "params/raw_block.h"

/// A block whose payload is an ordered list of child blocks: a big-endian child count, then each
/// child as a whole block. The order is the order in the stream and the order in which an index
/// counts. A child is a leaf or a composite parameter block, never a bare composite, because
/// copying goes through the child's `Clone`. The length is bookkeeping only: 4 for the count and
/// the total length of each child; what is stored is measured instead.
class ORBIX_API CZurBlockVector : public CZurBlock {
public:
    explicit CZurBlockVector(std::uint32_t id);
    /// Clones every child.
    CZurBlockVector(const CZurBlockVector& other);
    CZurBlockVector& operator=(const CZurBlockVector&) = delete;
    ~CZurBlockVector() override;

    void WritePayload(std::strstream* stream) const override;  // 10
    /// Appends the stored children as raw blocks, for as long as the stream holds any.
    void ReadPayload(std::strstream* stream) override;  // 11
    virtual void Initialize();                          // 14
    virtual void SortChildren();                        // 15
    /// Sorts the children from position `first` up to but not including `last`; nothing here.
    virtual void SortRange(std::int32_t first, std::int32_t last);  // 16

    std::int32_t Count() const;
    /// Children with this identifier.
    std::int32_t CountOf(std::uint32_t id) const;
    /// The child at a position, borrowed; false and null outside.
    bool ChildAt(std::int32_t position, CZurRawBlock*& out) const;
    /// The first child with this identifier, borrowed; false and null when there is none.
    bool FindFirst(std::uint32_t id, CZurRawBlock*& out) const;
    /// Occurrence number `occurrence`, from 0, of this identifier.
    bool FindOccurrence(std::uint32_t id, std::int32_t occurrence, CZurRawBlock*& out) const;
    /// Whether this very object is one of the children.
    bool Holds(const CZurRawBlock* block) const;

    /// Inserts before the child at `position`, or appends when there is none; null does nothing.
    void AddChild(std::unique_ptr<CZurRawBlock> block, std::int32_t position);
    /// Deletes the child at `position`; nothing outside.
    void RemoveAt(std::int32_t position);
    /// Deletes one occurrence and gives the position where it stood, or `Count()` when nothing
    /// matches.
    std::int32_t RemoveOccurrence(std::uint32_t id, std::int32_t occurrence);
    void RemoveAllOf(std::uint32_t id);
    void RemoveAll();
    /// Hands all children to the caller and leaves none, but keeps their room.
    std::vector<std::unique_ptr<CZurRawBlock>> TakeAll();
    /// Appends a clone of each child of `other`; the length starts again at 4.
    void CopyChildren(const CZurBlockVector& other);

protected:
    /// Takes the memory for so many more children, so that adding them cannot fail half-way.
    void MakeRoom(std::size_t count);

private:
    /// Where the last search stopped: that many children of `id` stand before `position`. Events
    /// are asked for one after the other, so each search goes on where the last one ended.
    struct Finger {
        std::uint64_t renamings = 0;
        std::uint32_t id = 0;
        std::int32_t before = 0;
        std::int32_t position = 0;
    };

    std::int32_t PositionOf(std::uint32_t id, std::int32_t occurrence) const;
    static void MarkListed(CZurBlock& child, bool listed);
    /// The children from this position on are no longer what they were.
    void ForgetFrom(std::int32_t position);

    std::vector<std::unique_ptr<CZurRawBlock>> children;
    mutable Finger finger;
};
