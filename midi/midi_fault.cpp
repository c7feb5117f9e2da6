#include "midi/midi_fault.h"

#include <algorithm>
#include <array>

#include "sequence/byte_stream.h"
#include "sequence/seq_codes.h"
#include "sequence/seq_event.h"

namespace {

constexpr std::uint32_t kHeaderBytes = 14;
constexpr std::uint32_t kChunkHeaderBytes = 8;
constexpr const char* kEnd = "the end of the file";

/// A field of the header and the code that a wrong one raises.
struct HeaderField {
    int code;
    std::uint32_t offset;
    std::uint32_t length;
    const char* expected;
};

constexpr std::array<HeaderField, 5> kHeaderFields = {{
    {kSeqNoFileTag, 0, 4, "the tag \"MThd\", 4D 54 68 64"},
    {kSeqBadHeaderLength, 4, 4, "a header of 6 bytes, 00 00 00 06"},
    {kSeqBadFormat, 8, 2, "format 0 or 1"},
    {kSeqBadTrackCount, 10, 2, "1 track in format 0, 1 to 32767 in format 1"},
    {kSeqBadDivision, 12, 2, "a division in ticks per quarter note, 1 to 32767"},
}};

std::string Digits(std::uint8_t byte) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    return {kDigits[byte >> 4U], kDigits[byte & 0x0FU]};
}

/// The bytes at `offset` as far as they are there, in hexadecimal.
std::string BytesAt(std::string_view bytes, std::uint32_t offset, std::uint32_t length) {
    std::string text;
    for (const char byte : bytes.substr(std::min<std::size_t>(offset, bytes.size()), length)) {
        text += (text.empty() ? "" : " ") + Digits(static_cast<std::uint8_t>(byte));
    }
    return text.empty() ? kEnd : text;
}

/// Goes through an event that can't be read, part by part.
class BrokenEvent {
public:
    BrokenEvent(std::strstream& stream, MidiFault& fault, std::uint32_t size)
        : stream_(stream), fault_(fault), size_(size) {}

    void Explain(std::uint8_t status) {
        try {
            Quantity("a delta time", " of at most ");
            Expect("a status byte");
            const int next = stream_.peek();
            if (next != std::char_traits<char>::eof()) {
                Message(static_cast<std::uint8_t>(next), status);
            }
        } catch (int) {  // NOLINT(bugprone-empty-catch): the stream ended in what was expected
        }
    }

private:
    void Message(std::uint8_t next, std::uint8_t status) {
        if (next < 0x80 && status < 0x80) {
            fault_.found = "the data byte " + Digits(next);
            return;
        }
        status = next < 0x80 ? status : ReadStreamByte(stream_);
        if (status < 0xF0) {
            Expect("the data bytes of status " + Digits(status));
            return;
        }
        if (status == 0xFF) {
            Expect("a meta type");
            if (stream_.peek() == std::char_traits<char>::eof()) {
                return;
            }
            ReadStreamByte(stream_);
        }
        const std::uint32_t size = Quantity("a payload length", " of at most ");
        Expect("a payload of " + std::to_string(size) + " bytes");
        fault_.found = std::to_string(BytesLeft(stream_)) + " bytes and " + kEnd;
    }

    void Expect(const std::string& part) {
        fault_.offset = stream_.good() ? static_cast<std::uint32_t>(stream_.tellg()) : size_;
        fault_.expected = part;
        fault_.found = kEnd;
    }

    std::uint32_t Quantity(const std::string& part, const char* limit) {
        Expect(part);
        const std::uint32_t value = ReadVarLen(stream_);
        if (value > kLargestVarLen) {
            fault_.expected += limit + std::to_string(kLargestVarLen);
            fault_.found = std::to_string(value);
            throw kSeqBadEvent;
        }
        return value;
    }

    std::strstream& stream_;
    MidiFault& fault_;
    std::uint32_t size_;
};

/// The first event of the chunk at `offset` that can't be read.
void FindEventFault(std::strstream& stream, std::string_view bytes, MidiFault& fault) {
    const std::string track = fault.place;
    std::uint8_t status = 0;
    std::int64_t position = fault.offset + kChunkHeaderBytes;
    for (int number = 1;; ++number) {
        fault.place = track + ", event " + std::to_string(number);
        stream.clear();
        stream.seekg(position);
        CZurSeqEvent event;
        try {
            event.Read(stream, status);
        } catch (int) {
            break;
        }
        if (!event.GetData()) {
            break;
        }
        status = *event.GetData();
        position = stream.eof() ? static_cast<std::int64_t>(bytes.size())
                                : static_cast<std::int64_t>(stream.tellg());
    }
    stream.clear();
    stream.seekg(position);
    BrokenEvent(stream, fault, static_cast<std::uint32_t>(bytes.size())).Explain(status);
}

}  // namespace

MidiFault FindMidiFault(int code, const CZurSequence& read, std::strstream& stream,
                        std::string_view bytes) {
    for (const HeaderField& field : kHeaderFields) {
        if (field.code == code) {
            return {field.offset, "header", field.expected,
                    BytesAt(bytes, field.offset, field.length)};
        }
    }
    stream.clear();
    stream.seekg(kHeaderBytes);
    for (std::int32_t track = 1; track <= read.GetTrackCount(); ++track) {
        CZurSeqTrack{stream};
    }
    const auto size = static_cast<std::uint32_t>(bytes.size());
    MidiFault fault{stream.good() ? static_cast<std::uint32_t>(stream.tellg()) : size,
                    "track " + std::to_string(read.GetTrackCount() + 1),
                    "the tag \"MTrk\", 4D 54 72 6B", ""};
    fault.found = BytesAt(bytes, fault.offset, 4);
    if (code == kSeqBadTrackEvents && size - fault.offset < kChunkHeaderBytes) {
        fault.expected = "a chunk length of 4 bytes";
        fault.offset += 4;
        fault.found = BytesAt(bytes, fault.offset, 4);
    } else if (code == kSeqBadTrackEvents) {
        FindEventFault(stream, bytes, fault);
    }
    return fault;
}

MidiFault CutMessageFault(const CZurSequence& read, std::string_view bytes) {
    return {static_cast<std::uint32_t>(bytes.size()),
            "track " + std::to_string(read.GetTrackCount()), "the data bytes of a message", kEnd};
}
