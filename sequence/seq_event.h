#pragma once

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "sequence/api.h"
#include "sequence/strstream.h"

/// Byte values expected at positions of an event's data, in any order.
using SeqBytePattern = std::vector<std::pair<std::uint32_t, std::uint8_t>>;

/// One event of a Standard MIDI File track: a delta time in ticks and the exact bytes of the
/// message. The data begin with the status byte, also where the file left it out. Channel messages
/// are 2 or 3 bytes; a meta event is FF, type, length quantity, payload; every status from F0 to FE
/// is status, length quantity, payload. Quantities stand in their shortest form. An empty event has
/// no data (null) and length 0.
///
/// The event owns its bytes. Constructors and the assignment raise -100 when they cannot fill the
/// event, the assignment leaves it empty; nothing else raises but `Read` (-1 at the end of the
/// stream, -100 without memory). One thread at a time each event; different events may live on
/// different threads.
class ORBIX_API CZurSeqEvent {
public:
    CZurSeqEvent() = default;
    /// Runs `Read`; any failure becomes -100.
    CZurSeqEvent(std::strstream& stream, std::uint8_t runningStatus);
    /// Copies `length` bytes. With null `data` the length is stored all the same.
    CZurSeqEvent(std::uint32_t delta, std::uint32_t length, const std::uint8_t* data);
    /// The copy starts unmarked.
    CZurSeqEvent(const CZurSeqEvent& other);
    /// Keeps the mark of the target.
    CZurSeqEvent& operator=(const CZurSeqEvent& other);

    /// The byte at `index`, which must be inside; null for an event without data.
    std::uint8_t* GetByteAt(std::uint32_t index);

    /// Events come from slabs of their own; classes derived from this one with more fields do not.
    static void* operator new(std::size_t size);
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* place, std::size_t size) noexcept;

    virtual ~CZurSeqEvent();  // 1
    /// 0 channel message, 1 meta event, 2 status F0, -1 any other status or no data.
    virtual std::int32_t GetKind() const;                 // 2
    virtual void Save(std::strstream& stream) const;      // 3
    virtual std::uint32_t GetDelta() const;               // 4
    virtual CZurSeqEvent& SetDelta(std::uint32_t delta);  // 5
    virtual std::uint32_t GetLength() const;              // 6
    virtual const std::uint8_t* GetData() const;          // 7
    /// Replaces delta and bytes. Null or no bytes, or no memory: nothing changes, the delta
    /// neither.
    virtual void SetData(std::uint32_t delta, const std::uint8_t* data, std::uint32_t length);  // 8
    /// A copy that the caller deletes with `delete[]`; null without data or memory.
    virtual std::uint8_t* CopyData() const;  // 9
    /// Takes the byte at `index` of the data out of the payload of a meta (FF) or system exclusive
    /// (F0, F7) event and keeps its length quantity right. Refused (false) for other events, for
    /// head and quantity, outside the data, for the closing byte of an F0 event, and when the
    /// quantity does not agree with the data.
    virtual bool RemoveDataByte(std::uint32_t index);  // 10
    /// Puts `value` in front of the byte at `index`, or behind the last byte of an FF or F7 event
    /// when `index` is the length. Refused like `RemoveDataByte`, but in front of the closing byte
    /// of an F0 event it may go.
    virtual bool InsertDataByte(std::uint32_t index, std::uint8_t value);  // 11
    /// One line of text: delta in decimal, two tabs, each byte in two hexadecimal digits and a
    /// blank, a carriage return.
    virtual void Dump(std::strstream& stream) const;  // 12
    /// Fills the event with what stands in the stream. `runningStatus` is the status of an event
    /// whose first byte is a data byte; when it is none (below 80) nothing behind the delta is read
    /// and the event stays empty. A channel message cut in front of its last byte gets FF there, as
    /// the end shows one read late; a payload that the stream does not hold whole and a quantity
    /// that could not be written back (above 0FFFFFFF) raise -1.
    virtual void Read(std::strstream& stream, std::uint8_t runningStatus);  // 13
    /// Delta and all bytes, the status always among them. A delta above 0FFFFFFF fits no file: the
    /// stream's fail bit is set and nothing is written.
    virtual void Write(std::strstream& stream) const;      // 14
    virtual CZurSeqEvent& SetMarked(std::uint8_t marked);  // 15
    virtual std::uint8_t IsMarked() const;                 // 16
    /// True when no position inside the data holds another value; positions outside are passed
    /// over. False without data.
    virtual bool MatchesBytes(const SeqBytePattern& pattern) const;  // 17
    /// Equal bytes; the delta does not count.
    virtual bool IsEqual(const CZurSeqEvent& other) const;  // 18

private:
    friend class SeqEventBatch;
    struct Payload;

    void Release();
    std::uint8_t* Allocate(std::uint32_t length);
    std::uint8_t* AllocateBlock(std::uint32_t length);
    void CopyFrom(const CZurSeqEvent& other);
    void ReadChannelMessage(std::strstream& stream, std::uint8_t status, std::uint32_t dataBytes);
    void ReadPayload(std::strstream& stream, const std::uint8_t* head, std::uint32_t headLength);
    bool FindPayload(std::uint32_t lastIndex, std::uint32_t index, Payload& payload) const;
    bool EditPayload(const Payload& payload, std::uint32_t index, std::uint32_t removed,
                     const std::uint8_t* inserted);

    std::uint32_t m_delta = 0;
    std::uint32_t m_length = 0;
    std::uint8_t* m_data = nullptr;
    std::uint8_t m_marked = 0;
    // Made by `SeqEventBatch`: its slot is marked when the event gets a heap block.
    bool m_marksSlot = false;
    // Where the data stand when they are short, as nearly all are: these bytes would be padding.
    std::array<std::uint8_t, 6> m_inline{};
};
