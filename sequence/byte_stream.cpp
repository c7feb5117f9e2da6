#include "sequence/byte_stream.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <type_traits>

std::uint8_t ReadStreamByte(std::strstream& stream) {
    if (!stream.good())
        throw -1;
    return static_cast<std::uint8_t>(stream.get());
}

std::uint32_t ReadVarLen(std::strstream& stream) {
    std::uint32_t value = 0;
    std::uint8_t byte = 0;
    do {
        byte = ReadStreamByte(stream);
        value = value << 7 | (byte & 0x7FU);
    } while (byte & 0x80U);
    return value;
}

void WriteVarLen(std::uint32_t value, std::strstream& stream) {
    std::array<std::uint8_t, 4> bytes{};
    const std::uint32_t count = EncodeVarLen(value, bytes.data());
    if (count == 0)
        stream.setstate(std::ios::failbit);
    for (std::uint32_t i = 0; i < count; ++i)
        stream.put(static_cast<char>(bytes[i]));
}

std::uint32_t EncodeVarLen(std::uint32_t value, std::uint8_t* buffer) {
    if (value > kLargestVarLen)
        return 0;
    const auto count = static_cast<std::uint32_t>(std::bit_width(value | 1U) + 6) / 7;
    for (std::uint32_t i = count; i-- > 0; value >>= 7)
        buffer[i] = static_cast<std::uint8_t>((value & 0x7FU) | (i + 1 < count ? 0x80U : 0U));
    return count;
}

std::uint32_t DecodeVarLen(const std::uint8_t* bytes) {
    std::uint32_t value = *bytes & 0x7FU;
    while (*bytes & 0x80U)
        value = value << 7 | (*++bytes & 0x7FU);
    return value;
}

void EncodeBigEndian32(std::uint32_t value, std::uint8_t* buffer) {
    for (int i = 4; i-- > 0; value >>= 8)
        buffer[i] = static_cast<std::uint8_t>(value);
}

std::uint32_t DecodeBigEndian32(const std::uint8_t* bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
           std::uint32_t{bytes[2]} << 8 | bytes[3];
}

void EncodeBigEndian16(std::int16_t value, std::uint8_t* buffer) {
    const auto word = static_cast<std::uint16_t>(value);
    buffer[0] = static_cast<std::uint8_t>(word >> 8);
    buffer[1] = static_cast<std::uint8_t>(word);
}

std::int32_t DecodeBigEndian16(const std::uint8_t* bytes) {
    return bytes[0] << 8 | bytes[1];
}

void EncodeLittleEndian32(std::uint32_t value, std::uint8_t* buffer) {
    EncodeBigEndian32(value, buffer);
    std::reverse(buffer, buffer + 4);
}

std::uint32_t DecodeLittleEndian32(const std::uint8_t* bytes) {
    return std::uint32_t{bytes[3]} << 24 | std::uint32_t{bytes[2]} << 16 |
           std::uint32_t{bytes[1]} << 8 | bytes[0];
}

std::uint32_t BytesLeft(std::strstream& stream) {
    if (!stream.good())
        return 0;
    std::streambuf& buffer = *stream.std::ios::rdbuf();  // may have been exchanged by the caller
    const std::streamoff position = buffer.pubseekoff(0, std::ios::cur, std::ios::in);
    // Not `pcount`, which leaves out what stood there before a stream that appends.
    const std::streamoff end = buffer.pubseekoff(0, std::ios::cur, std::ios::out);
    const std::streamoff written = position >= 0 ? end - position : 0;
    const std::streamoff left = std::max<std::streamoff>(buffer.in_avail(), written);
    return static_cast<std::uint32_t>(
        std::clamp<std::streamoff>(left, 0, std::numeric_limits<std::uint32_t>::max()));
}

namespace {

template <typename Value>
using Raw = std::array<std::uint8_t, sizeof(Value)>;

template <typename Value>
Value FromWire(const Raw<Value>& bytes) {
    if constexpr (std::is_floating_point_v<Value>)
        return std::bit_cast<Value>(bytes);
    else if constexpr (sizeof(Value) == 4)
        return static_cast<Value>(DecodeBigEndian32(bytes.data()));
    else if constexpr (sizeof(Value) == 2)
        return static_cast<Value>(DecodeBigEndian16(bytes.data()));
    else
        return static_cast<Value>(bytes[0]);
}

template <typename Value>
Raw<Value> ToWire(Value value) {
    Raw<Value> bytes{};
    if constexpr (std::is_floating_point_v<Value>)
        bytes = std::bit_cast<Raw<Value>>(value);
    else if constexpr (sizeof(Value) == 4)
        EncodeBigEndian32(static_cast<std::uint32_t>(value), bytes.data());
    else if constexpr (sizeof(Value) == 2)
        EncodeBigEndian16(static_cast<std::int16_t>(value), bytes.data());
    else
        bytes[0] = static_cast<std::uint8_t>(value);
    return bytes;
}

/// What the stream does not have becomes 0.
void ReadOrZero(std::strstream& stream, void* buffer, std::size_t count) {
    stream.read(static_cast<char*>(buffer), static_cast<std::streamsize>(count));
    const auto got = static_cast<std::size_t>(stream.gcount());
    std::memset(static_cast<char*>(buffer) + got, 0, count - got);
}

}  // namespace

CZurByteStream::CZurByteStream(std::strstream* stream, bool owned)
    : m_stream(stream), m_owned(owned) {}

CZurByteStream::~CZurByteStream() {
    if (m_owned)
        delete m_stream;
    m_stream = nullptr;
}

std::int32_t CZurByteStream::ReadBytes(void* buffer, std::int32_t count) {
    if (!m_stream || !buffer || count < 1)
        return 0;
    ReadOrZero(*m_stream, buffer, static_cast<std::size_t>(count));
    return TellRead();
}

std::int32_t CZurByteStream::WriteBytes(const void* buffer, std::int32_t count) {
    if (!m_stream || !buffer || count < 1)
        return 0;
    m_stream->write(static_cast<const char*>(buffer), count);
    return TellWrite();
}

void CZurByteStream::SeekRead(std::int32_t position) {
    if (m_stream)
        m_stream->seekg(position);
}

void CZurByteStream::SeekWrite(std::int32_t position) {
    if (m_stream)
        m_stream->seekp(position);
}

std::int32_t CZurByteStream::TellRead() {
    return m_stream ? static_cast<std::int32_t>(m_stream->tellg()) : 0;
}

std::int32_t CZurByteStream::TellWrite() {
    return m_stream ? static_cast<std::int32_t>(m_stream->tellp()) : 0;
}

template <WireValue Value>
CZurByteStream& CZurByteStream::operator>>(Value& value) {
    if (!m_stream)
        return *this;
    Raw<Value> bytes{};
    ReadOrZero(*m_stream, bytes.data(), bytes.size());
    value = FromWire<Value>(bytes);
    return *this;
}

template <WireValue Value>
CZurByteStream& CZurByteStream::Peek(Value& value) {
    const std::int32_t position = TellRead();
    *this >> value;
    SeekRead(position);
    return *this;
}

template <WireValue Value>
CZurByteStream& CZurByteStream::operator<<(Value value) {
    const Raw<Value> bytes = ToWire(value);
    if (m_stream)
        m_stream->write(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return *this;
}

template ORBIX_API CZurByteStream& CZurByteStream::operator>>(char&);
template ORBIX_API CZurByteStream& CZurByteStream::operator>>(std::uint8_t&);
template ORBIX_API CZurByteStream& CZurByteStream::operator>>(std::int16_t&);
template ORBIX_API CZurByteStream& CZurByteStream::operator>>(std::uint16_t&);
template ORBIX_API CZurByteStream& CZurByteStream::operator>>(std::int32_t&);
template ORBIX_API CZurByteStream& CZurByteStream::operator>>(std::uint32_t&);
template ORBIX_API CZurByteStream& CZurByteStream::operator>>(float&);
template ORBIX_API CZurByteStream& CZurByteStream::operator>>(double&);

template ORBIX_API CZurByteStream& CZurByteStream::Peek(char&);
template ORBIX_API CZurByteStream& CZurByteStream::Peek(std::uint8_t&);
template ORBIX_API CZurByteStream& CZurByteStream::Peek(std::int16_t&);
template ORBIX_API CZurByteStream& CZurByteStream::Peek(std::uint16_t&);
template ORBIX_API CZurByteStream& CZurByteStream::Peek(std::int32_t&);
template ORBIX_API CZurByteStream& CZurByteStream::Peek(std::uint32_t&);
template ORBIX_API CZurByteStream& CZurByteStream::Peek(float&);
template ORBIX_API CZurByteStream& CZurByteStream::Peek(double&);

template ORBIX_API CZurByteStream& CZurByteStream::operator<<(char);
template ORBIX_API CZurByteStream& CZurByteStream::operator<<(std::uint8_t);
template ORBIX_API CZurByteStream& CZurByteStream::operator<<(std::int16_t);
template ORBIX_API CZurByteStream& CZurByteStream::operator<<(std::uint16_t);
template ORBIX_API CZurByteStream& CZurByteStream::operator<<(std::int32_t);
template ORBIX_API CZurByteStream& CZurByteStream::operator<<(std::uint32_t);
template ORBIX_API CZurByteStream& CZurByteStream::operator<<(float);
template ORBIX_API CZurByteStream& CZurByteStream::operator<<(double);
