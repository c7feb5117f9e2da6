#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>

#include "params/composite.h"
#include "params/param_port.h"
#include "params/raw_block.h"

/// A composite parameter block: a leaf that holds one composite, so that a composite can be the
/// child of another, be cloned like any leaf and be reached by parameter numbers. It owns what it
/// holds. Stored, its payload is the held composite as a whole block, or nothing.
///
/// Beyond the port's own numbers 0 to 4 it answers 50 (get and set the held composite; a set takes
/// ownership) and 51 (do: delete it); all others go to the held composite and succeed when nothing
/// is held. It counts four bytes, all zero, as its own; with any other length it counts as holding
/// nothing.
class ORBIX_API CZurCPB : public CZurRawBlock, public CZurParamPort {
public:
    explicit CZurCPB(std::uint32_t id);
    /// Reads the header of a stored block of any identifier and keeps no more than that
    /// identifier; a concrete class reads the composite that follows.
    explicit CZurCPB(std::strstream* stream);
    /// Holds nothing: a concrete class copies the composite.
    CZurCPB(const CZurCPB& other);
    CZurCPB& operator=(const CZurCPB&) = delete;
    ~CZurCPB() override;

    void WritePayload(std::strstream* stream) const override;  // 10
    /// Empties the held composite and reads it anew, its children typed.
    void ReadPayload(std::strstream* stream) override;  // 11
    /// Gives one `CZurComposite*`, borrowed, null when nothing is held.
    void GetValue(void* target) const override;  // 17
    /// Whether both hold equal composites, or both nothing; never equal to another kind of block.
    bool IsEqual(const CZurRawBlock& other) const override;  // 18
    std::unique_ptr<CZurRawBlock> Clone() const override;    // 19

    bool GetParamEx(std::uint32_t id, void* value, std::uint32_t size) const override;  // 5
    bool SetParamEx(std::uint32_t id, void* value, std::uint32_t size) override;        // 6
    bool DoParamEx(std::uint32_t id, void* value, std::uint32_t size) override;         // 7

protected:
    /// The held composite, borrowed; null when it counts as holding nothing.
    CZurComposite* Held() const;

    /// Makes the composite and holds it; without memory the block holds nothing.
    template <typename Composite, typename... Arguments>
    void HoldNew(Arguments&&... arguments) {
        try {
            held = std::make_unique<Composite>(std::forward<Arguments>(arguments)...);
        } catch (const std::bad_alloc&) {
            NoteSwallowedFailure();
            held = nullptr;
        }
    }

    /// Holds a copy of what `other` holds, if that is anything.
    template <typename Composite>
    void HoldCopyOf(const CZurCPB& other) {
        if (const auto* source = dynamic_cast<const Composite*>(other.Held())) {
            HoldNew<Composite>(*source);
        }
    }

private:
    std::array<std::uint8_t, 4> storage = {};
    std::unique_ptr<CZurComposite> held;
};
