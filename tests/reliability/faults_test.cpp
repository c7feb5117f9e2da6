// Faults from outside: memory that runs out at each allocation of a load or of an opening, and a
// process that is killed at each step of a save.

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <link.h>
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <new>

#include "event/event_store.h"
#include "event/pattern_range.h"
#include "midi/pattern_midi.h"
#include "params/pattern_form.h"
#include "platform/files.h"
#include "platform/hooks.h"
#include "sequence/api.h"
#include "tests/dialog/editor.h"

namespace {

long allocationsLeft = -1;  // below 0: memory does not run out

bool ranOut = false;

std::atomic<long> blocksHeld = 0;

// The toolkit does not outlive a failure of its own, so those of its libraries are not counted.
bool IsOfToolkit(void* caller) {
    dl_find_object found{};
    return _dl_find_object(caller, &found) == 0 &&
           std::strstr(found.dlfo_link_map->l_name, "libQt6") != nullptr;
}

bool RunsOut(void* caller) {
    const bool now = allocationsLeft >= 0 && !IsOfToolkit(caller) && allocationsLeft-- == 0;
    ranOut = ranOut || now;
    return now;
}

/// The n-th allocation from here to the end of the scope fails, and it alone.
class FailingAllocation {
public:
    explicit FailingAllocation(long n) {
        ranOut = false;
        allocationsLeft = n;
    }
    ~FailingAllocation() { Lift(); }
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    /// Ends it early; whether it has failed.
    static bool Lift() {
        allocationsLeft = -1;
        return ranOut;
    }
};

}  // namespace

// A failure that is raised through the toolkit leaves texts of its own behind.
extern "C" ORBIX_API const char*
__lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libQt6";
}

void* operator new(std::size_t size) {
    void* const block = RunsOut(__builtin_return_address(0)) ? nullptr : std::malloc(size);
    return block != nullptr ? (++blocksHeld, block) : throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* const block = RunsOut(__builtin_return_address(0)) ? nullptr : std::malloc(size);
    blocksHeld += block != nullptr ? 1 : 0;
    return block;
}
void operator delete(void* block) noexcept {
    blocksHeld -= block != nullptr ? 1 : 0;
    std::free(block);  // NOLINT: this is the allocator
}
void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}

namespace {

constexpr long kMostAllocations = 100000;

/// Runs `action` with memory running out at its first, second, ... allocation until none is left
/// to fail. What it raises but std::bad_alloc fails the test. Gives the number of allocations.
template <typename Action>
long WithEachAllocationFailing(const Action& action) {
    for (long n = 0; n < kMostAllocations; ++n) {
        SCOPED_TRACE("allocation " + std::to_string(n));
        const FailingAllocation failing(n);
        try {
            action();
        } catch (const std::bad_alloc&) {
            FailingAllocation::Lift();
            continue;
        }
        if (!FailingAllocation::Lift()) {
            return n;
        }
        if (testing::Test::HasFailure()) {
            break;
        }
    }
    ADD_FAILURE() << "there was no end";
    return kMostAllocations;
}

TEST(Memory, APatternIsReadCopiedAndTakenFromMidiWholeOrNotAtAll) {
    const CQelCPB_3DPattern song = PatternOf(Song());
    const std::string stored = WritePatternBytes(song);
    PatternFault fault;
    std::string refusal;
    const auto sequence = SequenceFromPattern(song, {}, refusal);
    const std::function<std::unique_ptr<CQelCPB_3DPattern>()> ways[] = {
        [&] { return ReadPatternBytes(stored, fault); }, [&] { return CopyPattern(song); },
        [&] { return PatternInside(song, {}); },
        [&] { return PatternFromSequence(*sequence).pattern; }};
    for (const auto& way : ways) {
        SCOPED_TRACE(&way - ways);
        const std::string bytes = WritePatternBytes(*way());
        EXPECT_GT(WithEachAllocationFailing([&] {
                      const auto pattern = way();
                      ASSERT_NE(pattern, nullptr);
                      FailingAllocation::Lift();
                      EXPECT_EQ(WritePatternBytes(*pattern), bytes);
                  }),
                  30);
    }
}

// A load that memory stops leaves the table and its history. Some failures are got over: sorting
// does without a buffer.
template <typename Load>
void ExpectWholeOrUntouched(const Load& load) {
    C3DEventData store;
    Add(store, Position(1, 77));
    const auto before = StateOf(store);
    EXPECT_GT(WithEachAllocationFailing([&] {
                  C3DEventData attempt = store;
                  try {
                      load(attempt);
                  } catch (const std::bad_alloc&) {
                      EXPECT_TRUE(FailingAllocation::Lift());
                      EXPECT_EQ(StateOf(attempt), before);
                      throw;
                  }
                  FailingAllocation::Lift();
                  EXPECT_GT(attempt.CountEvents(-1), 1);
              }),
              10);
}

TEST(Memory, ALoadIsWholeOrLeavesTheTable) {
    const HooksScope scope;
    Hooks().messageBox = [](const CString&, UINT) { return IDOK; };
    Hooks().waitCursor = [](bool) {};
    const std::string text = "Division,96\r\n3D ID\r\n,1,1,0,,,,3_4\r\n7,1,2,5,1020,5,0\r\n";
    CQelCPB_3DPattern pattern = PatternOf(Song());
    C3DReport report;
    ExpectWholeOrUntouched([&](C3DEventData& store) { store.LoadCsvText(text, report); });
    ExpectWholeOrUntouched([&](C3DEventData& store) { store.LoadFromPattern(&pattern, report); });
}

TEST(Memory, ATableIsStoredWholeOrRaisesAndNothingIsLeftBehind) {
    SCOPED_TRACE("stored");  // so that the list of traces has grown before blocks are counted
    C3DEventData store;
    for (const _tagEvent3D& event : Song()) {
        Add(store, event);
    }
    CQelCPB_3DPattern pattern;
    store.StoreToPattern(&pattern, "Song");
    const std::string bytes = WritePatternBytes(pattern);
    const long held = blocksHeld;
    EXPECT_GT(WithEachAllocationFailing([&] {
                  store.StoreToPattern(&pattern, "Song");
                  FailingAllocation::Lift();
                  EXPECT_EQ(WritePatternBytes(pattern), bytes);
              }),
              30);
    EXPECT_EQ(blocksHeld, held);
}

/// An editor whose n-th allocation fails while it sets itself up.
class StarvedDialog : public COrbixMainDlg {
public:
    StarvedDialog(CQelCPB_3DPattern* pattern, CZurSMWMan& link, long n)
        : COrbixMainDlg(nullptr, pattern, nullptr, nullptr, link, nullptr, 0, 0, 0, true, "", ""),
          n_(n) {}

private:
    BOOL OnInitDialog() override {
        const FailingAllocation failing(n_);
        return COrbixMainDlg::OnInitDialog();
    }
    long n_;
};

TEST(Memory, AnEditorOpensWholeOrRaises) {
    CQelCPB_3DPattern pattern = PatternOf(Song());
    const std::string bytes = WritePatternBytes(pattern);
    CZurSMWMan link{nullptr, nullptr, nullptr, nullptr};
    long n = -1;
    do {
        SCOPED_TRACE("allocation " + std::to_string(++n));
        StarvedDialog dialog(&pattern, link, n);
        try {
            RunDialog(dialog, [&](DialogDriver&) {
                EXPECT_EQ(dialog.GetDlgItemAs<CListCtrl>(kListEvents)->GetItemCount(), 6);
            });
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(dialog.m_hWnd, nullptr);
        }
    } while (ranOut && !HasFailure());
    EXPECT_GT(n, 100);
    EXPECT_EQ(WritePatternBytes(pattern), bytes);
}

/// Writes the file in a process that is killed at the n-th stop before or behind one of its system
/// calls. False when it came to its end before.
bool WriteAndKill(const std::string& path, const std::string& text, int n) {
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
            _exit(1);  // No leave to trace; stopped, it would wait for ever.
        }
        raise(SIGSTOP);
        WriteFileCommitted(path, text);
        _exit(0);
    }
    int status = 0;
    for (int stop = 0; waitpid(child, &status, 0) == child && WIFSTOPPED(status); ++stop) {
        if (stop == n) {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            return true;
        }
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    }
    return false;
}

TEST(Save, AKilledProcessLeavesOneOfTheTwoFiles) {
    const TemporaryFolder folder;
    const std::string path = folder / "pattern.3dp";
    const std::string before(200000, 'a'), after(50000, 'b');
    std::string seen;
    for (int n = 0;; ++n) {
        ASSERT_TRUE(WriteFileCommitted(path, before));
        const bool killed = WriteAndKill(path, after, n);
        const auto bytes = ReadWholeFile(path);
        ASSERT_TRUE(bytes == before || bytes == after) << "killed at stop " << n;
        seen += bytes == before ? 'a' : 'b';
        if (!killed) {
            break;
        }
    }
    EXPECT_THAT(seen, testing::MatchesRegex("aaaaaaaaaa+bb+")) << "no step of the save was stopped";
}

}  // namespace
