#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// What the command line of orbix-studio asks for.
struct StudioOptions {
    std::string file;  ///< Pattern file; empty means a new pattern.

    /// Total ticks, both inclusive; set means range mode.
    struct Range {
        std::uint32_t start = 0;
        std::uint32_t end = 0;
    };
    std::optional<Range> range;

    bool edit = true;  ///< Open the editor at once.

    std::string renderTo;  ///< PNG file; not empty means: draw, don't open a window.
    bool renderEditor = false;
    std::string zoom;     ///< Metres as the zoom box shows them; empty keeps the default.
    std::string reverse;  ///< Letters out of XYZ.
    double scale = 1.0;   ///< Pixel ratio of the picture.
};

/// "START:END" in ticks, START at most END; nothing when it is not of that form.
std::optional<StudioOptions::Range> ParseRange(const std::string& text);

/// Reads the command line. Nothing, with `exitCode` set and the words already printed, when the
/// program must end here: after --help or --version (0), or on a usage error (2).
std::optional<StudioOptions> ParseCommandLine(int argc, char** argv, int& exitCode);
