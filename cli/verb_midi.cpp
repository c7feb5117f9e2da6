#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <limits>
#include <memory>

#include "cli/document_input.h"
#include "cli/options.h"
#include "cli/output.h"
#include "cli/verbs.h"
#include "midi/midi_file.h"
#include "sequence/musical_time.h"

namespace {

struct DumpOptions {
    std::string path;
    bool lines = false;
};

struct RescaleOptions {
    std::string path;
    std::int16_t division = 0;
    std::string output;
    bool overwrite = false;
};

std::unique_ptr<CZurSequence> LoadSequence(const std::string& path) {
    MidiFault fault;
    auto sequence = ReadMidiBytes(ReadInput(path), fault);
    if (!sequence) {
        throw Failure(ExitCode::refused,
                      LabelOf(path) + ": not a Standard MIDI File: " + fault.Text());
    }
    return sequence;
}

std::uint64_t EventCount(const CZurSequence& sequence) {
    std::uint64_t count = 0;
    CZurSeqTrack* track = nullptr;
    for (std::int32_t number = 1; sequence.GetTrack(number, track); ++number) {
        count += track->GetEventCount();
    }
    return count;
}

// Minutes, seconds and milliseconds.
std::string TimeText(std::uint32_t milliseconds) {
    // The sum of microseconds is held at the largest 32-bit value.
    constexpr std::uint32_t kHeld = std::numeric_limits<std::uint32_t>::max() / 1000;
    std::array<char, 24> text{};
    std::snprintf(text.data(), text.size(), "%u:%02u.%03u", milliseconds / 60000,
                  milliseconds / 1000 % 60, milliseconds % 1000);
    return (milliseconds >= kHeld ? "more than " : "") + std::string(text.data());
}

std::string LengthText(const CZurSequence& sequence) {
    std::vector<t_tTempoRec> tempos;
    sequence.GetTempos(tempos);
    const std::uint32_t end = sequence.GetEndTime();
    const auto division = static_cast<std::uint32_t>(sequence.GetDivision());
    return std::to_string(end) + " ticks, to measure " + std::to_string(sequence.GetLastMeasure()) +
           ", " + TimeText(TickToMilliseconds(end, division, tempos));
}

template <typename Record>
std::string PlaceText(const Record& record) {
    return std::to_string(record.measure) + ":" + std::to_string(record.beat) + ":" +
           std::to_string(record.tick) + " ";
}

std::string TimeSignaturesText(const CZurSequence& sequence) {
    std::vector<t_tSigMapRec> list;
    sequence.GetTimeSignatures(list);
    std::string text;
    for (const t_tSigMapRec& each : list) {
        text += (text.empty() ? "" : ", ") + PlaceText(each) + std::to_string(each.numerator) +
                "/" + std::to_string(each.denominator);
    }
    return text.empty() ? "none" : text;
}

std::string TemposText(const CZurSequence& sequence) {
    std::vector<t_tTempoRec> list;
    sequence.GetTempos(list);
    std::string text;
    for (const t_tTempoRec& each : list) {
        std::array<char, 24> beats{};
        std::snprintf(beats.data(), beats.size(), "%.6g", TempoToBpm(each.tempo));
        text += (text.empty() ? "" : ", ") + PlaceText(each) + beats.data();
    }
    return text.empty() ? "none" : text;
}

ExitCode Info(const std::string& path) {
    const auto sequence = LoadSequence(path);
    const std::array<std::array<std::string, 2>, 8> rows = {{
        {"File", LabelOf(path)},
        {"Format", std::to_string(sequence->GetFormat())},
        {"Division", std::to_string(sequence->GetDivision())},
        {"Tracks", std::to_string(sequence->GetTrackCount())},
        {"Events", std::to_string(EventCount(*sequence))},
        {"Length", LengthText(*sequence)},
        {"Time signatures", TimeSignaturesText(*sequence)},
        {"Tempos", TemposText(*sequence)},
    }};
    std::string text;
    for (const auto& [caption, value] : rows) {
        text.append(caption).append(":").append(16 - caption.size(), ' ');
        text.append(value).append("\n");
    }
    WriteResult(text);
    return ExitCode::done;
}

ExitCode Dump(const DumpOptions& options) {
    std::strstream stream;
    LoadSequence(options.path)->Dump(stream);
    std::string text(static_cast<std::size_t>(stream.pcount()), '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (!stream) {
        throw std::bad_alloc();
    }
    if (options.lines) {
        std::ranges::replace(text, '\r', '\n');
    }
    WriteResult(text);
    return ExitCode::done;
}

ExitCode Rescale(const RescaleOptions& options) {
    const auto sequence = LoadSequence(options.path);
    sequence->SetDivisionRescaled(options.division);
    const auto bytes = WriteMidiBytes(*sequence);
    if (!bytes) {
        throw Failure(ExitCode::refused,
                      LabelOf(options.path) +
                          ": can't be written: expected tracks with delta times of at most "
                          "268435455 ticks");
    }
    CheckTarget(options.output, options.overwrite);
    WriteTarget(options.output, *bytes);
    return ExitCode::done;
}

void AddFile(CLI::App& verb, std::string& path) {
    verb.add_option("FILE", path, "A Standard MIDI File, - for stdin")->required()->type_name("");
}

void AddInfo(CLI::App& midi, Job& job) {
    CLI::App& verb = *midi.add_subcommand(
        "info", "Say format, division, tracks, events, length, time signatures and tempos");
    const auto path = std::make_shared<std::string>();
    AddFile(verb, *path);
    verb.callback([&job, path] { job = [path] { return Info(*path); }; });
}

void AddDump(CLI::App& midi, Job& job) {
    CLI::App& verb =
        *midi.add_subcommand("dump", "Print all events: delta time, two tabs, bytes, a CR");
    const auto options = std::make_shared<DumpOptions>();
    AddFile(verb, options->path);
    verb.add_flag("--lines", options->lines, "End lines as people's tools want it");
    verb.callback([&job, options] { job = [options] { return Dump(*options); }; });
}

void AddRescale(CLI::App& midi, Job& job) {
    CLI::App& verb = *midi.add_subcommand("rescale", "Write the file with another division");
    const auto options = std::make_shared<RescaleOptions>();
    AddFile(verb, options->path);
    verb.add_option("--division", options->division, "Ticks per quarter note, 1 to 32767")
        ->required()
        ->check(CLI::Range(1, 32767))
        ->type_name("TICKS");
    verb.add_option("-o,--output", options->output, "The file to write, - for stdout")
        ->required()
        ->type_name("OUT");
    verb.add_flag("-f,--force", options->overwrite, "Replace OUT when it exists");
    verb.callback([&job, options] { job = [options] { return Rescale(*options); }; });
}

}  // namespace

void AddMidiVerb(CLI::App& program, Job& job) {
    CLI::App& midi = *program.add_subcommand("midi", "Look at Standard MIDI Files, rescale them");
    midi.require_subcommand(1);
    AddInfo(midi, job);
    AddDump(midi, job);
    AddRescale(midi, job);
    GroupVerbs(midi);
}
