// A Standard MIDI File in every shape of a stream, held against the literal reader of the tests.

#include "fuzz/require.h"
#include "sequence/zur_sequence.h"
#include "tests/sequence/literal_reader.h"
#include "tests/sequence/streams.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    LiteralReader oracle(bytes);
    const int code = oracle.Read();
    InEveryShape(bytes, [&](std::strstream& stream) {
        std::unique_ptr<CZurSequence> sequence;
        const int raised = CodeOf([&] { sequence = std::make_unique<CZurSequence>(stream); });
        Require(raised == code, "the code is the literal reader's");
        if (sequence == nullptr) {
            return;
        }
        Require(DumpOf(*sequence) == oracle.Text(), "the events are the literal reader's");
        std::vector<t_tSigMapRec> signatures;
        std::vector<t_tTempoRec> tempos;
        sequence->GetTimeSignatures(signatures);
        sequence->GetTempos(tempos);
        sequence->GetLastMeasure();
        sequence->GetNoteEndTime(1, sequence->GetTrackCount());
    });
    return 0;
}
