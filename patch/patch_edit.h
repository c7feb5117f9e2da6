#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "params/param_block.h"

/// A parameter block being edited: identifier and bytes, with undo and redo of every change. Works
/// on a copy; the host's block is only read. One thread at a time.
class PatchEdit {
public:
    /// Longest payload that a change of length can ask for; a host's block may be longer.
    static constexpr std::uint32_t kMaxLength = 1U << 16U;

    /// `block` may be null: then the start is identifier 0 without bytes.
    explicit PatchEdit(const CZurParamBlock* block);

    std::uint32_t Identifier() const { return id_; }
    const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

    /// Each is one step of the history, unless it changes nothing.
    void SetIdentifier(std::uint32_t id);
    /// Cuts off at the end, or adds zeros there.
    void Resize(std::uint32_t length);
    /// Writes over what stands from `offset` on; the bytes must fit in.
    void Overwrite(std::size_t offset, const std::vector<std::uint8_t>& bytes);

    bool CanUndo() const { return done_ > 0; }
    bool CanRedo() const { return done_ < history_.size(); }
    void Undo();
    void Redo();

    /// The block as it stands now; null when there was none at the start and nothing was changed.
    std::unique_ptr<CZurParamBlock> MakeBlock() const;

private:
    /// From `offset` on the bytes `before` gave way to `after`.
    struct Step {
        std::uint32_t idBefore;
        std::uint32_t idAfter;
        std::size_t offset;
        std::vector<std::uint8_t> before;
        std::vector<std::uint8_t> after;
    };
    void Do(Step step);
    void Replace(std::size_t offset, std::size_t count, const std::vector<std::uint8_t>& bytes);

    bool hadBlock_;
    std::uint32_t id_ = 0;
    std::vector<std::uint8_t> bytes_;
    std::vector<Step> history_;
    std::size_t done_ = 0;  // steps in force; those behind can be redone
};
