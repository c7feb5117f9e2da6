#include "params/block_vector.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "sequence/byte_stream.h"

namespace {

constexpr std::uint32_t kCountSize = 4;

}  // namespace

CZurBlockVector::CZurBlockVector(std::uint32_t id) : CZurBlock(id, kCountSize) {
    CZurBlockVector::Initialize();
}

CZurBlockVector::CZurBlockVector(const CZurBlockVector& other) : CZurBlock(other) {
    CopyChildren(other);
}

CZurBlockVector::~CZurBlockVector() = default;

void CZurBlockVector::WritePayload(std::strstream* stream) const {
    CZurByteStream(stream, false) << static_cast<std::uint32_t>(children.size());
    for (const auto& child : children) {
        child->Write(stream);
    }
}

void CZurBlockVector::ReadPayload(std::strstream* stream) {
    for (auto count = ReadStoredWord(stream); count != 0 && HoldsAnotherBlock(stream); --count) {
        children.push_back(std::make_unique<CZurRawBlock>(stream, true));
        MarkListed(*children.back(), true);
    }
}

void CZurBlockVector::Initialize() {}

void CZurBlockVector::SortChildren() {
    if (!children.empty()) {
        SortRange(0, Count());
    }
}

void CZurBlockVector::SortRange(std::int32_t /*first*/, std::int32_t /*last*/) {}

std::int32_t CZurBlockVector::Count() const {
    return static_cast<std::int32_t>(children.size());
}

std::int32_t CZurBlockVector::CountOf(std::uint32_t id) const {
    return static_cast<std::int32_t>(
        std::ranges::count_if(children, [id](const auto& child) { return child->GetID() == id; }));
}

bool CZurBlockVector::ChildAt(std::int32_t position, CZurRawBlock*& out) const {
    const bool inside = position >= 0 && position < Count();
    out = inside ? children[static_cast<std::size_t>(position)].get() : nullptr;
    return inside;
}

bool CZurBlockVector::FindFirst(std::uint32_t id, CZurRawBlock*& out) const {
    return FindOccurrence(id, 0, out);
}

bool CZurBlockVector::FindOccurrence(std::uint32_t id, std::int32_t occurrence,
                                     CZurRawBlock*& out) const {
    return ChildAt(PositionOf(id, occurrence), out);
}

bool CZurBlockVector::Holds(const CZurRawBlock* block) const {
    return static_cast<const CZurBlock*>(block)->listed &&
           std::ranges::any_of(children,
                               [block](const auto& child) { return child.get() == block; });
}

void CZurBlockVector::AddChild(std::unique_ptr<CZurRawBlock> block, std::int32_t position) {
    if (block == nullptr) {
        return;
    }
    const std::uint32_t added = block->GetTotalLength();
    MarkListed(*block, true);
    const bool inside = position >= 0 && position < Count();
    children.insert(inside ? children.begin() + position : children.end(), std::move(block));
    ForgetFrom(inside ? position : Count() - 1);
    SetLength(GetLength() + added);
}

void CZurBlockVector::RemoveAt(std::int32_t position) {
    CZurRawBlock* child = nullptr;
    if (ChildAt(position, child)) {
        SetLength(GetLength() - child->GetTotalLength());
        children.erase(children.begin() + position);
        ForgetFrom(position);
    }
}

std::int32_t CZurBlockVector::RemoveOccurrence(std::uint32_t id, std::int32_t occurrence) {
    const std::int32_t position = PositionOf(id, occurrence);
    RemoveAt(position);
    return position;
}

void CZurBlockVector::RemoveAllOf(std::uint32_t id) {
    // In one pass, so that emptying a long list costs no more than reading it.
    std::erase_if(children, [this, id](const auto& child) {
        const bool matches = child->GetID() == id;
        if (matches) {
            SetLength(GetLength() - child->GetTotalLength());
        }
        return matches;
    });
    ForgetFrom(0);
}

void CZurBlockVector::RemoveAll() {
    children.clear();
    ForgetFrom(0);
    SetLength(kCountSize);
}

std::vector<std::unique_ptr<CZurRawBlock>> CZurBlockVector::TakeAll() {
    std::vector<std::unique_ptr<CZurRawBlock>> taken(std::make_move_iterator(children.begin()),
                                                     std::make_move_iterator(children.end()));
    for (const auto& child : taken) {
        MarkListed(*child, false);
    }
    RemoveAll();
    return taken;
}

void CZurBlockVector::CopyChildren(const CZurBlockVector& other) {
    SetLength(kCountSize);
    for (const auto& child : other.children) {
        AddChild(child->Clone(), -1);
    }
}

void CZurBlockVector::MakeRoom(std::size_t count) {
    const std::size_t needed = children.size() + count;
    if (needed > children.capacity()) {
        children.reserve(std::max(needed, 2 * children.size()));
    }
}

std::int32_t CZurBlockVector::PositionOf(std::uint32_t id, std::int32_t occurrence) const {
    if (occurrence < 0) {
        return Count();
    }
    const std::uint64_t renamings = Renamings();
    if (finger.renamings != renamings || finger.id != id || finger.before > occurrence) {
        finger = {renamings, id, 0, 0};
    }
    for (; finger.position < Count(); ++finger.position) {
        if (children[static_cast<std::size_t>(finger.position)]->GetID() != id) {
            continue;
        }
        if (finger.before == occurrence) {
            break;
        }
        ++finger.before;
    }
    return finger.position;
}

void CZurBlockVector::MarkListed(CZurBlock& child, bool listed) {
    child.listed = listed;
}

void CZurBlockVector::ForgetFrom(std::int32_t position) {
    if (position < finger.position) {
        finger = {};
    }
}
