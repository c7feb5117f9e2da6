// Reading, writing and destroying Standard MIDI Files, held against a bare walk over the bytes and
// a literal reader in the same run. `bench_sequence --table [COUNT]` prints the ratios of
// docs/performance.md for the first COUNT of the four groups of files; without it the same runs are
// plain benchmarks.

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>

#include "bench/sequence_files.h"
#include "bench/sequence_yardsticks.h"
#include "sequence/zur_sequence.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr double kMega = 1e6;
constexpr std::chrono::seconds kRoundTime(2);
constexpr std::size_t kGroups = 4;

double SecondsOn(clockid_t clock, const std::function<void()>& action) {
    const auto now = [clock] {
        timespec time{};
        clock_gettime(clock, &time);
        return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
    };
    const double start = now();
    action();
    return now() - start;
}

/// Seconds for one file or the sum over several.
struct Times {
    double walk = 1e9;
    double read = 1e9;
    double write = 1e9;
    double destroy = 1e9;
};

/// A file in a stream that can be read again and again.
class BenchFile {
public:
    explicit BenchFile(const MadeFile& file)
        : m_bytes(FileMaker(file).Make()),
          m_stream(reinterpret_cast<char*>(m_bytes.data()), static_cast<int>(m_bytes.size()),
                   std::ios::in | std::ios::out) {
        m_stream.seekp(static_cast<std::streamoff>(m_bytes.size()));
    }
    std::size_t Bytes() const { return m_bytes.size(); }
    /// By the processor's time, so that what else runs on the machine does not count. Reading that
    /// clock takes microseconds, so short files are taken by the wall clock, often.
    double SecondsOf(const std::function<void()>& action) const {
        return SecondsOn(Bytes() < 500000 ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID, action);
    }
    std::strstream& Rewound() {
        m_stream.clear();
        m_stream.seekg(0);
        return m_stream;
    }

    void Walk(Times& best) const {
        best.walk =
            std::min(best.walk, SecondsOf([this] { benchmark::DoNotOptimize(WalkFile(m_bytes)); }));
    }
    template <typename Result>
    void Run(Times& best) {
        std::unique_ptr<Result> result;
        std::strstream& in = Rewound();
        std::strstream out;
        best.read = std::min(best.read, SecondsOf([&] { result = std::make_unique<Result>(in); }));
        best.write = std::min(best.write, SecondsOf([&] { result->Write(out); }));
        best.destroy = std::min(best.destroy, SecondsOf([&] { result.reset(); }));
    }

private:
    std::vector<std::uint8_t> m_bytes;
    std::strstream m_stream;
};

using Group = std::vector<std::unique_ptr<BenchFile>>;

const std::array<const char*, kGroups> kNames = {"40 songs of 4 to 60 KB", "1 MB, 1 track",
                                                 "10 MB mixed, 16 tracks", "50 MB, 64 tracks"};

/// Forty songs are so many that no processor learns them by heart.
std::vector<MadeFile> FilesOf(std::size_t group) {
    if (group > 0)
        return std::vector<std::vector<MadeFile>>{
            {{1000000, 1, 1000, 11}}, {{10000000, 16, 4000, 12}}, {{50000000, 64, 4000, 13}}}
            .at(group - 1);
    std::vector<MadeFile> songs;
    for (std::uint32_t seed = 1; seed <= 40; ++seed)
        songs.push_back({4000 + seed * 37 % 40 * 1400, 1 + static_cast<int>(seed * 7 % 17),
                         60 + static_cast<int>(seed) * 10, seed});
    return songs;
}

Group& GroupOf(std::size_t index) {
    static std::array<Group, kGroups> groups;
    Group& group = groups.at(index);
    if (group.empty())
        for (const MadeFile& file : FilesOf(index))
            group.push_back(std::make_unique<BenchFile>(file));
    return group;
}

double BytesOf(const Group& group) {
    std::size_t bytes = 0;
    for (const auto& file : group)
        bytes += file->Bytes();
    return static_cast<double>(bytes);
}

void BM_Walk(benchmark::State& state) {
    const Group& group = GroupOf(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        Times times;
        for (const auto& file : group)
            file->Walk(times);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(BytesOf(group)));
    state.SetLabel(kNames.at(static_cast<std::size_t>(state.range(0))));
}

template <typename Result, double Times::*part>
void BM_File(benchmark::State& state) {
    Group& group = GroupOf(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        double seconds = 0;
        for (const auto& file : group) {
            Times times;
            file->Run<Result>(times);
            seconds += times.*part;
        }
        state.SetIterationTime(seconds);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(BytesOf(group)));
    state.SetLabel(kNames.at(static_cast<std::size_t>(state.range(0))));
}

BENCHMARK(BM_Walk)->DenseRange(0, 3);
BENCHMARK(BM_File<LiteralFile, &Times::read>)->DenseRange(0, 3)->UseManualTime();
BENCHMARK(BM_File<CZurSequence, &Times::read>)->DenseRange(0, 3)->UseManualTime();
BENCHMARK(BM_File<LiteralFile, &Times::write>)->DenseRange(0, 3)->UseManualTime();
BENCHMARK(BM_File<CZurSequence, &Times::write>)->DenseRange(0, 3)->UseManualTime();
BENCHMARK(BM_File<LiteralFile, &Times::destroy>)->DenseRange(0, 3)->UseManualTime();
BENCHMARK(BM_File<CZurSequence, &Times::destroy>)->DenseRange(0, 3)->UseManualTime();

/// Kilobytes of a line of this process's status.
double StatusKilobytes(const std::string& key) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind(key, 0) == 0)
            return std::stod(line.substr(key.size() + 1));
    return 0;
}

/// In a process of its own: seconds of its first read, and the memory that it took a byte.
template <typename Result>
void RunOnce(std::size_t index) {
    Group& group = GroupOf(index);
    std::vector<std::unique_ptr<Result>> results;
    results.reserve(group.size());
    std::ofstream("/proc/self/clear_refs") << 5;  // the peak counts from here
    const double before = StatusKilobytes("VmRSS:");
    const double seconds = SecondsOn(CLOCK_PROCESS_CPUTIME_ID, [&] {
        for (const auto& file : group)
            results.push_back(std::make_unique<Result>(file->Rewound()));
    });
    const double peak = (StatusKilobytes("VmHWM:") - before) * 1024;
    std::printf("%.9f %.3f\n", seconds, peak / BytesOf(group));
}

/// Best seconds of a first read and bytes of memory a byte, over seven fresh processes.
std::pair<double, double> Once(const char* reader, std::size_t group) {
    std::array<char, 4096> self{};
    if (readlink("/proc/self/exe", self.data(), self.size() - 1) < 0)
        return {};
    const std::string command =
        std::string(self.data()) + " --once " + reader + " " + std::to_string(group);
    std::pair<double, double> best{1e9, 1e9};
    for (int run = 0; run < 7; ++run) {
        FILE* const pipe = popen(command.c_str(), "r");
        std::pair<double, double> each{1e9, 1e9};
        if (pipe && std::fscanf(pipe, "%lf %lf", &each.first, &each.second) == 2)
            best = {std::min(best.first, each.first), std::min(best.second, each.second)};
        if (pipe)
            pclose(pipe);
    }
    return best;
}

/// Runs `action` on each file in turn for some seconds; gives the sum of the files' best times.
template <typename Action>
Times BestOf(const Group& group, Action action) {
    std::vector<Times> best(group.size());
    const auto start = Clock::now();
    for (int round = 0; round < 7 || Clock::now() - start < kRoundTime; ++round)
        for (std::size_t i = 0; i < group.size(); ++i)
            action(*group[i], best[i]);
    Times sum{0, 0, 0, 0};
    for (const Times& times : best)
        sum = {sum.walk + times.walk, sum.read + times.read, sum.write + times.write,
               sum.destroy + times.destroy};
    return sum;
}

// One reader after the other: what one leaves of the heap must not slow the other down.
void PrintRow(std::size_t index) {
    Group& group = GroupOf(index);
    const Times walk = BestOf(group, [](auto& file, Times& best) { file.Walk(best); });
    const Times ours =
        BestOf(group, [](auto& file, Times& best) { file.template Run<CZurSequence>(best); });
    const Times literal =
        BestOf(group, [](auto& file, Times& best) { file.template Run<LiteralFile>(best); });
    const auto [first, memory] = Once("sequence", index);
    const auto [literalFirst, literalMemory] = Once("literal", index);
    const double mega = BytesOf(group) / kMega;
    std::printf("| %s | %.0f | %.0f | %.2f | %.2f | %.2f | %.2f | %.0f %% | %.1f (%.1f) |\n",
                kNames.at(index), mega / walk.walk, mega / ours.read, ours.read / walk.walk,
                literal.read / ours.read, literalFirst / first, literal.write / ours.write,
                100 * ours.destroy / ours.read, memory, literalMemory);
    std::fflush(stdout);
}

void PrintTable(std::size_t count) {
    std::puts(
        "| files | walk MB/s | read MB/s | read / walk | literal / read | first literal / read | "
        "literal / write | destroy / read | memory a byte (literal) |\n"
        "|---|---|---|---|---|---|---|---|---|");
    for (std::size_t index = 0; index < count; ++index)
        PrintRow(index);
}

/// Warm means that the process has its memory: the heap keeps what is freed.
void KeepHeapWarm() {
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 3 && words[0] == "--once") {
        const std::size_t group = std::stoul(words[2]);
        words[1] == "literal" ? RunOnce<LiteralFile>(group) : RunOnce<CZurSequence>(group);
        return 0;
    }
    KeepHeapWarm();
    if (!words.empty() && words[0] == "--table") {
        PrintTable(words.size() > 1 ? std::stoul(words[1]) : kGroups);
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
