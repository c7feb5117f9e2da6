#include <gmock/gmock.h>
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <random>

#include "sequence/byte_stream.h"
#include "tests/sequence/plain_reader.h"
#include "tests/sequence/tracks.h"
#include "tests/support/data.h"

namespace {

std::size_t s_heap = 0;  // bytes that the program holds by `new`
std::size_t s_peak = 0;

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    void* const block = std::malloc(size);
    s_heap += malloc_usable_size(block);
    s_peak = std::max(s_peak, s_heap);
    return block;
}

void* operator new(std::size_t size) {
    void* const block = operator new(size, std::nothrow);
    return block ? block : throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
    s_heap -= malloc_usable_size(block);
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    operator delete(block);
}

namespace {

namespace fs = std::filesystem;

struct Sample {
    std::string name;
    int code;  ///< of its folder; 0 for the valid ones
    std::string bytes;
    std::string dump;  ///< of a valid one, with line feeds for carriage returns
};

const std::vector<Sample>& Samples() {
    static const std::vector<Sample> samples = [] {
        std::vector<Sample> all;
        for (const auto& entry : fs::recursive_directory_iterator(ORBIX_TEST_DATA "/smf")) {
            const fs::path path = fs::relative(entry.path(), ORBIX_TEST_DATA);
            const std::string folder = path.parent_path().filename();
            const std::string name = path.stem();
            if (path.extension() == ".mid")
                all.push_back({name, folder == "valid" ? 0 : -std::stoi(folder), TestData(path),
                               TestData("smf_dumps/" + name + ".txt")});
        }
        return all;
    }();
    return samples;
}

/// Reads `bytes` in every shape and holds the outcome, the text and the heap against the oracle.
void CheckAgainstOracle(const std::string& bytes) {
    InEveryShape(bytes, [&](std::strstream& stream) {
        const std::size_t before = s_peak = s_heap;
        CZurSequence sequence;
        const int code = CodeOf([&] { sequence.Load(stream); });
        // Slabs of events do not go through `new`: 16 KiB, and half an event's 32 bytes a byte.
        ASSERT_LE(s_peak - before + 16384 + 16 * bytes.size(), 64 * bytes.size() + 65536);
        if (code <= kSeqNoFileTag)
            return;  // refused by its header
        const PlainReader oracle(bytes);
        ASSERT_EQ(code, oracle.code);
        if (code == 0) {
            ASSERT_THAT(DumpOf(sequence), testing::EndsWith(oracle.text));
            ASSERT_EQ(BytesLeft(stream), oracle.BytesLeft());
        }
    });
}

TEST(StandardMidiFiles, EverySampleGivesItsCodeOrItsEventsAndReadsBack) {
    ASSERT_GE(Samples().size(), 59U);
    for (const Sample& sample : Samples()) {
        SCOPED_TRACE(sample.name);
        CheckAgainstOracle(sample.bytes);
        std::strstream stream, written;
        Put(stream, sample.bytes);
        CZurSequence sequence;
        ASSERT_EQ(CodeOf([&] { sequence.Load(stream); }), sample.code);
        if (sample.code != 0)
            continue;
        std::string dump = DumpOf(sequence);
        std::replace(dump.begin(), dump.end(), '\r', '\n');
        EXPECT_EQ(dump, sample.dump);
        sequence.Save(written);
        if (sequence.GetTrackCount() == 0)
            continue;  // none promised by its sign, and none is no count of format 1
        EXPECT_EQ(DumpOf(CZurSequence(written)), DumpOf(sequence));
    }
}

TEST(StandardMidiFiles, CutAtEachLengthAndDamaged) {
    std::mt19937 random(20);
    for (const Sample& sample : Samples()) {
        // Inside a long payload one place is as another.
        for (std::size_t size = 0; size<sample.bytes.size(); size += size> 600 ? 37 : 1) {
            SCOPED_TRACE(sample.name + " at " + std::to_string(size));
            CheckAgainstOracle(sample.bytes.substr(0, size));
            std::string damaged = sample.bytes;
            for (unsigned change = random() % 4; change > 0; --change)
                damaged[random() % damaged.size()] = static_cast<char>(random());
            CheckAgainstOracle(damaged);
            if (HasFatalFailure())
                return;
        }
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
    ASSERT_EQ(PlainReader(bytes).code, 0);
    CheckAgainstOracle(bytes);
}

// A file's events are destroyed without a look at those that have no heap block.
TEST(StandardMidiFiles, EditsOfEventsThatWereReadLeaveNoBlockBehind) {
    const std::string chunk =
        BytesOf(TrackOf("0 90 3C 40; 0 90 3D 40; 0 90 3E 40; 0 FF 01 03 61 62 63; "
                        "0 FF 01 04 61 62 63 64; 0 F0 08 01 02 03 04 05 06 07 F7; 0 FF 2F 00"));
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
    const std::size_t before = s_heap;
    edit();
    EXPECT_EQ(s_heap, before);
}

}  // namespace
