// Faults from outside: memory that runs out at each allocation of a load, and a process that is
// killed at any moment of a save.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <new>
#include <random>

#include "event/event_store.h"
#include "params/pattern_form.h"
#include "platform/files.h"
#include "platform/hooks.h"
#include "sequence/api.h"
#include "tests/dialog/editor.h"

namespace {

long allocationsLeft = -1;  // below 0: memory does not run out

bool ranOut = false;

bool RunsOut() {
    const bool now = allocationsLeft >= 0 && allocationsLeft-- == 0;
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

// Without memory a block that changes its owner may be left behind; what counts here is that no
// table and no file suffers.
extern "C" ORBIX_API int __lsan_is_turned_off();  // NOLINT(bugprone-reserved-identifier)
extern "C" int __lsan_is_turned_off() {
    return 1;
}

void* operator new(std::size_t size) {
    void* const block = RunsOut() ? nullptr : std::malloc(size);
    return block != nullptr ? block : throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return RunsOut() ? nullptr : std::malloc(size);
}
void operator delete(void* block) noexcept {
    std::free(block);  // NOLINT: this is the allocator
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);  // NOLINT: this is the allocator
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

TEST(Memory, APatternIsReadWholeOrNotAtAll) {
    const std::string bytes = WritePatternBytes(PatternOf(Song()));
    PatternFault fault;
    EXPECT_GT(WithEachAllocationFailing([&] {
                  const auto pattern = ReadPatternBytes(bytes, fault);
                  ASSERT_NE(pattern, nullptr);
                  FailingAllocation::Lift();
                  EXPECT_EQ(WritePatternBytes(*pattern), bytes);
              }),
              50);
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

// The child writes one of two texts over the other again and again; whenever it dies, the file is
// one of them, whole.
TEST(Save, AKilledProcessLeavesOneOfTheTwoFiles) {
    const TemporaryFolder folder;
    const std::string path = folder / "pattern.3dp";
    const std::string texts[] = {std::string(200000, 'a'), std::string(50000, 'b')};
    ASSERT_TRUE(WriteFileCommitted(path, texts[0]));
    std::mt19937 random(1);
    for (int round = 0; round < 100; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            for (unsigned i = 0;; ++i) {
                WriteFileCommitted(path, texts[i % 2]);
            }
        }
        usleep(static_cast<useconds_t>(random() % 5000));
        kill(child, SIGKILL);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        const auto bytes = ReadWholeFile(path);
        ASSERT_TRUE(bytes == texts[0] || bytes == texts[1]) << "round " << round;
    }
}

}  // namespace
