#include "midi/midi_file.h"

#include <limits>
#include <new>

#include "midi/midi_fault.h"
#include "sequence/seq_codes.h"

namespace {

constexpr std::size_t kHeaderBytes = 14;
constexpr std::size_t kMostBytes = std::numeric_limits<std::int32_t>::max();

}  // namespace

std::string MidiFault::Text() const {
    return "at byte " + std::to_string(offset) + ", " + place + ": expected " + expected +
           ", found " + found;
}

std::unique_ptr<CZurSequence> ReadMidiBytes(std::string_view bytes, MidiFault& fault) {
    if (bytes.size() < kHeaderBytes || bytes.size() > kMostBytes) {
        fault = {0, "header", "14 to 2147483647 bytes", std::to_string(bytes.size()) + " bytes"};
        return nullptr;
    }
    // Only read, though the stream wants what may be written; it reads up to where it would write.
    std::strstream stream(const_cast<char*>(bytes.data()), static_cast<int>(bytes.size()));
    stream.seekp(static_cast<std::streamoff>(bytes.size()));
    auto sequence = std::make_unique<CZurSequence>();
    try {
        sequence->Load(stream);
        // A count with bit 15 set counts as negative and reads none: all the tracks would be lost.
        if (sequence->GetTrackCount() == 0) {
            throw kSeqBadTrackCount;
        }
        // What is missing at the end of a channel message is read as FF.
        if (stream.eof()) {
            fault = CutMessageFault(*sequence, bytes);
            return nullptr;
        }
        return sequence;
    } catch (int code) {
        fault = FindMidiFault(code, *sequence, stream, bytes);
        return nullptr;
    }
}

std::optional<std::string> WriteMidiBytes(const CZurSequence& sequence) {
    std::strstream stream;
    sequence.Save(stream);
    if (stream.fail() || sequence.GetTrackCount() == 0) {
        return std::nullopt;
    }
    std::string bytes(static_cast<std::size_t>(stream.pcount()), '\0');
    if (!stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        throw std::bad_alloc();
    }
    return bytes;
}
