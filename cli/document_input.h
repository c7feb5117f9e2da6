#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "cli/options.h"
#include "event/event_store.h"
#include "event/report.h"
#include "params/pattern_block.h"

/// Most bytes of a name that a pattern keeps.
inline constexpr std::size_t kMaxNameBytes = 16;

/// What a file held, after loading into a store in free mode.
struct Document {
    FileKind kind = FileKind::pattern;
    /// How messages name the file.
    std::string label;
    /// The one asked for, a pattern's own, or that in a MIDI file; else what `NameFromPath` makes
    /// of its file.
    std::string name;
    C3DEventData store;
    /// All that was put right or left out, a line each.
    C3DReport report;
    /// The pattern as it was read, with whatever else it carries; but for a .3dp file a new one.
    std::unique_ptr<CQelCPB_3DPattern> pattern;
};

/// Reads a document and never asks anything. Raises Failure: usage when the kind is unknown,
/// failed when the file can't be read, refused when it is not what it should be.
Document LoadDocument(const InputOptions& input);

/// The bytes of a file, of standard input for "-". Raises Failure (failed).
std::string ReadInput(const std::string& path);

/// How messages name an input.
std::string LabelOf(const std::string& path);

/// The name that a file lends to a pattern: the stem of its file name, at most kMaxNameBytes
/// bytes, cut between characters. "New Pattern" for a standard stream.
std::string NameFromPath(const std::string& path);
