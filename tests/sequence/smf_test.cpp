#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "sequence/byte_stream.h"
#include "sequence/zur_sequence.h"
#include "tests/sequence/heap_watch.h"
#include "tests/sequence/literal_reader.h"

namespace {

namespace fs = std::filesystem;

struct Sample {
    std::string name;
    int code;  ///< of its folder; 0 for the valid ones
    std::string bytes;
};

const std::vector<Sample>& Samples() {
    static const std::vector<Sample> samples = [] {
        std::vector<Sample> all;
        for (const auto& entry : fs::recursive_directory_iterator(ORBIX_TEST_DATA "/smf")) {
            if (entry.path().extension() != ".mid")
                continue;
            const std::string folder = entry.path().parent_path().filename();
            std::ifstream file(entry.path(), std::ios::binary);
            all.push_back({entry.path().filename(),
                           folder == "valid" ? 0 : -std::stoi(folder),
                           {std::istreambuf_iterator<char>(file), {}}});
        }
        return all;
    }();
    return samples;
}

/// Reads `bytes` in every shape and holds the outcome, the text and the heap against the oracle.
void CheckAgainstOracle(const std::string& bytes) {
    LiteralReader oracle(bytes);
    const int code = oracle.Read();
    InEveryShape(bytes, [&](std::strstream& stream) {
        MarkHeap();
        const std::size_t before = HeapNow();
        std::unique_ptr<CZurSequence> sequence;
        ASSERT_EQ(CodeOf([&] { sequence = std::make_unique<CZurSequence>(stream); }), code);
        // Slabs of events do not go through `new`: 16 KiB, and half an event's 32 bytes a byte.
        ASSERT_LE(HeapPeak() - before + 16384 + 16 * bytes.size(), 64 * bytes.size() + 65536);
        if (sequence) {
            ASSERT_EQ(DumpOf(*sequence), oracle.Text());
        }
    });
}

TEST(StandardMidiFiles, EverySampleGivesItsCode) {
    ASSERT_GE(Samples().size(), 59U);
    for (const Sample& sample : Samples()) {
        SCOPED_TRACE(sample.name);
        ASSERT_EQ(LiteralReader(sample.bytes).Read(), sample.code);
        CheckAgainstOracle(sample.bytes);
    }
}

TEST(StandardMidiFiles, WhatIsWrittenReadsBackEqual) {
    for (const Sample& sample : Samples()) {
        if (sample.code != 0)
            continue;
        SCOPED_TRACE(sample.name);
        std::strstream stream;
        Put(stream, sample.bytes);
        const CZurSequence first(stream);
        std::strstream written;
        first.Save(written);
        if (first.GetTrackCount() == 0)
            continue;  // none promised by its sign, and none is no count of format 1
        const CZurSequence second(written);
        EXPECT_EQ(DumpOf(second), DumpOf(first));
        EXPECT_EQ(BytesOf(second), BytesOf(first));
    }
}

TEST(StandardMidiFiles, CutAtEachLength) {
    for (const Sample& sample : Samples()) {
        std::string bytes = sample.bytes;
        while (sample.code == 0 && !bytes.empty()) {
            bytes.pop_back();
            SCOPED_TRACE(sample.name + " cut to " + std::to_string(bytes.size()));
            CheckAgainstOracle(bytes);
            if (HasFatalFailure())
                return;
            if (bytes.size() > 600)
                bytes.resize(bytes.size() - 37);  // inside a long payload one place is as another
        }
    }
}

TEST(StandardMidiFiles, RandomDamage) {
    std::mt19937 random(20);
    for (int round = 0; round < 4000; ++round) {
        std::string bytes = Samples()[random() % Samples().size()].bytes;
        for (unsigned change = random() % 4; change > 0 && !bytes.empty(); --change)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        SCOPED_TRACE(round);
        CheckAgainstOracle(bytes);
        if (HasFatalFailure())
            return;
    }
}

TEST(StandardMidiFiles, EventsAcrossBlocks) {
    std::mt19937 random(7);
    std::strstream track;  // longer than any block that a reader may take at once
    for (int event = 0; event < 20000; ++event) {
        WriteVarLen(static_cast<std::uint32_t>(random()) >> (12 + random() % 20), track);
        if (event % 500 == 0) {
            const auto size = static_cast<std::uint32_t>(random() % 40000);
            track.put('\xF0');
            WriteVarLen(size, track);
            Put(track, std::string(size, 'x') + Bytes("00 93"));
        } else if (random() % 3 == 0) {
            track.put('\xB5');
        }
        Put(track, {static_cast<char>(random() % 128), 0x40});
    }
    std::string bytes = Bytes("4D 54 68 64 00 00 00 06 00 00 00 01 00 60 4D 54 72 6B 00 00 00 00");
    EncodeBigEndian32(static_cast<std::uint32_t>(track.pcount()),
                      reinterpret_cast<std::uint8_t*>(bytes.data()) + 18);
    bytes += Written(track);
    ASSERT_EQ(LiteralReader(bytes).Read(), 0);
    CheckAgainstOracle(bytes);
}

// A file's events are destroyed without a look at those that have no heap block.
TEST(StandardMidiFiles, EditsOfEventsThatWereReadLeaveNoBlockBehind) {
    const std::string chunk = Bytes(
        "4D 54 72 6B 00 00 00 28 00 90 3C 40 00 3D 40 00 3E 40 00 FF 01 03 61 62 63 00 FF 01 04 61 "
        "62 63 64 00 F0 08 01 02 03 04 05 06 07 F7 00 FF 2F 00");
    const CZurSeqEvent longer(0, 9, Data("123456789"));
    const auto edit = [&] {
        std::strstream stream;
        Put(stream, chunk);
        CZurSeqTrack track(stream);
        CZurSeqEvent* event[7] = {};
        for (std::uint32_t number = 1; number <= 7; ++number)
            ASSERT_TRUE(track.GetEvent(number, event[number - 1]));
        event[0]->SetData(0, longer.GetData(), 9);
        *event[1] = longer;
        event[3]->InsertDataByte(4, 0);
        *event[4] = *event[2];  // and one that loses its block
        track.RemoveEventAt(6, true);
    };
    edit();  // The first time makes what the process keeps.
    const std::size_t before = HeapNow();
    edit();
    EXPECT_EQ(HeapNow(), before);
}

TEST(StandardMidiFiles, TheReadPositionStandsBehindTheLastChunk) {
    const std::string file = Bytes(
        "4D 54 68 64 00 00 00 06 00 00 00 01 00 60 4D 54 72 6B 00 00 00 04 00 FF 2F 00 55 66");
    InEveryShape(file, [](std::strstream& stream) {
        const CZurSequence sequence(stream);
        EXPECT_EQ(stream.get(), 0x55);
        EXPECT_EQ(stream.get(), 0x66);
    });
}

}  // namespace
