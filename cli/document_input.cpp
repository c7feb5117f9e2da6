#include "cli/document_input.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/csv_fault.h"
#include "cli/exit_codes.h"
#include "event/csv_reader.h"
#include "event/left_out.h"
#include "midi/midi_file.h"
#include "midi/pattern_midi.h"
#include "params/pattern_form.h"
#include "platform/files.h"
#include "platform/hooks.h"

namespace {

// Thrown out of the question for a division that nobody is there to answer.
struct DivisionNotNamed {};

[[noreturn]] void Refuse(const Document& document, const std::string& words) {
    throw Failure(ExitCode::refused, document.label + ": " + words);
}

// Remarks are printed by the verbs, so that a box with remarks is none; the one question is
// answered by an option.
void AnswerWithoutAsking(std::optional<int> division) {
    Hooks().waitCursor = [](bool) {};
    Hooks().messageBox = [division](const CString&, UINT style) {
        if ((style & MB_TYPEMASK) != MB_YESNO) {
            return IDOK;
        }
        if (!division) {
            throw DivisionNotNamed();
        }
        return *division == 480 ? IDYES : IDNO;
    };
}

std::string ReadStandardInput() {
    std::string bytes;
    std::vector<char> block(1U << 16U);
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), stdin)) {
        bytes.append(block.data(), count);
        if (bytes.size() > kLongestFile) {
            throw Failure(ExitCode::failed, "standard input: cannot be read: File too large");
        }
    }
    if (std::ferror(stdin) != 0) {
        throw Failure(ExitCode::failed,
                      std::string("standard input: cannot be read: ") + std::strerror(errno));
    }
    return bytes;
}

// A load drops time signatures over the limit without a remark.
void RemarkCsvLimit(Document& document, std::string_view text) {
    if (document.store.CountEvents(kTimeSigId) < kMaxEventsPerId) {
        return;
    }
    CsvContent content;
    C3DReport unused;
    ReadCsv(text, EventRange(), content, unused);
    const auto found =
        std::count_if(content.events.begin(), content.events.end(),
                      [](const _tagEvent3D& event) { return event.type == kEventTimeSig; });
    AddLeftOut(document.report, found - kMaxEventsPerId);
}

void LoadCsvDocument(Document& document, const std::string& text) {
    int code = 0;
    try {
        code = document.store.LoadCsvText(text, document.report);
    } catch (const DivisionNotNamed&) {
        // A text that would be refused anyway is better told what is wrong with it.
        code = FindCsvFault(text) ? kErrorFormat : kErrorDivision;
    }
    if (code == 0) {
        RemarkCsvLimit(document, text);
        return;
    }
    if (const std::optional<CsvFault> fault = FindCsvFault(text)) {
        Refuse(document, "line " + std::to_string(fault->line) + ": " + fault->expected);
    }
    if (code == kErrorDivision) {
        Refuse(document, "has no division line; needs --division 480 or 960");
    }
    std::string words = "expected at least one time signature or one position that can be used";
    for (const CString& line : document.report.Lines()) {
        words.append("\n").append(line);
    }
    Refuse(document, words);
}

// At most kMaxNameBytes, cut between characters.
std::string CutName(std::string name) {
    if (name.size() > kMaxNameBytes) {
        std::size_t length = kMaxNameBytes;
        // A byte 10xxxxxx continues a UTF-8 character.
        while (length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0U) == 0x80U) {
            --length;
        }
        name.resize(length);
    }
    return name;
}

void LoadPatternDocument(Document& document, const std::string& bytes) {
    PatternFault fault;
    document.pattern = ReadPatternBytes(bytes, fault);
    if (!document.pattern) {
        Refuse(document, "not a 3D pattern: " + fault.Text());
    }
    document.name = PatternName(*document.pattern);
    document.store.LoadFromPattern(document.pattern.get(), document.report);
    AddLeftOutOfPattern(*document.pattern, document.store, document.report);
}

void RemarkOtherEvents(C3DReport& report, const PatternFromMidi& content) {
    const std::uint64_t others =
        std::uint64_t{content.channelMessages} + content.metaEvents + content.systemMessages;
    if (others > 0) {
        report.AddLine("Other events=" + std::to_string(others) + " : channel " +
                       std::to_string(content.channelMessages) + ", meta " +
                       std::to_string(content.metaEvents) + ", system " +
                       std::to_string(content.systemMessages) + " (Entries ignored)");
    }
    if (content.positionsLeftOut > 0) {
        report.AddLine("Positions beyond tick 999999999 or number 32767=" +
                       std::to_string(content.positionsLeftOut) + " (Entries ignored)");
    }
}

void LoadMidiDocument(Document& document, const std::string& bytes, const InputOptions& input) {
    MidiFault fault;
    const auto sequence = ReadMidiBytes(bytes, fault);
    if (!sequence) {
        Refuse(document, "not a Standard MIDI File: " + fault.Text());
    }
    PatternFromMidi content = PatternFromSequence(*sequence);
    document.pattern = std::move(content.pattern);
    document.name = content.name ? CutName(*content.name) : NameFromPath(input.path);
    document.store.LoadFromPattern(document.pattern.get(), document.report);
    AddLeftOutOfPattern(*document.pattern, document.store, document.report);
    if (!input.name && content.name && *content.name != document.name) {
        document.report.AddLine("Name Length Changed (" + std::to_string(content.name->size()) +
                                ")->(" + std::to_string(document.name.size()) + ")");
    }
    RemarkOtherEvents(document.report, content);
}

}  // namespace

std::string ReadInput(const std::string& path) {
    if (IsStandardStream(path)) {
        return ReadStandardInput();
    }
    CString reason;
    std::optional<std::string> bytes = ReadWholeFile(path, &reason);
    if (!bytes) {
        throw Failure(ExitCode::failed, path + ": cannot be read: " + reason);
    }
    return std::move(*bytes);
}

std::string LabelOf(const std::string& path) {
    return IsStandardStream(path) ? "standard input" : path;
}

std::string NameFromPath(const std::string& path) {
    if (IsStandardStream(path)) {
        return PatternName(CQelCPB_3DPattern());
    }
    return CutName(std::filesystem::path(path).stem().string());
}

Document LoadDocument(const InputOptions& input) {
    Document document;
    document.kind = KindOf(input.path, input.kind, "--from");
    document.label = LabelOf(input.path);
    if (document.kind == FileKind::messages) {
        throw Failure(ExitCode::usage,
                      document.label + ": device messages (.syx) can be written, not read");
    }
    const std::string bytes = ReadInput(input.path);
    const HooksScope scope;
    AnswerWithoutAsking(input.division);
    if (document.kind == FileKind::pattern) {
        LoadPatternDocument(document, bytes);
    } else if (document.kind == FileKind::midi) {
        LoadMidiDocument(document, bytes, input);
    } else {
        document.pattern = std::make_unique<CQelCPB_3DPattern>();
        document.name = NameFromPath(input.path);
        LoadCsvDocument(document, bytes);
    }
    document.name = input.name.value_or(document.name);
    return document;
}
