#include "studio/options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "studio/exit_codes.h"

namespace {

bool ParseTick(std::string_view text, std::uint32_t& tick) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), tick);
    return error == std::errc() && end == text.data() + text.size();
}

std::string CheckRange(const std::string& text) {
    return ParseRange(text) ? "" : "expected START:END in ticks, START at most END: " + text;
}

std::string CheckPicture(const std::string& text) {
    return text.empty() ? "expected the name of a file" : "";
}

// A range lets through what no comparison holds for.
std::string CheckNumber(const std::string& text) {
    return std::isnan(std::strtod(text.c_str(), nullptr)) ? "expected a number: " + text : "";
}

std::string CheckAxes(const std::string& text) {
    return text.find_first_not_of("XYZ") == std::string::npos
               ? ""
               : "expected letters out of XYZ: " + text;
}

}  // namespace

std::optional<StudioOptions::Range> ParseRange(const std::string& text) {
    const std::size_t colon = text.find(':');
    StudioOptions::Range range;
    if (colon == std::string::npos ||
        !ParseTick(std::string_view(text).substr(0, colon), range.start) ||
        !ParseTick(std::string_view(text).substr(colon + 1), range.end) ||
        range.start > range.end) {
        return std::nullopt;
    }
    return range;
}

std::optional<StudioOptions> ParseCommandLine(int argc, char** argv, int& exitCode) {
    StudioOptions options;
    std::string range;
    CLI::App app{"Orbix: edit a 3D sound-position pattern", "orbix-studio"};
    app.set_version_flag("--version", std::string("orbix-studio ") + ORBIX_VERSION);
    app.add_option("FILE", options.file, "Pattern file (.3dp); none means a new pattern");
    app.add_option("--range", range, "Edit only the ticks START to END")
        ->type_name("START:END")
        ->check(CheckRange);
    app.add_flag_callback(
        "--no-edit", [&options] { options.edit = false; },
        "Start with the window alone, without the editor");
    CLI::Option* render =
        app.add_option("--render", options.renderTo, "Draw to a PNG file, without a display")
            ->type_name("OUT.png")
            ->check(CheckPicture);
    app.add_flag("--editor", options.renderEditor, "Draw the whole editor, not only the planes")
        ->needs(render);
    app.add_option("--zoom", options.zoom, "Metres that the planes' circle stands for")
        ->needs(render)
        ->check(CLI::IsMember({"12.75", "10.00", "8.00", "6.00", "4.00", "2.00", "1.00", "0.50"}));
    app.add_option("--reverse", options.reverse, "Axes to mirror")
        ->needs(render)
        ->type_name("XYZ")
        ->check(CheckAxes);
    app.add_option("--scale", options.scale, "Pixel ratio of the picture")
        ->needs(render)
        ->check(CLI::Range(1.0, 4.0))
        ->check(CheckNumber);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        exitCode = app.exit(error) == 0 ? exit_code::kDone : exit_code::kUsage;
        return std::nullopt;
    }
    options.range = range.empty() ? std::nullopt : ParseRange(range);
    return options;
}
