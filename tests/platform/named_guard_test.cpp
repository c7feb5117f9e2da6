#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <vector>

#include "platform/named_guard.h"

namespace {

class NamedGuard : public testing::Test {
protected:
    NamedGuard() {
        char pattern[] = "/tmp/orbix-guard-XXXXXX";
        folder_ = mkdtemp(pattern);
        setenv("XDG_RUNTIME_DIR", folder_.c_str(), 1);
    }
    ~NamedGuard() override { std::filesystem::remove_all(folder_); }

    /// A process that takes the guard, says whether it holds it, and waits to be killed.
    static pid_t StartHolder(bool& held) {
        int pipes[2];
        EXPECT_EQ(pipe(pipes), 0);
        const pid_t child = fork();
        if (child == 0) {
            const CNamedGuard guard("Editor");
            const char answer = guard.IsHeld() ? 'y' : 'n';
            if (write(pipes[1], &answer, 1) == 1) {
                pause();
            }
            _exit(0);
        }
        char answer = '?';
        EXPECT_EQ(read(pipes[0], &answer, 1), 1);
        held = answer == 'y';
        close(pipes[0]);
        close(pipes[1]);
        return child;
    }
    static void Kill(pid_t child) {
        kill(child, SIGKILL);
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
    }

    std::string folder_;
};

TEST_F(NamedGuard, OneHolderAtATimeInThisProcess) {
    {
        const CNamedGuard first("Editor");
        EXPECT_TRUE(first.IsHeld());
        EXPECT_FALSE(CNamedGuard("Editor").IsHeld());
        EXPECT_TRUE(CNamedGuard("Other").IsHeld());
    }
    EXPECT_TRUE(CNamedGuard("Editor").IsHeld());
}

TEST_F(NamedGuard, ComesFreeWhenItsHolderIsKilled) {
    for (int round = 0; round < 2; ++round) {
        bool held = false;
        const pid_t holder = StartHolder(held);
        EXPECT_TRUE(held);
        EXPECT_FALSE(CNamedGuard("Editor").IsHeld());
        Kill(holder);
        EXPECT_TRUE(CNamedGuard("Editor").IsHeld());
    }
    bool held = true;
    const CNamedGuard mine("Editor");
    const pid_t other = StartHolder(held);
    EXPECT_FALSE(held);
    Kill(other);
}

TEST_F(NamedGuard, ItsFileIsPrivateAndStaysAndNoLinkIsFollowed) {
    EXPECT_TRUE(CNamedGuard("Editor").IsHeld());
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
        files.push_back(entry.path());
    }
    ASSERT_EQ(files.size(), 1U);
    struct stat status {};
    ASSERT_EQ(stat(files[0].c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    std::filesystem::remove(files[0]);
    std::filesystem::create_symlink(folder_ + "/elsewhere", files[0]);
    EXPECT_FALSE(CNamedGuard("Editor").IsHeld());
    EXPECT_FALSE(std::filesystem::exists(folder_ + "/elsewhere"));
}

}  // namespace
