#include "patch/patch_edit.h"

#include <algorithm>
#include <utility>

#include "sequence/strstream.h"

namespace {

std::ptrdiff_t Distance(std::size_t count) {
    return static_cast<std::ptrdiff_t>(count);
}

// A block's length is a number that can be set above the bytes that it has; what it writes is
// what it has.
std::vector<std::uint8_t> PayloadOf(const CZurParamBlock& block) {
    std::strstream stream;
    block.WritePayload(&stream);
    const char* const begin = stream.str();
    std::vector<std::uint8_t> bytes(begin, begin + stream.pcount());
    stream.freeze(false);
    return bytes;
}

}  // namespace

PatchEdit::PatchEdit(const CZurParamBlock* block) : hadBlock_(block != nullptr) {
    if (block != nullptr) {
        id_ = block->GetID();
        bytes_ = PayloadOf(*block);
    }
}

void PatchEdit::SetIdentifier(std::uint32_t id) {
    if (id != id_) {
        Do({id_, id, 0, {}, {}});
    }
}

void PatchEdit::Resize(std::uint32_t length) {
    const std::size_t kept = std::min<std::size_t>(length, bytes_.size());
    if (length != bytes_.size()) {
        Do({id_,
            id_,
            kept,
            {bytes_.begin() + Distance(kept), bytes_.end()},
            std::vector<std::uint8_t>(length - kept)});
    }
}

void PatchEdit::Overwrite(std::size_t offset, const std::vector<std::uint8_t>& bytes) {
    const auto begin = bytes_.begin() + Distance(offset);
    std::vector<std::uint8_t> before(begin, begin + Distance(bytes.size()));
    if (bytes != before) {
        Do({id_, id_, offset, std::move(before), bytes});
    }
}

void PatchEdit::Do(Step step) {
    history_.resize(done_);
    history_.push_back(std::move(step));
    Redo();
}

void PatchEdit::Replace(std::size_t offset, std::size_t count,
                        const std::vector<std::uint8_t>& bytes) {
    const auto begin = bytes_.begin() + Distance(offset);
    const auto place = bytes_.erase(begin, begin + Distance(count));
    bytes_.insert(place, bytes.begin(), bytes.end());
}

void PatchEdit::Undo() {
    if (CanUndo()) {
        const Step& step = history_[--done_];
        id_ = step.idBefore;
        Replace(step.offset, step.after.size(), step.before);
    }
}

void PatchEdit::Redo() {
    if (CanRedo()) {
        const Step& step = history_[done_++];
        id_ = step.idAfter;
        Replace(step.offset, step.before.size(), step.after);
    }
}

std::unique_ptr<CZurParamBlock> PatchEdit::MakeBlock() const {
    if (!hadBlock_ && !CanUndo()) {
        return nullptr;
    }
    return std::make_unique<CZurParamBlock>(id_, bytes_.data(),
                                            static_cast<std::uint32_t>(bytes_.size()));
}
