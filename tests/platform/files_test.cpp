#include "platform/files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <clocale>
#include <cstdlib>

#include "tests/support/file_limit.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
protected:
    auto EntryCount() const {
        return std::distance(fs::directory_iterator(folder_.Path()), fs::directory_iterator());
    }
    /// Runs while no file may grow longer than 1000 bytes.
    template <typename Call>
    static auto WithFileLimit(const Call& call) {
        const FileLimit limit(1000);
        return call();
    }

    const TemporaryFolder folder_;
};

TEST_F(Files, ACommitKeepsTheUsersMaskTheOldFilesModeAndLinks) {
    const std::string bytes("a\0b\r\n", 5), longest(255, 'n');
    const mode_t mask = umask(026);
    EXPECT_TRUE(WriteFileCommitted(folder_ / longest, bytes));
    EXPECT_EQ(umask(mask), 026U);
    EXPECT_EQ(ReadWholeFile(folder_ / longest), bytes);
    EXPECT_EQ(fs::status(folder_ / longest).permissions(), fs::perms(0640));
    fs::permissions(folder_ / longest, fs::perms(0602));
    fs::create_symlink(longest, folder_ / "link");
    EXPECT_TRUE(WriteFileCommitted(folder_ / "link", ""));
    EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
    EXPECT_EQ(ReadWholeFile(folder_ / longest), "");
    EXPECT_EQ(fs::status(folder_ / longest).permissions(), fs::perms(0602));
    fs::create_symlink("link to come", folder_ / "link to link");
    fs::create_symlink(folder_ / "to come", folder_ / "link to come");
    EXPECT_TRUE(WriteFileCommitted(folder_ / "link to link", "new"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "link to link"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "link to come"));
    EXPECT_EQ(ReadWholeFile(folder_ / "to come"), "new");
    EXPECT_EQ(EntryCount(), 5);
}

TEST_F(Files, AFailureSaysWhyAndLeavesTheOldFileAndNothingElse) {
    ASSERT_TRUE(WriteFileCommitted(folder_ / "kept", "old"));
    EXPECT_FALSE(WithFileLimit(
        [&] { return WriteFileCommitted(folder_ / "kept", std::string(5000, 'x')); }));
    EXPECT_EQ(ReadWholeFile(folder_ / "kept"), "old");
    CString reason;
    setlocale(LC_ALL, "C.UTF-8");  // As a toolkit does: the words are English all the same.
    setenv("LANGUAGE", "de", 1);
    EXPECT_FALSE(WriteFileCommitted(folder_ / "none/file", "x", &reason));
    unsetenv("LANGUAGE");
    setlocale(LC_ALL, "C");
    EXPECT_EQ(reason, "No such file or directory");
    fs::create_directory(folder_ / "folder");
    EXPECT_FALSE(WriteFileCommitted(folder_ / "folder", "x", &reason));
    EXPECT_EQ(reason, "Is a directory");
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(WriteFileCommitted(folder_ / "pipe", "x", &reason));
    EXPECT_EQ(reason, "not a plain file");
    EXPECT_EQ(KindOfPath(folder_ / "pipe"), PathKind::other) << "still there";
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    // A link of the system's own, as /dev/stdout, whose text is no path.
    EXPECT_FALSE(WriteFileCommitted("/proc/self/fd/" + std::to_string(ends[1]), "x", &reason));
    EXPECT_EQ(reason, "not a plain file");
    close(ends[0]);
    close(ends[1]);
    fs::create_symlink("loop", folder_ / "loop");
    EXPECT_FALSE(WriteFileCommitted(folder_ / "loop", "x", &reason));
    EXPECT_EQ(reason, "Too many levels of symbolic links");
    EXPECT_TRUE(fs::is_symlink(folder_ / "loop"));
    EXPECT_EQ(ReadWholeFile(folder_ / "folder", &reason), std::nullopt);
    EXPECT_EQ(reason, "Is a directory");
    EXPECT_EQ(ReadWholeFile(folder_ / "none", &reason), std::nullopt);
    EXPECT_EQ(reason, "No such file or directory");
    EXPECT_EQ(EntryCount(), 4);
}

TEST_F(Files, WritingInPlaceTellsHowMuchWentOut) {
    std::size_t written = 9;
    EXPECT_EQ(WriteFileInPlace(folder_ / "none/file", "abc", written), WriteOutcome::notOpened);
    EXPECT_EQ(written, 0U);
    EXPECT_EQ(WriteFileInPlace(folder_ / "file", "abc", written), WriteOutcome::written);
    EXPECT_EQ(written, 3U);
    EXPECT_EQ(WithFileLimit([&] {
                  return WriteFileInPlace(folder_ / "file", std::string(5000, 'x'), written);
              }),
              WriteOutcome::cutShort);
    EXPECT_EQ(written, 1000U);
    EXPECT_EQ(fs::file_size(folder_ / "file"), 1000U);
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(WriteFileInPlace(folder_ / "pipe", "abc", written), WriteOutcome::notOpened);
}

TEST_F(Files, RoomIsRefusedOnlyWhereItIsKnownToLack) {
    constexpr std::size_t huge = std::size_t{1} << 60U;
    EXPECT_TRUE(HasRoomForFile(folder_ / "new", 5000));
    EXPECT_FALSE(HasRoomForFile(folder_ / "new", huge));
    EXPECT_FALSE(HasRoomForFile(folder_.Path(), huge));
    EXPECT_TRUE(HasRoomForFile(folder_ / "none/new", huge));
    EXPECT_TRUE(HasRoomForFile("/proc/self/comm", huge)) << "a file system without a size";
    EXPECT_TRUE(WithFileLimit([&] {
        return HasRoomForFile(folder_ / "new", 1000) && !HasRoomForFile(folder_ / "new", 1001);
    }));
}

TEST_F(Files, TheCurrentFolderFitsIntoItsBuffer) {
    for (const std::size_t length : {259U, 260U}) {
        const std::string folder = folder_ / std::string(length - folder_.Path().size() - 1, 'f');
        fs::create_directory(folder);
        EXPECT_TRUE(SetCurrentFolder(folder));
        EXPECT_EQ(CurrentFolder(), length < 260 ? std::optional(folder) : std::nullopt);
    }
    EXPECT_FALSE(SetCurrentFolder(folder_ / "none"));
    EXPECT_EQ(LowerExtension("/a.b/Take.CSV"), ".csv");
    EXPECT_EQ(LowerExtension("/a.b/take"), "");
}

}  // namespace
