#pragma once

#include <concepts>
#include <cstdint>

#include "sequence/api.h"
#include "sequence/strstream.h"

// Byte order and variable-length quantities live here and nowhere else. Big-endian words stand
// most significant byte first. A variable-length quantity is an unsigned number in groups of seven
// bits, most significant group first, one group a byte, bit 7 set on every byte but the last
// (Standard MIDI File).

/// The largest variable-length quantity: four groups.
inline constexpr std::uint32_t kLargestVarLen = 0x0FFFFFFF;

/// The next byte. The end is noticed one read late, as the stream does: the read that runs off the
/// end gives 0xFF. Raises the integer -1 when the stream is at its end already or failed before.
std::uint8_t ReadStreamByte(std::strstream& stream);

/// A quantity of any number of bytes; it wraps at 32 bits. Raises -1 as `ReadStreamByte`.
std::uint32_t ReadVarLen(std::strstream& stream);

/// Writes the shortest form. A value above `kLargestVarLen` sets the stream's fail bit and writes
/// nothing, so that no file ever holds a wrong quantity.
void WriteVarLen(std::uint32_t value, std::strstream& stream);

/// Stores the shortest form, at most 4 bytes, and gives its length. 0, and nothing stored, for a
/// value above `kLargestVarLen`.
std::uint32_t EncodeVarLen(std::uint32_t value, std::uint8_t* buffer);

/// The quantity at `bytes`, which must hold its last byte: nothing else bounds the walk.
std::uint32_t DecodeVarLen(const std::uint8_t* bytes);

void EncodeBigEndian32(std::uint32_t value, std::uint8_t* buffer);
std::uint32_t DecodeBigEndian32(const std::uint8_t* bytes);
void EncodeBigEndian16(std::int16_t value, std::uint8_t* buffer);
/// 0 to 65535.
std::int32_t DecodeBigEndian16(const std::uint8_t* bytes);

/// Least significant byte first: one payload of the pattern has this order.
void EncodeLittleEndian32(std::uint32_t value, std::uint8_t* buffer);
std::uint32_t DecodeLittleEndian32(const std::uint8_t* bytes);

/// Bytes between the read position and the last byte that the stream holds; 0 for a stream that is
/// not good. What a stored length or count is held against before anything is allocated.
/// (`in_avail` alone lags behind on a stream that grows, and seeking to the end lands at its
/// capacity.) The stream's state and positions stay as they are.
std::uint32_t BytesLeft(std::strstream& stream);

template <typename Value, typename... Others>
concept OneOf = (std::same_as<Value, Others> || ...);

/// What a `CZurByteStream` carries: integers of 1, 2 and 4 bytes, big-endian, and raw 4 and 8 bytes
/// (float, double), copied as they stand in memory.
template <typename Value>
concept WireValue = OneOf<Value, char, std::uint8_t, std::int16_t, std::uint16_t, std::int32_t,
                          std::uint32_t, float, double>;

/// Adapter over an in-memory stream: typed big-endian reads and writes that do nothing when no
/// stream is attached. Made for one operation and let go. Reports nothing: after a short read the
/// bytes that never came are 0 in the target and the stream's state shows it (position -1).
/// Positions are bytes from the start of the stream. One thread at a time, as the stream.
class ORBIX_API CZurByteStream {
public:
    /// Borrows `stream` (may be null), or takes it over when `owned`.
    explicit CZurByteStream(std::strstream* stream, bool owned = false);
    virtual ~CZurByteStream();  // 1
    CZurByteStream(const CZurByteStream&) = delete;
    CZurByteStream& operator=(const CZurByteStream&) = delete;

    /// Reads `count` bytes; gives the read position behind them. 0, and nothing read, without a
    /// stream or buffer or with a count below 1.
    std::int32_t ReadBytes(void* buffer, std::int32_t count);
    /// Writes `count` bytes; gives the write position behind them, 0 as `ReadBytes`.
    std::int32_t WriteBytes(const void* buffer, std::int32_t count);

    void SeekRead(std::int32_t position);
    void SeekWrite(std::int32_t position);
    /// 0 without a stream, -1 after a failed read.
    std::int32_t TellRead();
    std::int32_t TellWrite();

    template <WireValue Value>
    CZurByteStream& operator>>(Value& value);
    /// As `operator>>`, with the read position put back.
    template <WireValue Value>
    CZurByteStream& Peek(Value& value);
    template <WireValue Value>
    CZurByteStream& operator<<(Value value);

private:
    std::strstream* m_stream;
    bool m_owned;
};
