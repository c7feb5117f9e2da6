#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "sequence/strstream.h"

class CQelCPB_TimeSig;
class CQelCPB_TimeSigList;
class CZurComposite;
class CZurRawBlock;

/// The records that pass through a parameter port. A call is (id, value, size): `value` points at
/// one of these records and `size` is the tag that names its form, compared for equality before
/// anything is touched. The tags are fixed numbers; a record may be wider than its tag says,
/// because a pointer does not fit into a 32-bit word. Never pass `sizeof`.
inline constexpr std::uint32_t kSizeReference = 4;
inline constexpr std::uint32_t kSizeParamValue = 8;
inline constexpr std::uint32_t kSizeParamBytes = 8;
inline constexpr std::uint32_t kSizeParamChild = 12;
inline constexpr std::uint32_t kSizeParamData = 16;
inline constexpr std::uint32_t kSizeParamStream = 16;
inline constexpr std::uint32_t kSizeIdList = 16;
inline constexpr std::uint32_t kSizeParamTimeValue = 16;
inline constexpr std::uint32_t kSizeTimeSigEntryList = 16;
inline constexpr std::uint32_t kSizeParamTimeSigEntry = 20;
inline constexpr std::uint32_t kSizeParamTimeSig = 24;
inline constexpr std::uint32_t kSizeParamName = 28;

/// In the place of an identifier: any child, so that the index alone counts.
inline constexpr std::uint32_t kAnyBlock = 0xFFFFFFFFU;

/// A number. `selector` picks one of several like children, -1 for a parameter that exists once.
/// A byte value sits in the lowest byte of `value`, a 16-bit value in its low half, and a get
/// touches no more than that. `reference` serves request 50 of a composite block only: borrowed
/// on a get, owned by the block after a set.
struct st_paramValue {
    std::int32_t selector = -1;
    std::uint32_t value = 0;
    CZurComposite* reference = nullptr;
};

/// A stretch of the caller's memory, `count` bytes at `data`.
struct st_paramBytes {
    void* data = nullptr;
    std::uint32_t count = 0;
};

/// A child block: occurrence number `index` among those with `id`. Borrowed on a get; a set passes
/// ownership, unless it gives false or raises.
struct st_paramChild {
    std::uint32_t id = 0;
    std::int32_t index = -1;
    CZurRawBlock* block = nullptr;
};

/// The bytes of a child block, copied from or to the caller's memory.
struct st_paramData {
    std::uint32_t id = 0;
    std::int32_t index = -1;
    void* data = nullptr;
    std::uint32_t count = 0;
};

/// A stream to write to or read from. `flag` not 0: a read takes a block of any identifier.
struct st_paramStream {
    std::uint8_t flag = 0;
    std::uint32_t count = 0;
    std::uint32_t reserved = 0;
    std::strstream* stream = nullptr;
};

/// A place in musical time; measure and beat count from 1, tick from 0.
struct st_paramTimeValue {
    std::int32_t selector = -1;
    std::uint32_t measure = 1;
    std::uint32_t beat = 1;
    std::uint32_t tick = 0;
};

/// A name, ended by a zero inside its 24 characters.
struct st_paramName {
    std::uint32_t reserved = 0;
    char name[24] = {};

    st_paramName() = default;
    /// Takes at most the first 23 characters of `text`.
    explicit st_paramName(std::string_view text) { text.copy(name, sizeof name - 1); }
};

/// An entry of the time-signature list. Gets leave the three time words alone: the time of an
/// entry is read from its block. Ownership as of a child block.
struct st_paramTimeSigEntry {
    std::int32_t index = -1;
    std::uint32_t measure = 1;
    std::uint32_t beat = 1;
    std::uint32_t tick = 0;
    CQelCPB_TimeSig* block = nullptr;
};

/// The fraction of time signature number `index`, each a 16-bit value in the low half of its
/// word. No operation reads the words between.
struct st_paramTimeSig {
    std::int32_t index = -1;
    std::uint32_t unused[3] = {};
    std::uint32_t numerator = 0;
    std::uint32_t denominator = 0;
};

/// A time signature as a pattern gives and takes it. No total tick, and another word order than
/// the records of the time-signature map.
struct t_tSigRec {
    std::uint32_t reserved = 0;
    std::uint32_t measure = 1;
    std::uint32_t beat = 1;
    std::uint32_t tick = 0;
    std::uint32_t numerator = 4;
    std::uint32_t denominator = 4;

    bool operator==(const t_tSigRec&) const = default;
};

/// The two reference forms, both under `kSizeReference`: the caller's vector of time signatures,
/// and the time-signature list itself.
struct st_paramTimeSigRecords {
    std::vector<t_tSigRec>* records = nullptr;
};
struct st_paramTimeSigList {
    CQelCPB_TimeSigList* list = nullptr;
};

/// The two vector forms: the value pointer is the vector itself.
using t_paramIdList = std::vector<std::uint32_t>;
using t_paramTimeSigEntryList = std::vector<st_paramTimeSigEntry>;

/// The record behind a port call's value pointer, or null when the tag is another or there is
/// no record.
template <typename Form>
Form* FormAt(void* value, std::uint32_t size, std::uint32_t tag) {
    return size == tag ? static_cast<Form*>(value) : nullptr;
}
