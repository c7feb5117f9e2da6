#include "params/pattern_block.h"

#include <utility>
#include <vector>

#include "params/number_blocks.h"
#include "params/param_block.h"
#include "params/pattern_parameters.h"
#include "params/position_block.h"
#include "params/time_sig_blocks.h"
#include "sequence/byte_stream.h"

namespace {

constexpr std::uint32_t kReservedSize = 24;
constexpr std::uint32_t kNameSize = 17;
constexpr std::uint32_t kDefaultDivision = 480;

/// A list with the default time signature, 4/4 at the very start.
std::unique_ptr<CZurRawBlock> DefaultTimeSigList() {
    auto list = std::make_unique<CQelCPB_TimeSigList>(kTimeSigListBlock);
    FillTimeSigList(*list, {t_tSigRec()});
    return list;
}

std::unique_ptr<CZurRawBlock> ReadPatternChild(std::uint32_t id, std::strstream* stream) {
    switch (id) {
        case kNumberBlock:
        case kDivisionBlock:
            return std::make_unique<CZurIntParamBlock>(stream);
        case kPositionBlock:
            return std::make_unique<CQelCPB_3DPosition>(stream);
        case kTimeSigListBlock:
            return std::make_unique<CQelCPB_TimeSigList>(stream);
        default:
            return std::make_unique<CZurParamBlock>(stream, true);
    }
}

std::uint32_t ReadNumber(std::strstream* stream) {
    std::uint32_t number = 0;
    CZurIntParamBlock(stream).GetValue(&number);
    return number;
}

}  // namespace

CQelComposite_3DPattern::CQelComposite_3DPattern() : CZurComposite(0, 0) {
    CQelComposite_3DPattern::BuildChildren();
    CQelComposite_3DPattern::SetDefaults();
}

CQelComposite_3DPattern::CQelComposite_3DPattern(const CQelComposite_3DPattern& other) = default;

CQelComposite_3DPattern::~CQelComposite_3DPattern() = default;

bool CQelComposite_3DPattern::Get(std::uint32_t id, void* value, std::uint32_t size) const {
    switch (id) {
        case 2900:
            return GetPosition(*this, FormAt<st_paramChild>(value, size, kSizeParamChild));
        case 2901: {
            st_paramValue count{static_cast<std::int32_t>(kPositionBlock)};
            auto* record = FormAt<st_paramValue>(value, size, kSizeParamValue);
            if (record == nullptr || !CZurComposite::Get(6, &count, kSizeParamValue)) {
                return false;
            }
            record->value = count.value;
            return true;
        }
        case 2902:
            return GetName(*this, FormAt<st_paramName>(value, size, kSizeParamName));
        case 2903:
            return GetNumber(*this, kNumberBlock,
                             FormAt<st_paramValue>(value, size, kSizeParamValue));
        case 2912:
            return GetFraction(*this, FormAt<st_paramTimeSig>(value, size, kSizeParamTimeSig));
        case 2913:
            return GetNumber(*this, kDivisionBlock,
                             FormAt<st_paramValue>(value, size, kSizeParamValue));
        case 2914:
            return GetTimeSigs(*this, FormAt<st_paramTimeSigRecords>(value, size, kSizeReference));
        case 2915:
            return GetTimeSigList(*this, FormAt<st_paramTimeSigList>(value, size, kSizeReference));
        default:
            break;
    }
    if (id >= 2904 && id <= 2910) {
        return GetPositionField(*this, id - 2904 + 2800,
                                FormAt<st_paramValue>(value, size, kSizeParamValue));
    }
    return CZurComposite::Get(id, value, size);
}

bool CQelComposite_3DPattern::Set(std::uint32_t id, void* value, std::uint32_t size) {
    switch (id) {
        case 2900:
            return SetPosition(*this, FormAt<st_paramChild>(value, size, kSizeParamChild));
        case 2902:
            return SetName(*this, FormAt<st_paramName>(value, size, kSizeParamName));
        case 2903:
            return SetNumber(*this, kNumberBlock,
                             FormAt<st_paramValue>(value, size, kSizeParamValue));
        case 2912:
            return SetFraction(*this, FormAt<st_paramTimeSig>(value, size, kSizeParamTimeSig));
        case 2913:
            return SetNumber(*this, kDivisionBlock,
                             FormAt<st_paramValue>(value, size, kSizeParamValue));
        case 2914:
            return SetTimeSigs(*this, FormAt<st_paramTimeSigRecords>(value, size, kSizeReference));
        case 2915:
            return AppendTimeSigList(*this,
                                     FormAt<st_paramTimeSigList>(value, size, kSizeReference));
        default:
            break;
    }
    if (id >= 2904 && id <= 2910) {
        return SetPositionField(*this, id - 2904 + 2800,
                                FormAt<st_paramValue>(value, size, kSizeParamValue));
    }
    return CZurComposite::Set(id, value, size);
}

bool CQelComposite_3DPattern::Do(std::uint32_t id, void* value, std::uint32_t size) {
    if (id == 2911) {
        st_paramValue positions{-1, kPositionBlock};
        return CZurComposite::Do(10, &positions, kSizeParamValue);
    }
    return CZurComposite::Do(id, value, size);
}

void CQelComposite_3DPattern::BuildChildren() {
    try {
        std::vector<std::unique_ptr<CZurRawBlock>> made;
        made.push_back(std::make_unique<CZurParamBlock>(kReservedBlock, kReservedSize));
        made.push_back(std::make_unique<CZurParamBlock>(kNameBlock, kNameSize));
        made.push_back(std::make_unique<CZurIntParamBlock>(kNumberBlock));
        made.push_back(std::make_unique<CZurIntParamBlock>(kDivisionBlock, kDefaultDivision));
        made.push_back(DefaultTimeSigList());
        for (auto& block : made) {
            AddChild(std::move(block), -1);
        }
    } catch (...) {
        NoteSwallowedFailure();  // requests on missing blocks fail
    }
}

void CQelComposite_3DPattern::ReadChild(std::strstream* stream) {
    try {
        std::uint32_t id = 0;
        CZurByteStream(stream, false).Peek(id);
        if (id == kOldNumeratorBlock) {
            oldNumerator = ReadNumber(stream);
        } else if (id == kOldDenominatorBlock) {
            oldDenominator = ReadNumber(stream);
        } else {
            AddChild(ReadPatternChild(id, stream), -1);
        }
    } catch (...) {
        NoteSwallowedFailure();  // a child that cannot be read is left out
    }
}

void CQelComposite_3DPattern::OnReadDone() {
    if (CountOf(kTimeSigListBlock) == 0) {
        AddChild(DefaultTimeSigList(), -1);
    }
    if (CountOf(kDivisionBlock) == 0) {
        AddChild(std::make_unique<CZurIntParamBlock>(kDivisionBlock, kDefaultDivision), -1);
    }
    ApplyOldMetre();
}

void CQelComposite_3DPattern::SetDefaults() {
    st_paramName name("New Pattern");
    CQelComposite_3DPattern::Set(2902, &name, kSizeParamName);
}

std::uint32_t CQelComposite_3DPattern::GetFirstGetParam() const {
    return 2900;
}

std::uint32_t CQelComposite_3DPattern::GetGetParamLimit() const {
    return 2916;
}

std::uint32_t CQelComposite_3DPattern::GetFirstSetParam() const {
    return 2900;
}

std::uint32_t CQelComposite_3DPattern::GetSetParamLimit() const {
    return 2908;
}

void CQelComposite_3DPattern::ApplyOldMetre() {
    st_paramValue numerator{-1, std::exchange(oldNumerator, 0)};
    st_paramValue denominator{-1, std::exchange(oldDenominator, 0)};
    st_paramTimeSigList list;
    st_paramTimeSigEntry first{0};
    if (GetTimeSigList(*this, &list) && list.list->GetParam(5701, &first, kSizeParamTimeSigEntry) &&
        first.block != nullptr) {
        // 0 stands for a metre that was not told, and a set refuses it.
        first.block->SetParam(5801, &numerator, kSizeParamValue);
        first.block->SetParam(5802, &denominator, kSizeParamValue);
    }
}

CQelCPB_3DPattern::CQelCPB_3DPattern() : CZurCPB(0U) {
    HoldNew<CQelComposite_3DPattern>();
}

CQelCPB_3DPattern::CQelCPB_3DPattern(const CQelCPB_3DPattern& other) : CZurCPB(other) {
    HoldCopyOf<CQelComposite_3DPattern>(other);
}

CQelCPB_3DPattern::~CQelCPB_3DPattern() = default;

std::unique_ptr<CZurRawBlock> CQelCPB_3DPattern::Clone() const {
    return std::make_unique<CQelCPB_3DPattern>(*this);
}
