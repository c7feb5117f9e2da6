#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "sequence/zur_sequence.h"
#include "tests/sequence/heap_watch.h"
#include "tests/sequence/literal_reader.h"
#include "tests/sequence/shapes.h"

namespace {

namespace fs = std::filesystem;

struct Sample {
    std::string name;
    int code;  ///< of its folder; 0 for the valid ones
    ByteVector bytes;
};

const std::vector<Sample>& Samples() {
    static const std::vector<Sample> samples = [] {
        std::vector<Sample> all;
        for (const auto& entry : fs::recursive_directory_iterator(ORBIX_TEST_DATA "/smf")) {
            if (entry.path().extension() != ".mid")
                continue;
            const std::string folder = entry.path().parent_path().filename();
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string text(std::istreambuf_iterator<char>(file), {});
            all.push_back({entry.path().filename(),
                           folder == "valid" ? 0 : -std::stoi(folder),
                           {text.begin(), text.end()}});
        }
        return all;
    }();
    return samples;
}

/// Reads `bytes` in every shape and holds the outcome, the text and the heap against the oracle.
void CheckAgainstOracle(const ByteVector& bytes) {
    LiteralReader oracle(bytes);
    const int code = oracle.Read();
    InEveryShape(bytes, [&](std::strstream& stream) {
        MarkHeap();
        const std::size_t before = HeapNow();
        std::unique_ptr<CZurSequence> sequence;
        ASSERT_EQ(CodeOf([&] { sequence = std::make_unique<CZurSequence>(stream); }), code);
        ASSERT_LE(HeapPeak() - before, 64 * bytes.size() + 65536);
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
        ByteVector bytes = sample.bytes;
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
        ByteVector bytes = Samples()[random() % Samples().size()].bytes;
        for (unsigned change = random() % 4; change > 0 && !bytes.empty(); --change)
            bytes[random() % bytes.size()] = static_cast<std::uint8_t>(random());
        SCOPED_TRACE(round);
        CheckAgainstOracle(bytes);
        if (HasFatalFailure())
            return;
    }
}

TEST(StandardMidiFiles, TheReadPositionStandsBehindTheLastChunk) {
    const ByteVector file =
        Hex("4D 54 68 64 00 00 00 06 00 00 00 01 00 60 4D 54 72 6B 00 00 00 04 00 FF 2F 00 55 66");
    InEveryShape(file, [](std::strstream& stream) {
        const CZurSequence sequence(stream);
        EXPECT_EQ(stream.get(), 0x55);
        EXPECT_EQ(stream.get(), 0x66);
    });
}

}  // namespace
