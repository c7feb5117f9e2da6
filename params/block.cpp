#include "params/block.h"

#include <new>

#include "sequence/byte_stream.h"

namespace {

thread_local std::uint32_t swallowedFailures = 0;

}  // namespace

std::uint32_t SwallowedFailures() {
    return swallowedFailures;
}

void RaiseFailuresSince(std::uint32_t before) {
    if (swallowedFailures != before) {
        throw std::bad_alloc();
    }
}

void NoteSwallowedFailure() {
    ++swallowedFailures;
}

std::atomic<std::uint64_t> CZurBlock::renamings = 0;

CZurBlock::CZurBlock(std::uint32_t id, std::uint32_t length) : id(id), length(length) {}

CZurBlock::CZurBlock(const CZurBlock& other) : id(other.id), length(other.length) {}

CZurBlock& CZurBlock::operator=(const CZurBlock& other) {
    CZurBlock::SetID(other.id);
    length = other.length;
    return *this;
}

CZurBlock::CZurBlock(std::strstream* stream) {
    CZurBlock::ReadHeader(stream, true);
}

CZurBlock::~CZurBlock() = default;

std::uint32_t CZurBlock::GetID() const {
    return id;
}

void CZurBlock::SetID(std::uint32_t newId) {
    if (listed && id != newId) {
        renamings.fetch_add(1, std::memory_order_relaxed);
    }
    id = newId;
}

std::uint32_t CZurBlock::GetLength() const {
    return length;
}

void CZurBlock::SetLength(std::uint32_t newLength) {
    length = newLength;
}

std::uint32_t CZurBlock::GetTotalLength() const {
    return length + kBlockHeaderSize;
}

void CZurBlock::Write(std::strstream* stream) const {
    CZurByteStream out(stream, false);
    out << id;
    const std::int32_t lengthPosition = out.TellWrite();
    out << std::uint32_t{0};
    WritePayload(stream);
    WriteTrailer(stream);
    const std::int32_t endPosition = out.TellWrite();
    out.SeekWrite(lengthPosition);
    out << static_cast<std::uint32_t>(endPosition - lengthPosition - 4);
    out.SeekWrite(endPosition);
}

void CZurBlock::Read(std::strstream* stream, bool anyId) {
    if (!ReadHeader(stream, anyId)) {
        return;
    }
    ReadPayload(stream);
    ReadTrailer(stream);
}

bool CZurBlock::ReadHeader(std::strstream* stream, bool anyId) {
    std::uint32_t storedId = 0;
    if (!anyId && HoldsAnotherBlock(stream)) {
        CZurByteStream(stream, false).Peek(storedId);
    }
    if (!anyId && storedId != GetID()) {
        return false;
    }
    if (stream != nullptr) {
        CZurBlock::SetID(ReadStoredWord(stream));
        length = ReadStoredWord(stream);
    }
    return true;
}

void CZurBlock::WritePayload(std::strstream* /*stream*/) const {}

void CZurBlock::ReadPayload(std::strstream* /*stream*/) {}

void CZurBlock::WriteTrailer(std::strstream* /*stream*/) const {}

void CZurBlock::ReadTrailer(std::strstream* /*stream*/) {}

std::uint32_t ReadStoredWord(std::strstream* stream) {
    std::uint32_t word = 0;
    if (stream != nullptr && BytesLeft(*stream) >= sizeof word) {
        CZurByteStream(stream, false) >> word;
    }
    return word;
}

bool HoldsAnotherBlock(std::strstream* stream) {
    return stream != nullptr && BytesLeft(*stream) >= kBlockHeaderSize;
}
