#include "params/raw_block.h"

#include <algorithm>
#include <cstring>

#include "sequence/byte_stream.h"

CZurRawBlock::CZurRawBlock(std::uint32_t id, std::uint32_t length)
    : CZurRawBlock(id, nullptr, length) {}

CZurRawBlock::CZurRawBlock(std::uint32_t id, const void* source, std::uint32_t length)
    : CZurBlock(id, length) {
    Replace(length);
    CZurRawBlock::SetData(source, length);
}

CZurRawBlock::CZurRawBlock(std::strstream* stream, bool /*anyId*/) : CZurBlock(stream) {
    CZurRawBlock::ReadPayload(stream);
}

CZurRawBlock::CZurRawBlock(const CZurRawBlock& other) : CZurBlock(other) {
    Replace(static_cast<std::uint32_t>(other.data.size()));
    std::ranges::copy(other.data, data.begin());
}

CZurRawBlock::CZurRawBlock(std::uint32_t id, InObject where)
    : CZurBlock(id, static_cast<std::uint32_t>(where.storage.size())), data(where.storage) {}

CZurRawBlock& CZurRawBlock::operator=(const CZurRawBlock& other) {
    if (this != &other) {
        Replace(static_cast<std::uint32_t>(other.data.size()));
        std::ranges::copy(other.data, data.begin());
        CZurBlock::operator=(other);
    }
    return *this;
}

CZurRawBlock::~CZurRawBlock() = default;

void CZurRawBlock::WritePayload(std::strstream* stream) const {
    const auto bytes = Bytes();
    CZurByteStream(stream, false).WriteBytes(bytes.data(), static_cast<std::int32_t>(bytes.size()));
}

void CZurRawBlock::ReadPayload(std::strstream* stream) {
    if (stream == nullptr) {
        return;
    }
    // The stored length is only a claim, so memory is taken for what is really there.
    const std::uint32_t count = std::min(GetLength(), BytesLeft(*stream));
    Replace(count);
    SetLength(count);
    CZurByteStream(stream, false).ReadBytes(data.data(), static_cast<std::int32_t>(count));
}

void CZurRawBlock::SetData(const void* source, std::uint32_t count) {
    const auto bytes = Bytes();
    if (source != nullptr && count != 0 && !bytes.empty()) {
        std::memcpy(bytes.data(), source, std::min<std::size_t>(count, bytes.size()));
    }
}

void CZurRawBlock::SetValue(const void* source) {
    SetData(source, 1);
}

void CZurRawBlock::GetData(void* target, std::uint32_t count) const {
    const auto bytes = Bytes();
    if (target != nullptr && count != 0 && !bytes.empty()) {
        std::memcpy(target, bytes.data(), std::min<std::size_t>(count, bytes.size()));
    }
}

void CZurRawBlock::GetValue(void* target) const {
    GetData(target, 1);
}

bool CZurRawBlock::IsEqual(const CZurRawBlock& other) const {
    if (this == &other) {
        return true;
    }
    return GetID() == other.GetID() && GetLength() == other.GetLength() &&
           std::ranges::equal(Bytes(), other.Bytes());
}

std::unique_ptr<CZurRawBlock> CZurRawBlock::Clone() const {
    return std::make_unique<CZurRawBlock>(*this);
}

std::uint8_t CZurRawBlock::GetByteAt(std::uint32_t index) const {
    const auto bytes = Bytes();
    return index < bytes.size() ? bytes[index] : std::uint8_t{0};
}

void CZurRawBlock::ReadInPlace(std::strstream* stream) {
    if (stream == nullptr) {
        return;
    }
    std::ranges::fill(data, std::uint8_t{0});
    CZurByteStream in(stream, false);
    const std::uint32_t stored = std::min(GetLength(), BytesLeft(*stream));
    const auto room = static_cast<std::uint32_t>(data.size());
    in.ReadBytes(data.data(), static_cast<std::int32_t>(std::min(stored, room)));
    if (stored > room) {
        in.SeekRead(in.TellRead() + static_cast<std::int32_t>(stored - room));
    }
    SetLength(std::min(GetLength(), room));
}

std::span<std::uint8_t> CZurRawBlock::Bytes() const {
    return data.first(std::min<std::size_t>(GetLength(), data.size()));
}

void CZurRawBlock::Replace(std::uint32_t count) {
    buffer = count == 0 ? nullptr : std::make_unique<std::uint8_t[]>(count);
    data = {buffer.get(), count};
}
