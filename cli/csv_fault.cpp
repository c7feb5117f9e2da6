#include "cli/csv_fault.h"

#include "event/csv_line.h"
#include "event/report.h"

namespace {

// Looks at the lines one after the other, with what may come next.
class CsvWalk {
public:
    // What the line should have been, or null when it is in order.
    const char* Take(std::string_view line) {
        if (place_ == Place::start && IsCsvDivision(line)) {
            place_ = Place::header;
            return DivisionFault(line);
        }
        if (place_ != Place::data) {
            const char* expected = Missing();
            place_ = Place::data;
            return IsCsvHeader(line) ? nullptr : expected;
        }
        _tagEvent3D event;
        t_MBT mbt;
        return ParseCsvLine(line, event, mbt) == 0
                   ? nullptr
                   : "expected ID,Meas,Beat,Tick,Distance,Azimuth,Elevation or "
                     ",Meas,Beat,Tick,,,,Numerator_Denominator in whole numbers";
    }

    // What is missing when the text ends here, or null.
    const char* Missing() const {
        switch (place_) {
            case Place::start:
                return "expected \"Division,\" and a number, or a header that begins with "
                       "\"3D ID\" or \"ID\"";
            case Place::header:
                return "expected a header that begins with \"3D ID\" or \"ID\"";
            case Place::data:
                break;
        }
        return nullptr;
    }

private:
    enum class Place { start, header, data };

    static const char* DivisionFault(std::string_view line) {
        std::uint32_t division = 0;
        return ParseCsvDivision(line, division) == 0
                   ? nullptr
                   : "expected \"Division,\" and a number from 12 to 960";
    }

    Place place_ = Place::start;
};

}  // namespace

std::optional<CsvFault> FindCsvFault(std::string_view text) {
    CsvLines lines(text);
    CsvWalk walk;
    std::size_t number = 1;
    for (std::string_view line; lines.Next(line);) {
        if (const char* expected = IsBlankCsvLine(line) ? nullptr : walk.Take(line)) {
            return CsvFault{number, expected};
        }
        // A very long line comes in pieces; only the last one has the line end.
        number += line.ends_with('\n') ? 1U : 0U;
    }
    if (const char* expected = walk.Missing()) {
        return CsvFault{number, expected};
    }
    return std::nullopt;
}
