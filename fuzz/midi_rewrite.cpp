// A Standard MIDI File read, written and read again.

#include <memory>

#include "fuzz/require.h"
#include "sequence/zur_sequence.h"
#include "tests/sequence/streams.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::strstream stream;
    Put(stream, std::string(data, data + size));
    std::unique_ptr<CZurSequence> first;
    if (CodeOf([&] { first = std::make_unique<CZurSequence>(stream); }) != 0 ||
        first->GetTrackCount() == 0) {
        return 0;  // no tracks by the sign of their count: none is no count of format 1
    }
    const std::string written = BytesOf(*first);
    std::strstream second;
    Put(second, written);
    std::unique_ptr<CZurSequence> again;
    Require(CodeOf([&] { again = std::make_unique<CZurSequence>(second); }) == 0,
            "what is written reads");
    Require(BytesOf(*again) == written, "what is written reads back equal");
    Require(DumpOf(*again) == DumpOf(*first), "the events are the same");
    const CZurSequence copy(*first);
    Require(BytesOf(copy) == written, "a copy writes the same");
    return 0;
}
