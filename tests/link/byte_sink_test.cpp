#include "link/byte_sink.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "platform/files.h"
#include "tests/link/test_clock.h"
#include "tests/support/temporary_folder.h"

namespace {

struct ByteSinkTest : testing::Test {
    ByteSinkTest() { EXPECT_EQ(::mkfifo(pipe.c_str(), 0600), 0); }
    ~ByteSinkTest() override { LetReaderGo(); }
    void OpenReader() { reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK); }
    void LetReaderGo() {
        if (reader >= 0) {
            ::close(reader);
        }
        reader = -1;
    }
    std::string ReadOn() const {
        std::string bytes(10'000, '\0');
        const ssize_t count = ::read(reader, bytes.data(), bytes.size());
        return bytes.substr(0, count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    static std::int32_t Send(ByteSink& sink, const std::string& bytes) {
        return sink.PrepareOutput(1)
                   ? sink.WriteBlock(bytes.data(), static_cast<std::uint32_t>(bytes.size()))
                   : -2;
    }

    FakeClock clock;
    TemporaryFolder folder;
    std::string pipe = folder / "pipe";
    int reader = -1;
};

TEST_F(ByteSinkTest, FileIsMadeAndWrittenOn) {
    const std::string path = folder / "out.syx";
    {
        ByteSink sink(path);
        EXPECT_EQ(Send(sink, "abc"), 3);
        EXPECT_EQ(Send(sink, ""), 0);
        EXPECT_TRUE(sink.PrepareOutput(0));
        EXPECT_EQ(Send(sink, "de"), 2);
    }
    ByteSink again(path);
    EXPECT_EQ(Send(again, "f"), 1);
    EXPECT_EQ(ReadWholeFile(path), "abcdef");
    EXPECT_EQ(again.FailureText(), "");
}

TEST_F(ByteSinkTest, WhatCannotBeOpenedIsNamedAndNeverMadeInTheDeviceFolder) {
    std::filesystem::create_symlink("/dev/orbix-no-such-node", folder / "link");
    const struct {
        std::string path;
        const char* words;
    } cases[] = {{folder.Path(), "Is a directory"},
                 {folder / "none/out", "No such file or directory"},
                 {"/dev/orbix-no-such-node", "No such file or directory"},
                 {"/dev/shm/../orbix-no-such-node", "No such file or directory"},
                 {folder / "link", "File exists"}};
    for (const auto& [path, words] : cases) {
        ByteSink sink(path);
        EXPECT_EQ(Send(sink, "abc"), -2) << path;
        EXPECT_EQ(sink.WriteBlock("abc", 3), -1) << path;
        EXPECT_EQ(sink.FailureText(), words) << path;
    }
    EXPECT_FALSE(std::filesystem::exists("/dev/orbix-no-such-node"));
    EXPECT_EQ(clock.Elapsed(), 0U) << "only a pipe is waited for";
    ByteSink full("/dev/full");
    EXPECT_EQ(Send(full, "abc"), -1);
    EXPECT_EQ(full.FailureText(), "No space left on device");
}

TEST_F(ByteSinkTest, PipeWaitsForItsReaderUpToTheLimit) {
    ByteSink sink(pipe, 300);
    EXPECT_FALSE(sink.PrepareOutput(1));
    EXPECT_EQ(clock.Elapsed(), 300U);
    EXPECT_EQ(sink.FailureText(), "nobody reads the pipe");
    clock.onSleep = [this](DWORD) {
        if (reader < 0 && clock.Elapsed() >= 450) {
            OpenReader();
        }
    };
    EXPECT_EQ(Send(sink, "abc"), 3);
    EXPECT_EQ(clock.Elapsed(), 450U);
    EXPECT_EQ(sink.FailureText(), "");
    EXPECT_EQ(ReadOn(), "abc");
}

TEST_F(ByteSinkTest, BlockLargerThanThePipeGoesOutInParts) {
    std::string sent(300'000, '\0');
    for (std::size_t index = 0; index < sent.size(); ++index) {
        sent[index] = static_cast<char>(index % 251);
    }
    std::string got;
    OpenReader();
    clock.onSleep = [&](DWORD) { got += ReadOn(); };
    ByteSink sink(pipe, 20);
    EXPECT_EQ(Send(sink, sent), 300'000);
    for (std::string more = ReadOn(); !more.empty(); more = ReadOn()) {
        got += more;
    }
    EXPECT_TRUE(got == sent);
    EXPECT_GT(clock.Elapsed(), 20U) << "the limit is for standing still, not for the whole";

    clock.onSleep = nullptr;
    const DWORD before = clock.Elapsed();
    EXPECT_EQ(Send(sink, sent), -1) << "nobody reads on";
    EXPECT_EQ(clock.Elapsed() - before, 20U);
    EXPECT_EQ(sink.FailureText(), "the receiver takes no more bytes");
}

TEST_F(ByteSinkTest, ReaderThatLeavesBreaksNothing) {
    OpenReader();
    ByteSink sink(pipe, 100);
    EXPECT_EQ(Send(sink, "abc"), 3);
    LetReaderGo();
    EXPECT_EQ(Send(sink, "def"), -1);
    EXPECT_EQ(sink.FailureText(), "nobody reads the pipe");
    clock.onSleep = [this](DWORD) {
        if (reader < 0) {
            OpenReader();
        }
    };
    EXPECT_EQ(Send(sink, "ghi"), 3) << "a new reader in time gets the block whole";
    EXPECT_EQ(ReadOn(), "ghi");
}

}  // namespace
