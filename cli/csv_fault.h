#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Why a CSV text is refused as a whole.
struct CsvFault {
    std::size_t line;  ///< counts from 1, as editors do
    std::string expected;
};

/// The first line of a text that breaks the grammar; nothing when the text keeps it.
std::optional<CsvFault> FindCsvFault(std::string_view text);
