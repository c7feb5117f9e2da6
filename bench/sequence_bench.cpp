// Reading and writing Standard MIDI Files, against a bare walk over the bytes and a literal reader
// in the same run. `bench_sequence --table [COUNT]` prints the ratios of
// docs/performance.md, for the first COUNT of the four groups of files.

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
#include <optional>
#include <sstream>

#include "bench/sequence_files.h"
#include "bench/sequence_yardsticks.h"
#include "sequence/zur_sequence.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kMega = 1000000;
constexpr std::chrono::seconds kRoundTime(2);

/// Forty songs of 4 to 60 KB: so many that no processor learns them by heart.
std::vector<MadeFile> Songs() {
    std::vector<MadeFile> songs;
    for (std::uint32_t seed = 1; seed <= 40; ++seed)
        songs.push_back({"song", 4000 + seed * 37 % 40 * 1400, 1 + static_cast<int>(seed * 7 % 17),
                         60 + static_cast<int>(seed) * 10, seed});
    return songs;
}

const std::vector<MadeFile> kLarge = {
    {"1 MB, 1 track", kMega, 1, 1000, 11},
    {"10 MB mixed, 16 tracks", 10 * kMega, 16, 4000, 12},
    {"50 MB, 64 tracks", 50 * kMega, 64, 4000, 13},
};

/// A group of files in streams that can be read again and again.
class Corpus {
public:
    explicit Corpus(const std::vector<MadeFile>& files) {
        for (const MadeFile& file : files) {
            m_files.push_back(FileMaker(file).Make());
            auto& bytes = m_files.back();
            auto& stream = m_streams.emplace_back(std::make_unique<std::strstream>(
                reinterpret_cast<char*>(bytes.data()), static_cast<int>(bytes.size()),
                std::ios::in | std::ios::out));
            stream->seekp(static_cast<std::streamoff>(bytes.size()));
            m_bytes += bytes.size();
        }
    }
    std::size_t Bytes() const { return m_bytes; }
    std::size_t Walk() const {
        std::size_t events = 0;
        for (const auto& file : m_files)
            events += WalkFile(file);
        return events;
    }
    template <typename Result>
    void Read(std::vector<std::unique_ptr<Result>>& results) {
        for (const auto& stream : m_streams) {
            stream->clear();
            stream->seekg(0);
            results.push_back(std::make_unique<Result>(*stream));
        }
    }

private:
    std::vector<std::vector<std::uint8_t>> m_files;
    std::vector<std::unique_ptr<std::strstream>> m_streams;
    std::size_t m_bytes = 0;
};

/// Processor time of this process, so that what else runs on the machine does not count.
double ProcessorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

double SecondsOf(const std::function<void()>& action) {
    const double start = ProcessorSeconds();
    action();
    return ProcessorSeconds() - start;
}

/// Seconds for reading, writing and destroying a whole corpus once.
struct Times {
    double read = 1e9;
    double write = 1e9;
    double destroy = 1e9;

    void KeepBest(const Times& other) {
        read = std::min(read, other.read);
        write = std::min(write, other.write);
        destroy = std::min(destroy, other.destroy);
    }
};

template <typename Result>
Times Measure(Corpus& corpus) {
    Times times;
    std::vector<std::unique_ptr<Result>> results;
    times.read = SecondsOf([&] { corpus.Read(results); });
    times.write = 0;
    for (const auto& result : results) {
        std::strstream out;
        times.write += SecondsOf([&] { result->Write(out); });
    }
    times.destroy = SecondsOf([&] { results.clear(); });
    return times;
}

Corpus& CorpusOf(int index) {
    static std::array<std::unique_ptr<Corpus>, 4> corpora;
    auto& corpus = corpora.at(static_cast<std::size_t>(index));
    if (!corpus)
        corpus = std::make_unique<Corpus>(
            index == 0 ? Songs() : std::vector{kLarge.at(static_cast<std::size_t>(index) - 1)});
    return *corpus;
}

const char* NameOf(int index) {
    return index == 0 ? "40 songs of 4 to 60 KB" : kLarge.at(static_cast<std::size_t>(index) - 1).name.c_str();
}

void BM_Walk(benchmark::State& state) {
    Corpus& corpus = CorpusOf(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(corpus.Walk());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(corpus.Bytes()));
    state.SetLabel(NameOf(static_cast<int>(state.range(0))));
}

template <typename Result, double Times::*part>
void BM_File(benchmark::State& state) {
    Corpus& corpus = CorpusOf(static_cast<int>(state.range(0)));
    Measure<Result>(corpus);
    for (auto _ : state)
        state.SetIterationTime(Measure<Result>(corpus).*part);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(corpus.Bytes()));
    state.SetLabel(NameOf(static_cast<int>(state.range(0))));
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

/// In a process of its own: seconds of its first read and the memory that it needed at its peak.
template <typename Result>
void RunOnce(int index) {
    Corpus& corpus = CorpusOf(index);
    std::ofstream("/proc/self/clear_refs") << 5;  // the peak counts from here
    const double before = StatusKilobytes("VmRSS:");
    std::vector<std::unique_ptr<Result>> results;
    const double seconds = SecondsOf([&] { corpus.Read(results); });
    const double peak = (StatusKilobytes("VmHWM:") - before) * 1024;
    std::printf("%.9f %.3f\n", seconds, peak / static_cast<double>(corpus.Bytes()));
}

/// Best seconds of a first read and bytes of memory a byte, over seven fresh processes.
std::pair<double, double> Once(const char* reader, int index) {
    std::array<char, 4096> self{};
    if (readlink("/proc/self/exe", self.data(), self.size() - 1) < 0)
        return {};
    const std::string command =
        std::string(self.data()) + " --once " + reader + " " + std::to_string(index);
    std::pair<double, double> best{1e9, 1e9};
    for (int run = 0; run < 7; ++run) {
        FILE* const pipe = popen(command.c_str(), "r");
        std::pair<double, double> each{1e9, 1e9};
        if (std::fscanf(pipe, "%lf %lf", &each.first, &each.second) == 2)
            best = {std::min(best.first, each.first), std::min(best.second, each.second)};
        pclose(pipe);
    }
    return best;
}

void Keep(std::size_t value) {
    benchmark::DoNotOptimize(value);
}

void Repeat(const std::function<void()>& action) {
    const auto start = Clock::now();
    for (int round = 0; round < 7 || Clock::now() - start < kRoundTime; ++round)
        action();
}

void PrintTable(int corpora) {
    std::puts(
        "| files | walk MB/s | read MB/s | read / walk | literal / read | first: literal / read "
        "| literal / write | destroy / read | memory, bytes a byte |");
    std::puts("|---|---|---|---|---|---|---|---|---|");
    for (int index = 0; index < corpora; ++index) {
        Corpus& corpus = CorpusOf(index);
        double walk = 1e9;
        Times ours;
        Times literal;
        // One after the other: what one leaves of the heap must not slow the other down.
        Repeat([&] { walk = std::min(walk, SecondsOf([&] { Keep(corpus.Walk()); })); });
        Repeat([&] { ours.KeepBest(Measure<CZurSequence>(corpus)); });
        Repeat([&] { literal.KeepBest(Measure<LiteralFile>(corpus)); });
        const auto [first, memory] = Once("sequence", index);
        const auto [literalFirst, literalMemory] = Once("literal", index);
        const double mega = static_cast<double>(corpus.Bytes()) / kMega;
        std::printf("| %s | %.0f | %.0f | %.2f | %.2f | %.2f | %.2f | %.0f %% | %.1f (%.1f) |\n",
                    NameOf(index), mega / walk, mega / ours.read, ours.read / walk,
                    literal.read / ours.read, literalFirst / first, literal.write / ours.write,
                    100 * ours.destroy / ours.read, memory, literalMemory);
        std::fflush(stdout);
    }
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
        const int index = std::stoi(words[2]);
        words[1] == "literal" ? RunOnce<LiteralFile>(index) : RunOnce<CZurSequence>(index);
        return 0;
    }
    KeepHeapWarm();
    if (!words.empty() && words[0] == "--table") {
        PrintTable(words.size() > 1 ? std::stoi(words[1]) : 4);
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
