#include "params/pattern_form.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "sequence/byte_stream.h"
#include "tests/params/block_support.h"

namespace {

const std::string kDefault = Bytes(
    "00 00 00 00 00 00 00 AD "              // pattern
    "00 00 00 00 00 00 00 A5 00 00 00 05 "  // 5 children
    "00 00 0B 54 00 00 00 18 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
    "00 00 00 00 00 00 00 00 "                                                     // reserved
    "00 00 0B 55 00 00 00 11 4E 65 77 20 50 61 74 74 65 72 6E 00 00 00 00 00 00 "  // name
    "00 00 0B 56 00 00 00 04 00 00 00 00 "                                         // number
    "00 00 0B 5B 00 00 00 04 00 00 01 E0 "                                         // division 480
    "00 00 0B 5A 00 00 00 48 00 00 00 00 00 00 00 40 00 00 00 01 "   // time signatures
    "00 00 16 44 00 00 00 34 00 00 00 00 00 00 00 2C 00 00 00 03 "   // the first
    "00 00 16 A8 00 00 00 0C 01 00 00 00 01 00 00 00 00 00 00 00 "   // 1, 1, 0
    "00 00 16 A9 00 00 00 02 00 04 00 00 16 AA 00 00 00 02 00 04");  // 4/4

std::string Word(std::size_t number) {
    std::string bytes(4, '\0');
    EncodeBigEndian32(static_cast<std::uint32_t>(number),
                      reinterpret_cast<std::uint8_t*>(bytes.data()));
    return bytes;
}

std::string Block(std::uint32_t id, const std::string& payload) {
    return Word(id) + Word(payload.size()) + payload;
}

std::string Composite(std::uint32_t id, std::uint32_t count, const std::string& children) {
    return Block(id, Block(0, Word(count) + children));
}

/// A pattern with a position event, an unknown block that looks like a composite, and two metres.
std::string RichSample() {
    CQelCPB_3DPattern pattern;
    PutPosition(pattern, 960);
    SetNumber(pattern, 2905, 3, 0);
    std::vector<t_tSigRec> metres = {{0, 1, 1, 0, 3, 4}, {0, 4, 1, 0, 6, 8}};
    st_paramTimeSigRecords reference{&metres};
    pattern.SetParam(2914, &reference, kSizeReference);
    Source unknown(Composite(0xABCD, 1, Block(1, "x")));
    Held(pattern)->ReadChild(&unknown.stream);
    return WritePatternBytes(pattern);
}

/// Reads and gives what is written again, or the fault's text.
std::string ReadAndWrite(const std::string& bytes) {
    PatternFault fault;
    const auto pattern = ReadPatternBytes(bytes, fault);
    return pattern == nullptr ? fault.Text() : Hex(WritePatternBytes(*pattern));
}

TEST(PatternForm, TheDefaultPatternIsThese181Bytes) {
    const CQelCPB_3DPattern pattern;
    EXPECT_EQ(Hex(WritePatternBytes(pattern)), Hex(kDefault));
    PatternFault fault;
    const auto back = ReadPatternBytes(kDefault, fault);
    ASSERT_NE(back, nullptr) << fault.Text();
    EXPECT_TRUE(back->IsEqual(pattern));
}

TEST(PatternForm, WhatIsAcceptedGoesOutAsItCame) {
    const std::string placement = Block(2800, std::string(14, '\1'));
    const std::string position = Composite(2903, 1, placement);
    const std::string ends = Composite(2906, 0, "") + Block(2907, Word(96));
    const std::string samples[] = {
        RichSample(),
        Composite(77, 2, ends),                // identifier kept
        Composite(0, 3, position + ends),      // other order
        Composite(0, 3, Block(0, "") + ends),  // empty unknown block
        Composite(0, 3, Composite(2903, 2, Block(1, "q") + placement) + ends),
        Composite(0, 3, Composite(2903, 1, Block(2800, "ab")) + ends),  // short placement
        Composite(0, 2, Composite(2906, 1, Block(5, "list")) + Block(2907, Word(1))),
        Composite(0, 3, Block(2902, "") + ends),  // number of no bytes
    };
    for (const auto& sample : samples) {
        EXPECT_EQ(ReadAndWrite(sample), Hex(sample));
    }
}

TEST(PatternForm, NamesWhatIsWrongAndWhere) {
    const std::string rich = RichSample();
    const auto with = [](std::string bytes, std::size_t offset, const std::string& replacement) {
        return bytes.replace(offset, replacement.size(), replacement);
    };
    struct {
        std::string bytes;
        const char* text;
    } const cases[] = {
        {"", "at byte 0, pattern: expected a pattern of at least 20 bytes, found nothing"},
        {"PK\3\4", "at byte 0, pattern: expected a pattern of at least 20 bytes, found 4 bytes"},
        {"MThd" + Word(6) + std::string(192, '\0'),
         "at byte 4, pattern: expected a length of 192 bytes, all that follows, found a length of "
         "6 bytes behind the identifier 4D 54 68 64"},
        {kDefault + "\n",
         "at byte 181, pattern: expected the end of the pattern, found 1 byte more"},
        {with(kDefault, 4, Word(0xFFFFFFFF)),
         "at byte 4, pattern: expected a length of 173 bytes, all that follows, found a length of "
         "4294967295 bytes behind the identifier 00 00 00 00"},
        {with(kDefault, 12, Word(164)),
         "at byte 12, pattern: expected a length of 165 bytes, found a length of 164 bytes"},
        {with(kDefault, 16, Word(0xFFFFFFFF)),
         "at byte 16, pattern: expected at most 20 children, found 4294967295"},
        {with(kDefault, 16, Word(4)),
         "at byte 101, pattern: expected the end after 4 children, found 80 bytes more"},
        {with(kDefault, 16, Word(6)),
         "at byte 181, pattern: expected the header of child 6, 8 bytes, found 0 bytes"},
        {with(kDefault, 56, Word(0xFFFFFFF0)),
         "at byte 56, pattern > name (block 2901, child 2): expected a length of at most 121 bytes,"
         " found a length of 4294967280 bytes"},
        {Composite(0, 1, Block(2907, "12345")),
         "at byte 24, pattern > division (block 2907, child 1): expected a length of at most 4 "
         "bytes, found a length of 5 bytes"},
        {with(kDefault, 117, Word(0x7FFFFFFF)),
         "at byte 117, pattern > time signatures (block 2906, child 5): expected at most 7 "
         "children, found 2147483647"},
        {with(kDefault, 133, Word(43)),
         "at byte 133, pattern > time signatures (block 2906, child 5) > time signature (block "
         "5700, child 1): expected a length of 44 bytes, found a length of 43 bytes"},
        {with(Composite(0, 1, Block(2900, "abc")), 24, Word(4)),
         "at byte 24, pattern > reserved (block 2900, child 1): expected a length of at most 3 "
         "bytes, found a length of 4 bytes"},
        {with(kDefault, 161, Word(9999)),
         "at byte 129, pattern > time signatures (block 2906, child 5) > time signature (block "
         "5700, child 1): expected numerator (block 5801), found none"},
        {Composite(0, 1, Block(2903, "not a list")),
         "at byte 28, pattern > position event (block 2903, child 1): expected a list of blocks of "
         "at least 12 bytes, found 10 bytes"},
        {Composite(0, 1, Composite(2903, 0, "")),
         "at byte 28, pattern > position event (block 2903, child 1): expected placement (block "
         "2800), found none"},
        {Composite(0, 1, Block(2906, "")),
         "at byte 28, pattern > time signatures (block 2906, child 1): expected a list of blocks "
         "of at least 12 bytes, found 0 bytes"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(ReadAndWrite(test.bytes), test.text);
    }
}

TEST(PatternForm, CutShortAtEachLengthItIsRefusedAndHarmless) {
    for (const auto& sample : {kDefault, RichSample()}) {
        for (std::size_t length = 0; length < sample.size(); ++length) {
            const std::string cut = sample.substr(0, length);
            EXPECT_TRUE(CheckPatternBytes(cut).has_value()) << length;
            // Without the check, reading takes what is there and completes the rest.
            Source source(cut);
            CQelCPB_3DPattern pattern;
            st_paramStream record{0, 0, 0, &source.stream};
            EXPECT_TRUE(pattern.SetParam(3, &record, kSizeParamStream));
            EXPECT_NE(Number(pattern, 2913), -1) << length;
        }
    }
}

TEST(PatternForm, DeepNestingStaysOpaque) {
    for (const std::uint32_t id : {2903U, 2906U, 9999U}) {
        std::string nested = Block(2800, "");
        for (int depth = 0; depth < 10'000; ++depth) {
            nested.insert(0, Word(id) + Word(nested.size() + 12) + Word(0) +
                                 Word(nested.size() + 4) + Word(1));
        }
        const std::string bytes = Composite(0, 1, nested);
        CQelCPB_3DPattern pattern;
        Source source(bytes);
        pattern.Read(&source.stream, true);
        EXPECT_EQ(CheckPatternBytes(bytes).has_value(), id == 2903) << id;
    }
}

/// A pattern from random numbers, some of them out of every limit.
void Fill(CQelCPB_3DPattern& pattern) {
    st_paramName name(*rc::gen::string<std::string>());
    pattern.SetParam(2902, &name, kSizeParamName);
    SetNumber(pattern, 2913, *rc::gen::arbitrary<std::uint32_t>());
    std::vector<t_tSigRec> metres(*rc::gen::inRange<std::size_t>(0, 5));
    for (auto& metre : metres) {
        metre.measure = *rc::gen::arbitrary<std::uint32_t>();
        metre.denominator = *rc::gen::arbitrary<std::uint16_t>();
    }
    st_paramTimeSigRecords reference{&metres};
    pattern.SetParam(2914, &reference, kSizeReference);
    for (int events = *rc::gen::inRange(0, 6), i = 0; i < events; ++i) {
        PutPosition(pattern, *rc::gen::arbitrary<std::uint32_t>(), *rc::gen::inRange(-1, 4));
        SetNumber(pattern, *rc::gen::inRange(2905U, 2911U), *rc::gen::arbitrary<std::uint32_t>(),
                  i);
    }
}

TEST(PatternForm, RoundTripKeepsEveryPattern) {
    EXPECT_TRUE(rc::check([] {
        CQelCPB_3DPattern pattern;
        Fill(pattern);
        PatternFault fault;
        const std::string bytes = WritePatternBytes(pattern);
        const auto back = ReadPatternBytes(bytes, fault);
        RC_ASSERT(back != nullptr);
        RC_ASSERT(back->IsEqual(pattern));
        RC_ASSERT(WritePatternBytes(*back) == bytes);
        RC_ASSERT(Ticks(*back) == Ticks(pattern));
    }));
}

TEST(PatternForm, DamagedBytesAreRefusedOrReadWhole) {
    const std::string sample = RichSample();
    EXPECT_TRUE(rc::check([&sample] {
        std::string bytes = sample;
        for (int changes = *rc::gen::inRange(1, 4); changes > 0; --changes) {
            bytes[*rc::gen::inRange<std::size_t>(0, bytes.size())] = *rc::gen::arbitrary<char>();
        }
        Source source(bytes);
        CQelCPB_3DPattern unchecked;
        unchecked.Read(&source.stream, true);
        PatternFault fault;
        const auto pattern = ReadPatternBytes(bytes, fault);
        RC_ASSERT(pattern != nullptr || !fault.expected.empty());
        if (pattern != nullptr) {
            RC_ASSERT(!CheckPatternBytes(WritePatternBytes(*pattern)).has_value());
        }
    }));
}

}  // namespace
