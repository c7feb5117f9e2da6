// A Standard MIDI File in every shape of a stream, held against the plain reader of the tests.

#include "fuzz/require.h"
#include "sequence/zur_sequence.h"
#include "tests/sequence/plain_reader.h"
#include "tests/sequence/streams.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    InEveryShape(bytes, [&](std::strstream& stream) {
        std::unique_ptr<CZurSequence> sequence;
        const int code = CodeOf([&] { sequence = std::make_unique<CZurSequence>(stream); });
        if (code <= kSeqNoFileTag) {
            return;  // refused by its header
        }
        const PlainReader oracle(bytes);
        Require(code == oracle.code, "the code is the plain reader's");
        if (sequence == nullptr) {
            return;
        }
        Require(DumpOf(*sequence).ends_with(oracle.text), "the events are the plain reader's");
        std::vector<t_tSigMapRec> signatures;
        std::vector<t_tTempoRec> tempos;
        sequence->GetTimeSignatures(signatures);
        sequence->GetTempos(tempos);
        sequence->GetLastMeasure();
        sequence->GetNoteEndTime(1, sequence->GetTrackCount());
    });
    return 0;
}
