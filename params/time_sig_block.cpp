#include <array>
#include <cstring>

#include "params/number_blocks.h"
#include "params/param_block.h"
#include "params/time_sig_blocks.h"
#include "sequence/byte_stream.h"

namespace {

constexpr std::uint32_t kTime = 5800;
constexpr std::uint32_t kNumerator = 5801;
constexpr std::uint32_t kDenominator = 5802;

using TimeBytes = std::array<std::uint8_t, 12>;

TimeBytes EncodeTime(const t_MBT& time) {
    TimeBytes bytes = {};
    EncodeLittleEndian32(time.measure, bytes.data());
    EncodeLittleEndian32(time.beat, bytes.data() + 4);
    EncodeLittleEndian32(time.tick, bytes.data() + 8);
    return bytes;
}

bool GetTime(const CZurRawBlock* block, st_paramTimeValue* record) {
    if (block == nullptr || record == nullptr) {
        return false;
    }
    TimeBytes bytes = {};
    block->GetData(bytes.data(), bytes.size());
    record->measure = DecodeLittleEndian32(bytes.data());
    record->beat = DecodeLittleEndian32(bytes.data() + 4);
    record->tick = DecodeLittleEndian32(bytes.data() + 8);
    return true;
}

bool SetTime(CZurRawBlock* block, const st_paramTimeValue* record) {
    if (block == nullptr || record == nullptr || record->measure == 0 || record->beat == 0) {
        return false;
    }
    const TimeBytes bytes = EncodeTime({record->measure, record->beat, record->tick});
    if (block->GetLength() < bytes.size()) {
        return false;
    }
    block->SetData(bytes.data(), bytes.size());
    return true;
}

// The narrow number travels through a buffer of a whole word, so that a child of the wrong kind,
// which may move four bytes whatever the count, stays inside it.
using NarrowBuffer = std::array<std::uint16_t, 2>;

bool GetNarrow(const CZurComposite& composite, std::uint32_t id, st_paramValue* record) {
    NarrowBuffer number = {};
    st_paramData data{id, -1, number.data(), 2};
    if (record == nullptr || !composite.Get(8, &data, kSizeParamData)) {
        return false;
    }
    record->value = (record->value & 0xFFFF0000U) | number[0];
    return true;
}

bool SetNarrow(CZurComposite& composite, std::uint32_t id, const st_paramValue* record) {
    if (record == nullptr || (record->value & 0xFFFFU) == 0) {
        return false;
    }
    NarrowBuffer number = {static_cast<std::uint16_t>(record->value)};
    st_paramData data{id, -1, number.data(), 2};
    return composite.Set(8, &data, kSizeParamData);
}

std::unique_ptr<CZurRawBlock> ReadTimeSigChild(std::strstream* stream) {
    std::uint32_t id = 0;
    CZurByteStream(stream, false).Peek(id);
    if (id == kNumerator || id == kDenominator) {
        return std::make_unique<CZurShortParamBlock>(stream);
    }
    return std::make_unique<CZurParamBlock>(stream, true);
}

}  // namespace

CQelComposite_TimeSig::CQelComposite_TimeSig(std::uint32_t id, const t_MBT& time,
                                             std::uint16_t numerator, std::uint16_t denominator)
    : CZurComposite(id, 0) {
    CQelComposite_TimeSig::BuildWith(time, numerator, denominator);
}

CQelComposite_TimeSig::CQelComposite_TimeSig(std::strstream* stream) : CZurComposite(0, 0) {
    ReadTree(stream);
}

CQelComposite_TimeSig::CQelComposite_TimeSig(const CQelComposite_TimeSig& other) = default;

CQelComposite_TimeSig::~CQelComposite_TimeSig() = default;

bool CQelComposite_TimeSig::Get(std::uint32_t id, void* value, std::uint32_t size) const {
    switch (id) {
        case kTime:
            return GetTime(FindChild(kTime, -1),
                           FormAt<st_paramTimeValue>(value, size, kSizeParamTimeValue));
        case kNumerator:
        case kDenominator:
            return GetNarrow(*this, id, FormAt<st_paramValue>(value, size, kSizeParamValue));
        default:
            return CZurComposite::Get(id, value, size);
    }
}

bool CQelComposite_TimeSig::Set(std::uint32_t id, void* value, std::uint32_t size) {
    switch (id) {
        case kTime:
            return SetTime(FindChild(kTime, -1),
                           FormAt<st_paramTimeValue>(value, size, kSizeParamTimeValue));
        case kNumerator:
        case kDenominator:
            return SetNarrow(*this, id, FormAt<st_paramValue>(value, size, kSizeParamValue));
        default:
            return CZurComposite::Set(id, value, size);
    }
}

void CQelComposite_TimeSig::ReadChild(std::strstream* stream) {
    try {
        AddChild(ReadTimeSigChild(stream), -1);
    } catch (...) {
        NoteSwallowedFailure();  // a child that cannot be read is left out
    }
}

std::uint32_t CQelComposite_TimeSig::GetFirstGetParam() const {
    return 5800;
}

std::uint32_t CQelComposite_TimeSig::GetGetParamLimit() const {
    return 5803;
}

std::uint32_t CQelComposite_TimeSig::GetFirstSetParam() const {
    return 5800;
}

std::uint32_t CQelComposite_TimeSig::GetSetParamLimit() const {
    return 5803;
}

void CQelComposite_TimeSig::BuildWith(const t_MBT& time, std::uint16_t numerator,
                                      std::uint16_t denominator) {
    const TimeBytes bytes = EncodeTime(time);
    AddChild(std::make_unique<CZurParamBlock>(kTime, bytes.data(), bytes.size()), -1);
    AddChild(std::make_unique<CZurShortParamBlock>(kNumerator, numerator), -1);
    AddChild(std::make_unique<CZurShortParamBlock>(kDenominator, denominator), -1);
}

CQelCPB_TimeSig::CQelCPB_TimeSig(std::uint32_t id, const t_MBT& time, std::uint16_t numerator,
                                 std::uint16_t denominator)
    : CZurCPB(id) {
    HoldNew<CQelComposite_TimeSig>(0U, time, numerator, denominator);
}

CQelCPB_TimeSig::CQelCPB_TimeSig(std::strstream* stream) : CZurCPB(stream) {
    if (stream != nullptr) {
        HoldNew<CQelComposite_TimeSig>(stream);
    }
}

CQelCPB_TimeSig::CQelCPB_TimeSig(const CQelCPB_TimeSig& other) : CZurCPB(other) {
    HoldCopyOf<CQelComposite_TimeSig>(other);
}

CQelCPB_TimeSig::~CQelCPB_TimeSig() = default;

std::unique_ptr<CZurRawBlock> CQelCPB_TimeSig::Clone() const {
    return std::make_unique<CQelCPB_TimeSig>(*this);
}
