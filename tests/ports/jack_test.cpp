#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <thread>

#include "link/local_link.h"
#include "platform/files.h"
#include "platform/hooks.h"
#include "ports/midi_output.h"
#include "ports/port_finder.h"
#include "tests/support/bytes.h"
#include "tests/support/process.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::HasSubstr;

// Takes away what a server that goes before its clients leaves in shared memory.
struct Sweeper {
    ~Sweeper() {
        const std::string name = std::getenv("JACK_DEFAULT_SERVER");
        for (const auto& entry : std::filesystem::directory_iterator("/dev/shm")) {
            if (entry.path().string().find(name) != std::string::npos) {
                std::filesystem::remove(entry);
            }
        }
    }
};

// A server with the dummy driver under a name of this process, and a program that listens. Its
// cycles are long, because a busy machine loses what was sent in one that comes late.
struct JackTest : testing::Test {
    JackTest() {
        ::setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);
        ::setenv("JACK_DEFAULT_SERVER", ("orbix-test-" + std::to_string(::getpid())).c_str(), 1);
    }
    void SetUp() override {
        StartServer();
        if (!Await([this] { return finder.Look().Has(MidiSystem::jack); })) {
            GTEST_SKIP() << "jackd does not run here:\n" << Read("server");
        }
    }
    void StartServer() {
        server = std::make_unique<Process>(
            std::vector<std::string>{ORBIX_JACKD, "-n", std::getenv("JACK_DEFAULT_SERVER"),
                                     "--no-realtime", "-S", "-d", "dummy", "-r", "48000", "-p",
                                     "1024"},
            folder / "server");
    }
    void StartListener() {
        listener = std::make_unique<Process>(
            std::vector<std::string>{ORBIX_JACK_MIDI_DUMP, "-r", "far-synth"}, folder / "heard");
        EXPECT_TRUE(Await([this] { return !finder.Look().ports.empty(); }));
    }
    std::string Read(const std::string& name) const {
        return ReadWholeFile(folder / name).value_or("");
    }
    /// What the listener heard, byte after byte; it writes a line of hexadecimal pairs a message.
    std::string Heard() const {
        std::string bytes;
        std::istringstream lines(Read("heard"));
        for (std::string line; std::getline(lines, line);) {
            std::transform(line.begin(), line.end(), line.begin(), ::toupper);
            const std::size_t colon = line.find(": ");
            bytes += colon == std::string::npos ? "" : Bytes(line.substr(colon));
        }
        return bytes;
    }
    /// The listener runs on in its own time, so it is waited for, at most five seconds.
    template <typename Condition>
    static bool Await(Condition condition) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (!condition() && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return condition();
    }
    int RunProgram(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), ORBIX_PROGRAM);
        return Process(arguments, folder / "words").Await();
    }

    Sweeper sweeper;
    TemporaryFolder folder;
    std::unique_ptr<Process> server, listener;
    PortFinder finder;
};

const std::string kMessage = Bytes("F0 43 79 08 7F 29 02 00 00 07 68 22 4A 00 00 00 00 F7");

TEST_F(JackTest, MessagesArriveByteByByte) {
    StartListener();
    EXPECT_EQ(RunProgram({"ports"}), 0);
    EXPECT_THAT(Read("words"), HasSubstr("JACK  far-synth:input\n"));
    EXPECT_EQ(RunProgram({"send", "--port", "synth", "--id", "2", "--azimuth", "-90", "--elevation",
                          "30"}),
              0)
        << Read("words");
    EXPECT_TRUE(Await([this] { return Heard() == kMessage; })) << Hex(Heard());
    EXPECT_EQ(RunProgram({"convert", ORBIX_EXAMPLES "/orbit.3dp", folder / "all.syx"}), 0);
    EXPECT_EQ(RunProgram({"send", ORBIX_EXAMPLES "/orbit.3dp", "--port", "far"}), 0);
    const std::string all = kMessage + Read("all.syx");
    EXPECT_TRUE(Await([&] { return Heard() == all; })) << Hex(Heard());
    EXPECT_EQ(all.size(), 45U * 18U);
}

TEST_F(JackTest, NeitherALeavingListenerNorADeadServerHangsOrIsTakenForSuccess) {
    const HooksScope scope;
    std::atomic<DWORD> ahead = 0;
    Hooks().tickCount = [real = Hooks().tickCount, &ahead] { return real() + ahead; };
    MidiOutput output(MidiOutput::Kind::other, {MidiSystem::jack, "far-synth:input"});
    LocalLink link;
    link.Open("far", output);
    const auto send = [&] { return link.Manager().SendData(kMessage.data(), 18); };
    EXPECT_EQ(send(), -1);
    EXPECT_EQ(output.FailureText(), "the port is not connected");
    StartListener();
    EXPECT_EQ(send(), 18);
    EXPECT_TRUE(Await([this] { return Heard() == kMessage; }));

    listener->End(SIGTERM);
    EXPECT_TRUE(Await([this] { return finder.Look().ports.empty(); }));
    ahead = 1100;  // a connection is trusted 1 s
    EXPECT_EQ(send(), -1);
    StartListener();
    EXPECT_EQ(send(), 18) << "found again by its name";
    EXPECT_TRUE(Await([this] { return Heard() == kMessage; }));

    server->End(SIGTERM);
    for (int turn = 0; turn < 3; ++turn) {
        EXPECT_EQ(send(), -1);
        EXPECT_EQ(output.FailureText(), "no JACK server is running");
    }
    listener.reset();
    StartServer();
    ASSERT_TRUE(Await([this] { return finder.Look().Has(MidiSystem::jack); })) << Read("server");
    StartListener();
    EXPECT_EQ(send(), 18) << "a new server";
    EXPECT_TRUE(Await([this] { return Heard() == kMessage; })) << Hex(Heard());
}

TEST_F(JackTest, AServerThatDiesUnderATransferEndsIt) {
    StartListener();
    Process program(
        {ORBIX_PROGRAM, "send", ORBIX_EXAMPLES "/orbit.3dp", "--port", "far-synth", "--gap", "100"},
        folder / "words");
    EXPECT_TRUE(Await([this] { return Heard().size() > 2 * 18; }));
    server->End(SIGKILL);
    EXPECT_EQ(program.Await(), 5);
    EXPECT_THAT(Read("words"), HasSubstr("far-synth:input: "));
    EXPECT_THAT(Read("words"), HasSubstr(" of 44 messages went out\n"));
}

TEST_F(JackTest, AServerThatStandsStillHangsNobody) {
    auto client = std::make_unique<PortFinder>();
    EXPECT_TRUE(client->Look().Has(MidiSystem::jack));
    server->Signal(SIGSTOP);
    EXPECT_EQ(RunProgram({"send", "--own-port", "position", "--id", "0"}), 5);
    client.reset();
    server->End(SIGKILL);
}

TEST_F(JackTest, OthersCanConnectToAPortOfOurOwn) {
    MidiOutput output(MidiOutput::Kind::own, {MidiSystem::jack, "position"});
    ASSERT_TRUE(output.PrepareOutput(1)) << output.FailureText();
    StartListener();
    const std::string connect = std::filesystem::path(ORBIX_JACKD).parent_path() / "jack_connect";
    EXPECT_EQ(Process({connect, "Orbix:position", "far-synth:input"}, folder / "words").Await(), 0)
        << Read("words");
    EXPECT_EQ(output.WriteBlock(kMessage.data(), 18), 18);
    EXPECT_TRUE(Await([this] { return Heard() == kMessage; }));
}

}  // namespace
