#pragma once

#include <cstdint>
#include <vector>

#include "params/composite.h"
#include "params/value_forms.h"

// The work behind the pattern's parameters, one pair of functions a parameter. A null record means
// a wrong size or no record, and fails.

inline constexpr std::uint32_t kReservedBlock = 2900;
inline constexpr std::uint32_t kNameBlock = 2901;
inline constexpr std::uint32_t kNumberBlock = 2902;
inline constexpr std::uint32_t kPositionBlock = 2903;
inline constexpr std::uint32_t kOldNumeratorBlock = 2904;
inline constexpr std::uint32_t kOldDenominatorBlock = 2905;
inline constexpr std::uint32_t kTimeSigListBlock = 2906;
inline constexpr std::uint32_t kDivisionBlock = 2907;

bool GetPosition(const CZurComposite& pattern, st_paramChild* record);
/// Takes ownership of the block, which must be a position block.
bool SetPosition(CZurComposite& pattern, st_paramChild* record);
/// `parameter` is that of the position block, 2800 to 2806.
bool GetPositionField(const CZurComposite& pattern, std::uint32_t parameter, st_paramValue* record);
bool SetPositionField(CZurComposite& pattern, std::uint32_t parameter, st_paramValue* record);

/// At most 23 characters, whatever the block holds.
bool GetName(const CZurComposite& pattern, st_paramName* record);
bool SetName(CZurComposite& pattern, st_paramName* record);

bool GetNumber(const CZurComposite& pattern, std::uint32_t block, st_paramValue* record);
bool SetNumber(CZurComposite& pattern, std::uint32_t block, const st_paramValue* record);

bool GetTimeSigList(const CZurComposite& pattern, st_paramTimeSigList* record);
/// Takes ownership of the list.
bool AppendTimeSigList(CZurComposite& pattern, const st_paramTimeSigList* record);
bool GetFraction(const CZurComposite& pattern, st_paramTimeSig* record);
bool SetFraction(CZurComposite& pattern, const st_paramTimeSig* record);
bool GetTimeSigs(const CZurComposite& pattern, const st_paramTimeSigRecords* record);
bool SetTimeSigs(CZurComposite& pattern, const st_paramTimeSigRecords* record);
/// Replaces the entries of a list. Raises `std::bad_alloc` and changes nothing without memory.
bool FillTimeSigList(CQelCPB_TimeSigList& list, const std::vector<t_tSigRec>& records);
