#include "params/position_block.h"

#include <algorithm>
#include <array>

#include "params/device_message.h"
#include "params/param_block.h"
#include "sequence/byte_stream.h"

namespace {

constexpr std::uint32_t kPlacement = 2800;
constexpr std::uint32_t kPlacementSize = 14;

struct Field {
    std::uint32_t offset;
    std::uint32_t width;       // bytes; 4 is unsigned, narrower ones are signed when set
    std::int32_t forNegative;  // what a negative number becomes
    std::uint32_t most;
};

constexpr std::array<Field, 7> kFields = {{
    {0, 4, 0, 999'999'999},  // tick
    {4, 1, 0, 3},            // 3D ID
    {5, 1, 0, 15},
    {6, 1, 0, 2},
    {7, 2, 4, 123},          // azimuth: -180 to 177 degrees
    {9, 1, 34, 94},          // elevation: -90 to 90 degrees
    {10, 4, 0, 0x7FFFFFFF},  // distance
}};

const Field* FieldOf(std::uint32_t id) {
    const std::uint32_t number = id - kPlacement;
    return number < kFields.size() ? &kFields[number] : nullptr;
}

CZurRawBlock* PlacementOf(const CZurComposite& composite) {
    st_paramChild child{kPlacement, -1, nullptr};
    return composite.Get(7, &child, kSizeParamChild) ? child.block : nullptr;
}

std::uint32_t Decode(const Field& field, const CZurRawBlock& block) {
    std::array<std::uint8_t, 4> bytes = {};
    for (std::uint32_t i = 0; i < field.width; ++i) {
        bytes[4 - field.width + i] = block.GetByteAt(field.offset + i);
    }
    return DecodeBigEndian32(bytes.data());
}

void Encode(const Field& field, std::uint32_t number, CZurRawBlock& block) {
    std::array<std::uint8_t, 4> word = {};
    EncodeBigEndian32(number, word.data());
    std::array<std::uint8_t, kPlacementSize> bytes = {};
    block.GetData(bytes.data(), kPlacementSize);
    std::copy_n(word.end() - field.width, field.width, bytes.begin() + field.offset);
    block.SetData(bytes.data(), kPlacementSize);
}

/// The bits of a word that a parameter of this width may touch.
std::uint32_t MaskOf(const Field& field) {
    return 0xFFFFFFFFU >> (32 - 8 * field.width);
}

std::uint32_t Limited(const Field& field, std::uint32_t number) {
    const std::uint32_t narrow = number & MaskOf(field);
    const bool negative = field.width < 4 && (narrow >> (8 * field.width - 1)) != 0;
    return negative ? static_cast<std::uint32_t>(field.forNegative) : std::min(narrow, field.most);
}

bool GetField(const CZurComposite& composite, const Field& field, st_paramValue* record) {
    const auto* block = record == nullptr ? nullptr : PlacementOf(composite);
    if (block == nullptr) {
        return false;
    }
    record->value = (record->value & ~MaskOf(field)) | Decode(field, *block);
    return true;
}

bool SetField(const CZurComposite& composite, const Field& field, const st_paramValue* record) {
    auto* block = record == nullptr ? nullptr : PlacementOf(composite);
    if (block == nullptr || block->GetLength() < field.offset + field.width) {
        return false;
    }
    Encode(field, Limited(field, record->value), *block);
    return true;
}

}  // namespace

CQelComposite_3DPosition::CQelComposite_3DPosition() : CZurComposite(0, 0) {
    CQelComposite_3DPosition::BuildChildren();
}

CQelComposite_3DPosition::CQelComposite_3DPosition(std::strstream* stream) : CZurComposite(0, 0) {
    ReadTree(stream);
}

CQelComposite_3DPosition::CQelComposite_3DPosition(const CQelComposite_3DPosition& other) = default;

CQelComposite_3DPosition::~CQelComposite_3DPosition() = default;

bool CQelComposite_3DPosition::Get(std::uint32_t id, void* value, std::uint32_t size) const {
    if (const auto* field = FieldOf(id)) {
        return GetField(*this, *field, FormAt<st_paramValue>(value, size, kSizeParamValue));
    }
    return CZurComposite::Get(id, value, size);
}

bool CQelComposite_3DPosition::Set(std::uint32_t id, void* value, std::uint32_t size) {
    if (const auto* field = FieldOf(id)) {
        return SetField(*this, *field, FormAt<st_paramValue>(value, size, kSizeParamValue));
    }
    return CZurComposite::Set(id, value, size);
}

void CQelComposite_3DPosition::BuildChildren() {
    try {
        AddChild(std::make_unique<CZurParamBlock>(kPlacement, kPlacementSize), -1);
    } catch (...) {
        NoteSwallowedFailure();  // a block without its child fails each request
    }
}

void CQelComposite_3DPosition::ReadChild(std::strstream* stream) {
    try {
        AddChild(std::make_unique<CZurParamBlock>(stream, true), -1);
    } catch (...) {
        NoteSwallowedFailure();  // a child that cannot be read is left out
    }
}

void CQelComposite_3DPosition::WriteDeviceMessage(std::strstream* stream) const {
    const DeviceMessageBytes message = EncodeDeviceMessage(
        {static_cast<std::uint8_t>(Parameter(2801)), Parameter(2806),
         static_cast<std::uint8_t>(Parameter(2804)), static_cast<std::uint8_t>(Parameter(2805))});
    CZurByteStream(stream, false).WriteBytes(message.data(), kDeviceMessageSize);
}

std::uint32_t CQelComposite_3DPosition::GetFirstGetParam() const {
    return 2800;
}

std::uint32_t CQelComposite_3DPosition::GetGetParamLimit() const {
    return 2807;
}

std::uint32_t CQelComposite_3DPosition::GetFirstSetParam() const {
    return 2800;
}

std::uint32_t CQelComposite_3DPosition::GetSetParamLimit() const {
    return 2801;
}

std::uint32_t CQelComposite_3DPosition::Parameter(std::uint32_t id) const {
    st_paramValue record;
    Get(id, &record, kSizeParamValue);
    return record.value;
}

CQelCPB_3DPosition::CQelCPB_3DPosition() : CZurCPB(0U) {
    HoldNew<CQelComposite_3DPosition>();
}

CQelCPB_3DPosition::CQelCPB_3DPosition(std::strstream* stream) : CZurCPB(stream) {
    if (stream != nullptr) {
        HoldNew<CQelComposite_3DPosition>(stream);
    }
}

CQelCPB_3DPosition::CQelCPB_3DPosition(const CQelCPB_3DPosition& other) : CZurCPB(other) {
    HoldCopyOf<CQelComposite_3DPosition>(other);
}

CQelCPB_3DPosition::~CQelCPB_3DPosition() = default;

std::unique_ptr<CZurRawBlock> CQelCPB_3DPosition::Clone() const {
    return std::make_unique<CQelCPB_3DPosition>(*this);
}
