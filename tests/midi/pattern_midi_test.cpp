#include "midi/pattern_midi.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <tuple>

#include "midi/midi_file.h"
#include "params/pattern_form.h"
#include "tests/params/block_support.h"
#include "tests/sequence/tracks.h"

namespace {

/// tick, 3D ID, azimuth and elevation in wire form, millimetres.
using Position = std::array<std::uint32_t, 5>;
using Positions = std::vector<Position>;

std::unique_ptr<CQelCPB_3DPattern> PatternOf(std::uint32_t division,
                                             std::vector<t_tSigRec> timeSigs,
                                             const Positions& positions,
                                             const std::string& name = "New Pattern") {
    auto pattern = std::make_unique<CQelCPB_3DPattern>();
    SetNumber(*pattern, 2913, division);
    SetTimeSigs(*pattern, std::move(timeSigs));
    st_paramName nameRecord(name);
    pattern->SetParam(2902, &nameRecord, kSizeParamName);
    std::int32_t index = 0;
    for (const auto& [tick, id, azimuth, elevation, distance] : positions) {
        PutPosition(*pattern, tick);
        SetNumber(*pattern, 2905, id, index);
        SetNumber(*pattern, 2908, azimuth, index);
        SetNumber(*pattern, 2909, elevation, index);
        SetNumber(*pattern, 2910, distance, index++);
    }
    return pattern;
}

const Positions kTwo = {{5, 2, 34, 74, 1000}, {600000000, 0, 64, 64, 12750}};
const std::string kFirst = "F0 11 43 79 08 7F 29 02 00 00 07 68 22 4A 00 00 00 00 F7";
const std::string kSecond = "F0 11 43 79 08 7F 29 00 00 00 63 4E 40 40 00 00 00 00 F7";
const std::string kConductor =
    "0 FF 03 05 4F 72 62 69 74; 0 FF 51 03 07 A1 20; 0 FF 58 04 04 02 18 08; ";

TEST(PatternMidi, LooksLikeThisAsAFile) {
    const auto pattern = PatternOf(480, {{0, 1, 1, 0, 4, 4}, {0, 2, 1, 0, 6, 8}}, kTwo, "Orbit");
    const auto text = [&pattern](const PatternMidiLayout& layout) {
        std::string refusal;
        const auto sequence = SequenceFromPattern(*pattern, layout, refusal);
        return Text(sequence ? *sequence : CZurSequence());
    };
    // No delta time holds 600,000,000: empty texts stand between.
    EXPECT_EQ(text({}), kConductor + "5 " + kFirst +
                            "; 1915 FF 58 04 06 03 0C 08; 268435455 FF 01 00; 268435455 FF 01 00; "
                            "63127170 " +
                            kSecond + "; 0 FF 2F 00");
    const std::string idTrack = " | 0 FF 03 07 33 44 20 49 44 20 3";
    EXPECT_EQ(text({1, 1000000}),
              std::string(kConductor).replace(kConductor.find("07 A1 20"), 8, "0F 42 40") +
                  "1920 FF 58 04 06 03 0C 08; 0 FF 2F 00" + idTrack +
                  "0; 268435455 FF 01 00; 268435455 FF 01 00; 63129090 " + kSecond +
                  "; 0 FF 2F 00" + idTrack + "1; 0 FF 2F 00" + idTrack + "2; 5 " + kFirst +
                  "; 0 FF 2F 00" + idTrack + "3; 0 FF 2F 00");
}

TEST(PatternMidi, WhatFitsNoFileIsRefused) {
    const std::pair<std::unique_ptr<CQelCPB_3DPattern>, const char*> cases[] = {
        {PatternOf(0, {}, {}), "division 0: "},
        {PatternOf(32768, {}, {}), "division 32768: "},
        {PatternOf(480, {{0, 1, 1, 0, 5, 3}}, {}), "time signature 1:1:0 5/3: "},
        {PatternOf(480, {{0, 1, 1, 0, 256, 4}}, {}), "time signature 1:1:0 256/4: "},
        {PatternOf(960, {{0, 1, 1, 0, 64, 2}, {0, 99999, 1, 0, 4, 4}}, {}),
         "time signature 99999:1:0 4/4: "},
        {PatternOf(480, {{0, 2, 1, 0, 4, 4}, {0, 2, 1, 0, 3, 4}}, {}),
         "time signature 2:1:0 3/4: "}};
    for (const auto& [pattern, words] : cases) {
        std::string refusal;
        EXPECT_EQ(SequenceFromPattern(*pattern, {}, refusal), nullptr);
        EXPECT_EQ(refusal.substr(0, std::string(words).size()), words);
    }
}

TEST(PatternMidi, TakesItsOwnOutOfAnyFileAndCountsTheRest) {
    const std::string noTail = std::string(kFirst).replace(kFirst.size() - 5, 2, "01");
    const auto got = PatternFromSequence(SequenceOf(
        96, {"0 FF 03 02 48 69; 0 FF 03 01 61; 0 FF 51 03 07 A1 20; 384 FF 58 04 03 02 18 08; 9 " +
                 kFirst + "; 0 FF 58 01 03; 0 FF 2F 00; 4294967295 FF 58 04 05 02 18 08",
             "9 90 3C 40; 0 80 3D 40; 384 " + kSecond + "; 0 " + noTail +
                 "; 0 F7 01 F7; 0 FF 58 04 07 02 18 08; 0 FF 51 03 07 A1 20; 0 FF 01 00",
             "4294967295 FF 01 00; 9 " + kFirst,
             "0 F0 11 43 79 08 7F 29 07 7F 7F 7F 7F 7F 00 00 00 00 00 F7"}));
    EXPECT_EQ(got.name, "Hi");
    EXPECT_EQ(
        std::tie(got.channelMessages, got.metaEvents, got.systemMessages, got.positionsLeftOut),
        std::make_tuple(2U, 5U, 2U, 1U));
    auto expected = PatternOf(96, {{0, 2, 1, 0, 3, 4}},
                              {{0, 0, 0, 0, 0}, {393, 2, 34, 74, 1000}, {393, 0, 64, 64, 12750}});
    // As it came, for the load to correct: ID 7, azimuth 127, elevation 0, 65535 mm at most.
    st_paramChild child{0, 0, nullptr};
    ASSERT_TRUE(expected->GetParam(2900, &child, kSizeParamChild));
    std::string raw = Bytes("00 00 00 00 07 00 00 00 7F 00 00 00 FF FF");
    st_paramData data{2800, -1, raw.data(), 14};
    ASSERT_TRUE(dynamic_cast<CZurParamPort*>(child.block)->SetParam(8, &data, kSizeParamData));
    EXPECT_EQ(Hex(WritePatternBytes(*got.pattern)), Hex(WritePatternBytes(*expected)));
}

rc::Gen<std::uint32_t> Between(std::uint32_t first, std::uint32_t last) {
    return rc::gen::inRange(first, last + 1);
}

RC_GTEST_PROP(PatternMidi, TheSamePatternComesBackForAllGridValues, ()) {
    auto positions = *rc::gen::container<Positions>(rc::gen::map(
        rc::gen::tuple(Between(0, 999999999), Between(0, 3), Between(4, 123), Between(34, 94),
                       Between(0, 255)),
        [](const auto& each) {
            const auto& [tick, id, azimuth, elevation, steps] = each;
            // Half of the ticks near the start, so that some meet.
            return Position{tick % 2 ? tick : tick % 99, id, azimuth, elevation, steps * 50};
        }));
    std::ranges::sort(positions);
    std::vector<t_tSigRec> timeSigs;
    std::uint32_t measure = *Between(1, 2);
    for (const std::uint32_t gap : *rc::gen::container<std::vector<std::uint32_t>>(Between(1, 9))) {
        timeSigs.push_back({0, measure, 1, 0, *Between(1, 64), 1U << *Between(1, 5)});
        measure += gap;
    }
    const std::string name(*Between(0, 16), 'x');
    const auto pattern = PatternOf(*Between(1, 32767), timeSigs, positions, name);
    std::string refusal;
    const auto sequence =
        SequenceFromPattern(*pattern, {static_cast<std::int16_t>(*Between(0, 1)), 500000}, refusal);
    RC_ASSERT(refusal == "");
    MidiFault fault;
    const auto readBack = ReadMidiBytes(WriteMidiBytes(*sequence).value(), fault);
    const auto got = PatternFromSequence(*readBack);
    RC_ASSERT(got.name == name);
    RC_ASSERT(got.channelMessages + got.metaEvents + got.systemMessages == 0U);
    st_paramName nameRecord(name);
    got.pattern->SetParam(2902, &nameRecord, kSizeParamName);
    RC_ASSERT(Hex(WritePatternBytes(*got.pattern)) == Hex(WritePatternBytes(*pattern)));
}

}  // namespace
