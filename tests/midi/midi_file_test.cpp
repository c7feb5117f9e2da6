#include "midi/midi_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/files.h"
#include "sequence/seq_codes.h"
#include "tests/sequence/tracks.h"

namespace {

// What the words say stands in the command line's transcripts.
TEST(MidiFile, IsRefusedWithAPlaceInsideTheFileWhereTheClassesRefuseIt) {
    int refused = 0;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(ORBIX_TEST_DATA "/smf")) {
        const auto whole = entry.is_directory() ? std::nullopt : ReadWholeFile(entry.path());
        for (std::size_t size = whole ? whole->size() : 0; size > 0; --size) {
            const std::string bytes = whole->substr(0, size);
            std::strstream stream;
            Put(stream, bytes);
            const int code = CodeOf([&] {
                if (CZurSequence{stream}.GetTrackCount() == 0 || stream.eof())
                    throw kSeqBadTrackCount;  // none of a negative number, or bytes made up
            });
            MidiFault fault;
            ASSERT_EQ(ReadMidiBytes(bytes, fault) == nullptr, code != 0) << entry.path() << size;
            EXPECT_EQ(code == 0, fault.expected.empty() && fault.place.empty());
            EXPECT_LE(fault.offset, size);
            refused += code != 0;
        }
    }
    EXPECT_GT(refused, 1000);
}

TEST(MidiFile, IsWrittenWholeOrNotAtAll) {
    EXPECT_EQ(Hex(WriteMidiBytes(SequenceOf(96, {"0 FF 2F 00"})).value()),
              "4D 54 68 64 00 00 00 06 00 01 00 01 00 60 4D 54 72 6B 00 00 00 04 00 FF 2F 00");
    EXPECT_FALSE(WriteMidiBytes(SequenceOf(96, {"0 FF 2F 00", "268435456 FF 2F 00"})));
    EXPECT_FALSE(WriteMidiBytes(CZurSequence(1, 96)));
}

}  // namespace
