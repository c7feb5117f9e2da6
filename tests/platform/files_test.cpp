#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>

#include "platform/files.h"

namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
protected:
    Files() {
        char pattern[] = "/tmp/orbix-files-XXXXXX";
        folder_ = mkdtemp(pattern);
    }
    ~Files() override {
        fs::permissions(folder_, fs::perms::owner_all);
        fs::remove_all(folder_);
    }

    std::string Path(const char* name) const { return folder_ + "/" + name; }
    std::size_t EntryCount() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }
    /// Runs in a process of its own that may write no file longer than `bytes`.
    static bool WithFileLimit(rlim_t bytes, const std::function<bool()>& call) {
        const pid_t child = fork();
        if (child == 0) {
            signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{bytes, bytes};
            setrlimit(RLIMIT_FSIZE, &limit);
            _exit(call() ? 0 : 1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    std::string folder_;
};

TEST_F(Files, ACommittedFileReadsBackWhole) {
    const std::string bytes("a\0b\r\n", 5);
    EXPECT_TRUE(WriteFileCommitted(Path("new"), bytes));
    EXPECT_EQ(ReadWholeFile(Path("new")), bytes);
    EXPECT_TRUE(WriteFileCommitted(Path("new"), ""));
    EXPECT_EQ(ReadWholeFile(Path("new")), "");
    EXPECT_TRUE(WriteFileCommitted(Path(std::string(255, 'n').c_str()), "x"));
    EXPECT_EQ(EntryCount(), 2U);
}

TEST_F(Files, TheOldFilesModeAndLinksStay) {
    ASSERT_TRUE(WriteFileCommitted(Path("real"), "old"));
    ASSERT_EQ(chmod(Path("real").c_str(), 0640), 0);
    fs::create_symlink("real", Path("link"));
    EXPECT_TRUE(WriteFileCommitted(Path("link"), "new"));
    EXPECT_TRUE(fs::is_symlink(Path("link")));
    EXPECT_EQ(ReadWholeFile(Path("real")), "new");
    struct stat status {};
    ASSERT_EQ(stat(Path("real").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(Files, AFailedCommitLeavesTheOldFileAndNothingElse) {
    ASSERT_TRUE(WriteFileCommitted(Path("kept"), "old"));
    EXPECT_FALSE(WithFileLimit(
        1000, [&] { return WriteFileCommitted(Path("kept"), std::string(5000, 'x')); }));
    EXPECT_EQ(ReadWholeFile(Path("kept")), "old");
    CString reason;
    EXPECT_FALSE(WriteFileCommitted(Path("none/file"), "x", &reason));
    EXPECT_EQ(reason, "No such file or directory");
    fs::create_directory(Path("folder"));
    EXPECT_FALSE(WriteFileCommitted(Path("folder"), "x", &reason));
    EXPECT_FALSE(reason.empty());
    EXPECT_EQ(EntryCount(), 2U);
}

TEST_F(Files, ReadingSaysWhyItFailed) {
    CString reason;
    EXPECT_EQ(ReadWholeFile(Path("none"), &reason), std::nullopt);
    EXPECT_EQ(reason, "No such file or directory");
    EXPECT_EQ(ReadWholeFile(folder_, &reason), std::nullopt);
    EXPECT_EQ(reason, "Is a directory");
}

TEST_F(Files, WritingInPlaceTellsHowMuchWentOut) {
    std::size_t written = 9;
    EXPECT_EQ(WriteFileInPlace(Path("none/file"), "abc", written), WriteOutcome::notOpened);
    EXPECT_EQ(written, 0U);
    EXPECT_EQ(WriteFileInPlace(Path("file"), "abc", written), WriteOutcome::written);
    EXPECT_EQ(written, 3U);
    EXPECT_TRUE(WithFileLimit(1000, [&] {
        return WriteFileInPlace(Path("file"), std::string(5000, 'x'), written) ==
                   WriteOutcome::cutShort &&
               written == 1000;
    }));
    EXPECT_EQ(fs::file_size(Path("file")), 1000U);
    EXPECT_TRUE(DeleteFile(Path("file")));
    EXPECT_FALSE(DeleteFile(Path("file")));
}

TEST_F(Files, RoomIsRefusedOnlyWhereItIsKnownToLack) {
    constexpr std::size_t huge = std::size_t{1} << 60U;
    EXPECT_TRUE(HasRoomForFile(Path("new"), 5000));
    EXPECT_FALSE(HasRoomForFile(Path("new"), huge));
    EXPECT_FALSE(HasRoomForFile(folder_, huge));
    EXPECT_TRUE(HasRoomForFile(Path("none/new"), huge));
    EXPECT_TRUE(HasRoomForFile("/proc/self/comm", huge)) << "a file system without a size";
    EXPECT_TRUE(WithFileLimit(1000, [&] {
        return HasRoomForFile(Path("new"), 1000) && !HasRoomForFile(Path("new"), 1001);
    }));
}

TEST_F(Files, TheCurrentFolderFitsIntoItsBuffer) {
    const fs::path before = fs::current_path();
    const std::string name(259 - folder_.size() - 1, 'f');
    for (const bool fits : {true, false}) {
        const std::string folder = Path((fits ? name : name + "f").c_str());
        fs::create_directory(folder);
        EXPECT_TRUE(SetCurrentFolder(folder));
        EXPECT_EQ(CurrentFolder(), fits ? std::optional(folder) : std::nullopt);
    }
    EXPECT_FALSE(SetCurrentFolder(Path("none")));
    fs::current_path(before);
}

TEST_F(Files, TheExtensionIsTheLastComponentsInLowerCase) {
    EXPECT_EQ(LowerExtension("/a.b/Take.CSV"), ".csv");
    EXPECT_EQ(LowerExtension("/a.b/take"), "");
    EXPECT_EQ(LowerExtension("take.tar.3DP"), ".3dp");
}

}  // namespace
