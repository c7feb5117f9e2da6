#include "params/pattern_form.h"

#include <gtest/gtest.h>

#include "tests/params/block_support.h"
#include "tests/support/data.h"
#include "tests/support/stored_pattern.h"

namespace {

// A line a block or header.
const std::string kDefault = Bytes(TestData("pattern/default.hex"));

/// A pattern with numbers at their limits and an unknown block that looks like a composite.
std::string RichSample() {
    CQelCPB_3DPattern pattern;
    st_paramName name("\xFF a name of 16..");
    pattern.SetParam(2902, &name, kSizeParamName);
    SetNumber(pattern, 2913, 0xFFFFFFFF);
    for (const std::uint32_t tick : {960U, 0xFFFFFFFFU, 0U})
        PutPosition(pattern, tick);
    for (std::uint32_t id = 2905; id <= 2910; ++id)
        SetNumber(pattern, id, id == 2905 ? 3 : 0x7FFFFF7F, 0);
    SetTimeSigs(pattern, {{0, 1, 1, 0, 3, 4}, {0, 0xFFFFFFFF, 0, 7, 0, 65535}});
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

TEST(PatternForm, WhatIsAcceptedGoesOutAsItCame) {
    const std::string placement = Block(2800, std::string(14, '\1'));
    const std::string position = Composite(2903, 1, placement);
    const std::string ends = Composite(2906, 0, "") + Block(2907, Word(96));
    const std::string samples[] = {
        kDefault,
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
    PatternFault fault;
    EXPECT_EQ(WrittenHex(CQelCPB_3DPattern()), Hex(kDefault));
    EXPECT_TRUE(ReadPatternBytes(kDefault, fault)->IsEqual(CQelCPB_3DPattern()));
}

TEST(PatternForm, NamesWhatIsWrongAndWhere) {
    const auto with = [](std::string bytes, std::size_t offset, std::size_t word) {
        return bytes.replace(offset, 4, Word(word));
    };
    const std::string faulty[] = {
        "",
        "PK\3\4",
        "MThd" + Word(6) + std::string(192, '\0'),
        kDefault + "\n",
        with(kDefault, 4, 0xFFFFFFFF),
        with(kDefault, 12, 164),
        with(kDefault, 16, 0xFFFFFFFF),
        with(kDefault, 16, 4),
        with(kDefault, 16, 6),
        with(kDefault, 56, 0xFFFFFFF0),
        Composite(0, 1, Block(2907, "12345")),
        with(kDefault, 117, 0x7FFFFFFF),
        with(kDefault, 133, 43),
        with(Composite(0, 1, Block(2900, "abc")), 24, 4),
        with(kDefault, 161, 9999),
        Composite(0, 1, Block(2903, "not a list")),
        Composite(0, 1, Composite(2903, 0, "")),
        Composite(0, 1, Block(2906, "")),
        Composite(0, 1, Composite(2906, 1, Composite(5700, 1, Block(5801, "abc")))),
    };
    std::string texts;
    for (const auto& bytes : faulty) {
        texts += ReadAndWrite(bytes) + "\n";
    }
    EXPECT_EQ(texts, TestData("pattern/faults.txt"));
}

TEST(PatternForm, CutOrDamagedAtEachByteItIsRefusedOrReadWhole) {
    for (const auto& sample : {kDefault, RichSample()}) {
        for (std::size_t place = 0; place < sample.size(); ++place) {
            const std::string cut = sample.substr(0, place);
            EXPECT_TRUE(CheckPatternBytes(cut).has_value()) << place;
            // Without the check, reading takes what is there and completes the rest.
            Source source(cut);
            CQelCPB_3DPattern pattern;
            st_paramStream record{0, 0, 0, &source.stream};
            EXPECT_TRUE(pattern.SetParam(3, &record, kSizeParamStream));
            EXPECT_NE(Number(pattern, 2913), -1) << place;
            std::string damaged = sample;
            damaged[place] = static_cast<char>(~damaged[place]);
            PatternFault fault;
            const auto whole = ReadPatternBytes(damaged, fault);
            ASSERT_NE(whole == nullptr, fault.expected.empty()) << place;
            EXPECT_FALSE(whole && CheckPatternBytes(WritePatternBytes(*whole))) << place;
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

}  // namespace
