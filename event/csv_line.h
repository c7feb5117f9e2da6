#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "event/event_record.h"
#include "sequence/musical_types.h"

/// Takes the lines out of a CSV text. A line ends behind its line feed; one of more than 1023
/// bytes comes in pieces.
class CsvLines {
public:
    /// The text is borrowed for the object's life.
    explicit CsvLines(std::string_view text) : text_(text) {}

    /// The next line with its line end; false at the end of the text.
    bool Next(std::string_view& line);
    /// Offset of the line that comes next; `Seek` goes back to one.
    std::size_t Position() const { return position_; }
    void Seek(std::size_t position) { position_ = position; }

private:
    std::string_view text_;
    std::size_t position_ = 0;
};

/// A line that begins with a carriage return or a line feed, whatever stands behind it.
bool IsBlankCsvLine(std::string_view line);
/// A line that begins with "3D ID" or "ID".
bool IsCsvHeader(std::string_view line);
/// A line that begins with "Division,".
bool IsCsvDivision(std::string_view line);

/// A division that a CSV file may have: 12 to 960 ticks per quarter note.
constexpr bool IsCsvDivisionNumber(std::uint32_t division) {
    return division >= 12 && division <= 960;
}

/// Reads a division line: 0, kErrorFormat, or kErrorDivision without a number from 12 to 960.
int ParseCsvDivision(std::string_view line, std::uint32_t& division);

/// Fields lie between commas and underscores, up to the line's end. 0 when at most `highest` of
/// them are not empty and none begins with more than ten digits and minus signs, else
/// kErrorFormat.
int CheckCsvFields(std::string_view line, int highest);

/// Reads a data line into `event` and `mbt`: type 0 with id, distance, azimuth and elevation, or
/// type 1 with numerator and denominator; other fields are left alone. Numbers lose the bits that
/// their field has no room for. 0, or kErrorFormat when the line is neither form.
int ParseCsvLine(std::string_view line, _tagEvent3D& event, t_MBT& mbt);
