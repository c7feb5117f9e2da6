#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>

#include "ports/limited_worker.h"
#include "ports/midi_port.h"
#include "ports/output_choice.h"

namespace {

const MidiSystem kAlsa = MidiSystem::alsa;
const MidiSystem kJack = MidiSystem::jack;

TEST(Ports, NamesSurviveANewNumber) {
    const std::vector<CString> given{
        "Synth:MIDI 1 24:0", "Synth:MIDI 1 28:0", "Odd: 7", "Plain", "a 1:", "a :1", " 24:0",
        "x 12:34 y"};
    EXPECT_THAT(StableNames(given),
                testing::ElementsAre("Synth:MIDI 1", "Synth:MIDI 1 (2)", "Odd: 7", "Plain",
                                     "a 1:", "a :1", "", "x 12:34 y"));
}

TEST(Ports, ExactNameThenPrefixThenSubstring) {
    const std::vector<MidiPort> ports{
        {kAlsa, "Big Synth"}, {kAlsa, "Synth 2"}, {kJack, "Synth"}, {kJack, "synth:in"}};
    const std::pair<const char*, int> cases[] = {{"Synth", 2}, {"Synth ", 1}, {"Syn", 1}, {"yn", 0},
                                                 {"in", 3},    {"SYNTH", -1}, {"", -1}};
    for (const auto& [name, index] : cases) {
        const MidiPort* found = FindPort(ports, name);
        EXPECT_EQ(found == nullptr ? -1 : found - ports.data(), index) << name;
    }
}

TEST(Ports, WhatIsGoneKeepsItsPlaceAndComesBack) {
    PortBook book;
    const auto shown = [&book] {
        std::string text;
        for (const PortBook::Entry& entry : book.Entries()) {
            text += entry.port.name + (entry.connected ? "+ " : "- ");
        }
        return text;
    };
    const MidiPort a{kAlsa, "a"}, jackA{kJack, "a"}, b{kAlsa, "b"};
    book.Remember(b);
    EXPECT_EQ(shown(), "b- ");
    book.Update(std::vector{a, b, jackA});
    EXPECT_EQ(shown(), "b+ a+ a+ ");
    book.Update(std::vector{jackA});
    EXPECT_EQ(shown(), "b- a- a+ ");
    book.Update(std::vector{b, jackA});
    book.Remember(b);
    EXPECT_EQ(shown(), "b+ a- a+ ");
}

TEST(Ports, AChoiceIsOneLineAndBack) {
    using Kind = OutputChoice::Kind;
    const std::pair<const char*, OutputChoice> cases[] = {
        {"alsa:Synth:1", {Kind::port, kAlsa, "Synth:1"}},
        {"jack:x", {Kind::port, kJack, "x"}},
        {"own-alsa:Orbix", {Kind::ownPort, kAlsa, "Orbix"}},
        {"own-jack:Orbix", {Kind::ownPort, kJack, "Orbix"}},
        {"path:/dev/snd/midiC1D0", {Kind::path, kAlsa, "/dev/snd/midiC1D0"}}};
    for (const auto& [text, choice] : cases) {
        EXPECT_EQ(TextOf(choice), text);
        EXPECT_EQ(ChoiceOf(text), choice);
    }
    for (const char* text : {"", "alsa:", "oss:x", "path"}) {
        EXPECT_EQ(ChoiceOf(text), std::nullopt) << text;
    }
    EXPECT_EQ(LinkName({Kind::path, kAlsa, "/dev/../tmp/x"}), "path:/tmp/x");
    EXPECT_EQ(LinkName({Kind::path, kAlsa, "not-there"}),
              "path:" + (std::filesystem::current_path() / "not-there").string());
    EXPECT_EQ(LinkName({Kind::port, kJack, "x"}), "jack:x");
    EXPECT_EQ(LinkName({Kind::ownPort, kJack, "x"}), "");
}

TEST(Ports, ACallThatHangsIsLeftBehind) {
    LimitedWorker worker{std::chrono::milliseconds(100)};
    auto release = std::make_shared<std::atomic<bool>>(false);
    auto ended = std::make_shared<std::atomic<bool>>(false);
    const auto hang = [release, ended] {
        while (!*release) {
            std::this_thread::yield();
        }
        *ended = true;
        return 1;
    };
    EXPECT_EQ(worker.Ask([] { return 7; }), 7);
    EXPECT_EQ(worker.Ask(hang), std::nullopt);
    EXPECT_EQ(worker.Ask([] { return 8; }), 8) << "on a new thread";
    EXPECT_FALSE(*ended);
    *release = true;
    while (!*ended) {
        std::this_thread::yield();
    }
}

}  // namespace
