#include "platform/named_guard.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/temporary_folder.h"

namespace {

class NamedGuard : public testing::Test {
protected:
    NamedGuard() { setenv("XDG_RUNTIME_DIR", folder_.Path().c_str(), 1); }

    static bool CanTake(const CString& name) { return CNamedGuard(name).IsHeld(); }
    /// A process that takes the guard, says whether it holds it, and waits to be killed.
    static pid_t StartHolder(bool& held) {
        int pipes[2];
        EXPECT_EQ(pipe(pipes), 0);
        const pid_t child = fork();
        if (child == 0) {
            const CNamedGuard guard("Editor");
            held = guard.IsHeld();
            if (write(pipes[1], &held, 1) == 1) {
                pause();
            }
            _exit(0);
        }
        EXPECT_EQ(read(pipes[0], &held, 1), 1);
        close(pipes[0]);
        close(pipes[1]);
        return child;
    }
    static void Kill(pid_t child) {
        kill(child, SIGKILL);
        EXPECT_EQ(waitpid(child, nullptr, 0), child);
    }

    const TemporaryFolder folder_;
};

TEST_F(NamedGuard, HasOneHolderAtATimeUntilThatIsGoneOrKilled) {
    bool held = false;
    for (int round = 0; round < 2; ++round) {
        const pid_t holder = StartHolder(held);
        EXPECT_TRUE(held);
        EXPECT_FALSE(CanTake("Editor"));
        Kill(holder);
        const CNamedGuard mine("Editor");
        EXPECT_TRUE(mine.IsHeld());
        EXPECT_FALSE(CanTake("Editor"));
        EXPECT_TRUE(CanTake("Other"));
        Kill(StartHolder(held));
        EXPECT_FALSE(held);
    }
}

TEST_F(NamedGuard, ItsFileIsPrivateAndStaysAndNoLinkIsFollowed) {
    namespace fs = std::filesystem;
    EXPECT_TRUE(CanTake("Editor"));
    const fs::path file = *fs::directory_iterator(folder_.Path());
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600));
    fs::remove(file);
    fs::create_symlink(folder_ / "elsewhere", file);
    EXPECT_FALSE(CanTake("Editor"));
    EXPECT_FALSE(fs::exists(folder_ / "elsewhere"));
}

}  // namespace
