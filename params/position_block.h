#pragma once

#include <cstdint>
#include <memory>

#include "params/composite.h"
#include "params/cpb.h"

/// One placement of one sound source: when, which 3D ID, where. All of it lives in one child, 2800,
/// of 14 bytes, numbers big-endian:
///
/// | parameter | bytes | meaning | a set limits it to |
/// |---|---|---|---|
/// | 2800 | 0-3 | tick, in the pattern's division | 999,999,999 |
/// | 2801 | 4 | 3D ID | 3 |
/// | 2802 | 5 | none | 15 |
/// | 2803 | 6 | none | 2 |
/// | 2804 | 7-8 | azimuth in wire form, degrees / 3 + 64 | 123 |
/// | 2805 | 9 | elevation in wire form, degrees / 3 + 64 | 94 |
/// | 2806 | 10-13 | distance in millimetres | 0x7FFFFFFF |
///
/// The narrow ones, 2801 to 2805, are signed when set; a negative number becomes 0, but 4 for
/// 2804 and 34 for 2805. Gets give what is stored, unlimited, and 0 for bytes that a short child
/// lacks; a set needs its bytes to be there.
class ORBIX_API CQelComposite_3DPosition : public CZurComposite {
public:
    /// All parameters 0.
    CQelComposite_3DPosition();
    explicit CQelComposite_3DPosition(std::strstream* stream);
    CQelComposite_3DPosition(const CQelComposite_3DPosition& other);
    CQelComposite_3DPosition& operator=(const CQelComposite_3DPosition&) = default;
    ~CQelComposite_3DPosition() override;

    bool Get(std::uint32_t id, void* value, std::uint32_t size) const override;  // 17
    bool Set(std::uint32_t id, void* value, std::uint32_t size) override;        // 18
    void BuildChildren() override;                                               // 21
    void ReadChild(std::strstream* stream) override;                             // 22
    /// Writes the System Exclusive message that places the source on the device: 18 bytes in all
    /// cases, zeros in the place of a parameter that cannot be got.
    void WriteDeviceMessage(std::strstream* stream) const override;  // 25
    std::uint32_t GetFirstGetParam() const override;                 // 27
    std::uint32_t GetGetParamLimit() const override;                 // 28
    std::uint32_t GetFirstSetParam() const override;                 // 30
    std::uint32_t GetSetParamLimit() const override;                 // 31

private:
    /// The parameter as it is stored; 0 when it cannot be got.
    std::uint32_t Parameter(std::uint32_t id) const;
};

/// A position event of a pattern, and, standing alone, the device command of a single placement.
class ORBIX_API CQelCPB_3DPosition : public CZurCPB {
public:
    CQelCPB_3DPosition();
    /// Reads a stored block; with a null stream it holds nothing.
    explicit CQelCPB_3DPosition(std::strstream* stream);
    CQelCPB_3DPosition(const CQelCPB_3DPosition& other);
    ~CQelCPB_3DPosition() override;

    std::unique_ptr<CZurRawBlock> Clone() const override;  // 19
};
