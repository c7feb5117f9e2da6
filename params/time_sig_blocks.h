#pragma once

#include <cstdint>
#include <memory>

#include "params/composite.h"
#include "params/cpb.h"
#include "sequence/musical_types.h"

/// One time signature: where it stands and its fraction. Children: 5800, 12 bytes with measure,
/// beat and tick as three little-endian words (the one place where stored numbers are not
/// big-endian); 5801, numerator; 5802, denominator; both 16 bits. Each child is a parameter of the
/// same number. A set refuses 0 for measure, beat, numerator and denominator; building and reading
/// do not look.
class ORBIX_API CQelComposite_TimeSig : public CZurComposite {
public:
    CQelComposite_TimeSig(std::uint32_t id, const t_MBT& time, std::uint16_t numerator,
                          std::uint16_t denominator);
    explicit CQelComposite_TimeSig(std::strstream* stream);
    CQelComposite_TimeSig(const CQelComposite_TimeSig& other);
    CQelComposite_TimeSig& operator=(const CQelComposite_TimeSig&) = default;
    ~CQelComposite_TimeSig() override;

    bool Get(std::uint32_t id, void* value, std::uint32_t size) const override;  // 17
    bool Set(std::uint32_t id, void* value, std::uint32_t size) override;        // 18
    void ReadChild(std::strstream* stream) override;                             // 22
    std::uint32_t GetFirstGetParam() const override;                             // 27
    std::uint32_t GetGetParamLimit() const override;                             // 28
    std::uint32_t GetFirstSetParam() const override;                             // 30
    std::uint32_t GetSetParamLimit() const override;                             // 31
    /// Makes the three children and appends them.
    virtual void BuildWith(const t_MBT& time, std::uint16_t numerator,
                           std::uint16_t denominator);  // 34
};

/// A time signature as a child of the list.
class ORBIX_API CQelCPB_TimeSig : public CZurCPB {
public:
    CQelCPB_TimeSig(std::uint32_t id, const t_MBT& time, std::uint16_t numerator,
                    std::uint16_t denominator);
    /// Reads a stored block; with a null stream it holds nothing.
    explicit CQelCPB_TimeSig(std::strstream* stream);
    CQelCPB_TimeSig(const CQelCPB_TimeSig& other);
    ~CQelCPB_TimeSig() override;

    std::unique_ptr<CZurRawBlock> Clone() const override;  // 19
};

/// The time signatures of a pattern, in the order in which the list was filled, each a child 5700.
/// Parameters: get 5700 their number; get and set 5701 one entry (a set with an index that does
/// not exist appends); get 5702 appends all to the caller's vector, set 5702 replaces the list;
/// do 5703 removes the child at a position, 5704 all entries. Blocks that a get gave may be handed
/// back to set 5702: they stay alive.
class ORBIX_API CQelComposite_TimeSigList : public CZurComposite {
public:
    CQelComposite_TimeSigList();
    explicit CQelComposite_TimeSigList(std::strstream* stream);
    CQelComposite_TimeSigList(const CQelComposite_TimeSigList& other);
    CQelComposite_TimeSigList& operator=(const CQelComposite_TimeSigList&) = default;
    ~CQelComposite_TimeSigList() override;

    bool Get(std::uint32_t id, void* value, std::uint32_t size) const override;  // 17
    bool Set(std::uint32_t id, void* value, std::uint32_t size) override;        // 18
    bool Do(std::uint32_t id, void* value, std::uint32_t size) override;         // 19
    void ReadChild(std::strstream* stream) override;                             // 22
    std::uint32_t GetFirstGetParam() const override;                             // 27
    std::uint32_t GetGetParamLimit() const override;                             // 28
    std::uint32_t GetFirstSetParam() const override;                             // 30
    std::uint32_t GetSetParamLimit() const override;                             // 31

private:
    bool GetTimeSigEntry(st_paramTimeSigEntry* entry) const;
    bool SetTimeSigEntry(const st_paramTimeSigEntry* entry);
    bool GetEntries(t_paramTimeSigEntryList* list) const;
    bool SetEntries(const t_paramTimeSigEntryList* list);
};

/// The time-signature list as a child of a pattern.
class ORBIX_API CQelCPB_TimeSigList : public CZurCPB {
public:
    explicit CQelCPB_TimeSigList(std::uint32_t id);
    /// Reads a stored block; with a null stream it holds nothing.
    explicit CQelCPB_TimeSigList(std::strstream* stream);
    CQelCPB_TimeSigList(const CQelCPB_TimeSigList& other);
    ~CQelCPB_TimeSigList() override;

    std::unique_ptr<CZurRawBlock> Clone() const override;  // 19
};
