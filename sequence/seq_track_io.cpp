// Tracks in files: the track chunk.

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>

#include "sequence/byte_stream.h"
#include "sequence/seq_codes.h"
#include "sequence/seq_event_batch.h"
#include "sequence/seq_track.h"
#include "sequence/stream_block.h"

namespace {

using EventList = std::vector<CZurSeqEvent*>;

static_assert(StreamBlock::kSlack >= SeqEventBatch::kSlack);

/// Reads the events of one chunk: out of blocks where whole events stand in them, and one by one
/// from the stream where they do not, so that its end behaves as for the event alone.
class ChunkReader {
public:
    ChunkReader(std::strstream& stream, std::uint32_t length, EventList& events)
        : m_stream(stream),
          m_block(stream),
          m_events(events),
          m_first(events.size()),
          m_start(stream.tellg()),
          m_position(m_start),
          m_end(m_start + length),
          m_total(std::min(length, BytesLeft(stream))) {
        m_events.reserve(m_first + std::min(m_total, 16384U) / 3);
    }

    // In 64 bits: start and length together may pass 32. A position of -1 says that the last event
    // met the end of the stream one byte early.
    void Read() {
        while (m_position >= 0 && m_position < m_end) {
            const auto left = static_cast<std::uint64_t>(m_end - m_position);
            if (!TakeFromBlock() && !(m_block.Fill(left) && TakeFromBlock()))
                TakeFromStream();
        }
        m_block.PutBack();
    }

private:
    /// Takes the events that stand whole in the block; false when there was none.
    bool TakeFromBlock() {
        const std::uint8_t* const begin = m_block.At();
        const std::uint8_t* const end = m_block.End();
        const std::uint8_t* at = begin;
        std::uint8_t status = m_status;
        while (at < end) {
            if (m_events.size() == m_events.capacity())
                Grow(m_position + (at - begin));
            CZurSeqEvent* const event = SeqEventBatch::Parse(m_slots, at, end, status);
            if (!event)
                break;
            m_events.push_back(event);
        }
        m_status = status;
        m_position += at - begin;
        m_block.MoveTo(at);
        return at != begin;
    }

    void TakeFromStream() {
        m_block.PutBack();
        std::unique_ptr<CZurSeqEvent> event(SeqEventBatch::Make(m_slots));
        event->Read(m_stream, m_status);
        if (!event->GetData())
            throw kSeqBadEvent;
        m_status = *event->GetData();
        m_events.push_back(event.get());
        event.release();  // NOLINT(bugprone-unused-return-value): it is in the list
        m_position = m_stream.tellg();
    }

    /// Makes room for as many events as the chunk will hold when it goes on like this.
    void Grow(std::int64_t position) {
        const std::size_t count = m_events.size() - m_first;
        const auto done = static_cast<double>(std::max<std::int64_t>(position - m_start, 1));
        const auto expected =
            static_cast<std::size_t>(static_cast<double>(count) * m_total / done * 1.02);
        m_events.reserve(m_first + std::max(expected, count + count / 4) + 16);
    }

    std::strstream& m_stream;
    StreamBlock m_block;
    EventSlotTake m_slots;
    EventList& m_events;
    std::size_t m_first;
    std::int64_t m_start;
    std::int64_t m_position;
    std::int64_t m_end;
    std::uint32_t m_total;
    std::uint8_t m_status = 0;
};

/// Collects written events in a block.
class ChunkWriter {
public:
    explicit ChunkWriter(std::strstream& stream) : m_stream(stream) {}

    void Write(const CZurSeqEvent& event) {
        if (m_bytes.data() + m_bytes.size() - m_out < SeqEventBatch::kPutBytes)
            Flush();
        if (std::uint8_t* const out = SeqEventBatch::Put(event, m_out)) {
            m_out = out;
        } else {
            Flush();
            event.Save(m_stream);
        }
    }
    void Flush() {
        m_stream.write(reinterpret_cast<const char*>(m_bytes.data()), m_out - m_bytes.data());
        m_out = m_bytes.data();
    }

private:
    std::strstream& m_stream;
    std::array<std::uint8_t, 4096> m_bytes;  // written before it is looked at
    std::uint8_t* m_out = m_bytes.data();
};

void WriteWord(std::strstream& stream, std::uint32_t value) {
    std::array<std::uint8_t, 4> word{};
    EncodeBigEndian32(value, word.data());
    stream.write(reinterpret_cast<const char*>(word.data()), word.size());
}

}  // namespace

void CZurSeqTrack::Read(std::strstream& stream) {
    std::array<char, 4> tag{};
    stream.read(tag.data(), tag.size());
    m_tag = tag;
    if (std::memcmp(m_tag.data(), "MTrk", m_tag.size()) != 0)
        throw kSeqNoTrackTag;
    try {
        ReadEvents(stream);
    } catch (...) {
        throw kSeqBadTrackEvents;
    }
}

void CZurSeqTrack::ReadEvents(std::strstream& stream) {
    std::array<std::uint8_t, 4> word{};
    stream.read(reinterpret_cast<char*>(word.data()), word.size());
    if (!stream)
        throw kSeqEndOfStream;
    const std::uint32_t length = DecodeBigEndian32(word.data());
    if (length > 0)
        ChunkReader(stream, length, m_events).Read();
}

void CZurSeqTrack::Write(std::strstream& stream) const {
    stream.write(m_tag.data(), std::ssize(m_tag));
    const std::streamoff lengthPosition = stream.tellp();
    WriteWord(stream, 0);
    ChunkWriter writer(stream);
    for (const CZurSeqEvent* const event : m_events)
        writer.Write(*event);
    writer.Flush();
    const std::streamoff end = stream.tellp();
    stream.seekp(lengthPosition);
    WriteWord(stream, static_cast<std::uint32_t>(end - lengthPosition - 4));
    stream.seekp(end);
}
