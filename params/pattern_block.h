#pragma once

#include <cstdint>
#include <memory>

#include "params/composite.h"
#include "params/cpb.h"

/// A 3D pattern: a name, a division, time signatures and position events. Its children, which are
/// also the stored order, are 24 reserved bytes (2900), the name in 17 bytes (2901), a number
/// without meaning (2902), the division in ticks per quarter note (2907), the time-signature list
/// (2906) and one block 2903 for each position event.
///
/// Parameters are numbered on their own; a number says nothing about the block of the same number:
///
/// | number | request | form | meaning |
/// |---|---|---|---|
/// | 2900 | get, set | `st_paramChild` | position event `index`; a set replaces it or appends |
/// | 2901 | get | `st_paramValue` | number of position events |
/// | 2902 | get, set | `st_paramName` | the name; a set cuts the caller's record to 16 characters |
/// | 2903 | get, set | `st_paramValue` | the number without meaning |
/// | 2904-2910 | get, set | `st_paramValue` | 2800 to 2806 of position event `selector` |
/// | 2911 | do | any | removes all position events |
/// | 2912 | get, set | `st_paramTimeSig` | the fraction of time signature `index` |
/// | 2913 | get, set | `st_paramValue` | the division; any number is stored |
/// | 2914 | get, set | `st_paramTimeSigRecords` | a get appends to the vector, a set replaces all |
/// | 2915 | get, set | `st_paramTimeSigList` | the list itself; a set appends another one |
///
/// A failed request leaves the record as it was, except that 2900 writes `id` and the cut of 2902.
class ORBIX_API CQelComposite_3DPattern : public CZurComposite {
public:
    /// "New Pattern", division 480, 4/4 from the start, no position event.
    CQelComposite_3DPattern();
    CQelComposite_3DPattern(const CQelComposite_3DPattern& other);
    CQelComposite_3DPattern& operator=(const CQelComposite_3DPattern&) = default;
    ~CQelComposite_3DPattern() override;

    bool Get(std::uint32_t id, void* value, std::uint32_t size) const override;  // 17
    bool Set(std::uint32_t id, void* value, std::uint32_t size) override;        // 18
    bool Do(std::uint32_t id, void* value, std::uint32_t size) override;         // 19
    void BuildChildren() override;                                               // 21
    void ReadChild(std::strstream* stream) override;                             // 22
    /// Completes what a stream left out: time signatures and division.
    void OnReadDone() override;                       // 23
    void SetDefaults() override;                      // 24
    std::uint32_t GetFirstGetParam() const override;  // 27
    std::uint32_t GetGetParamLimit() const override;  // 28
    std::uint32_t GetFirstSetParam() const override;  // 30
    std::uint32_t GetSetParamLimit() const override;  // 31

private:
    void ApplyOldMetre();

    /// A pattern of the older form tells its one metre in two blocks of their own, which may stand
    /// before the list: the numbers wait here until all children are in. 0: none.
    std::uint32_t oldNumerator = 0;
    std::uint32_t oldDenominator = 0;
};

/// The pattern as host and editor hand it round; its port reaches everything.
class ORBIX_API CQelCPB_3DPattern : public CZurCPB {
public:
    CQelCPB_3DPattern();
    CQelCPB_3DPattern(const CQelCPB_3DPattern& other);
    ~CQelCPB_3DPattern() override;

    std::unique_ptr<CZurRawBlock> Clone() const override;  // 19
};
