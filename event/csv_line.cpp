#include "event/csv_line.h"

#include <algorithm>
#include <array>

#include "event/report.h"

namespace {

using namespace std::string_view_literals;

constexpr std::size_t kLineBuffer = 1023;
constexpr std::string_view kDivisionPrefix = "Division,";
constexpr std::string_view kDigits = "-0123456789";
constexpr std::size_t kMaxDigits = 10;
constexpr int kPositionFields = 7;
constexpr int kTimeSigFields = 5;

bool HoldsOnly(std::string_view text, std::string_view allowed) {
    return text.find_first_not_of(allowed) == std::string_view::npos;
}

// Reads a pattern of numbers and literal characters from the left and stops where it breaks.
class CsvScanner {
public:
    explicit CsvScanner(std::string_view line) : rest_(line) {}

    bool Literal(std::string_view text) {
        if (!rest_.starts_with(text)) {
            return false;
        }
        rest_.remove_prefix(text.size());
        return true;
    }

    // White space may stand before a number. Its value wraps at 32 bits.
    bool Number(std::int32_t& number) {
        rest_.remove_prefix(std::min(rest_.find_first_not_of("\r\n"), rest_.size()));
        std::string_view digits = rest_;
        const bool negative = digits.starts_with('-');
        digits.remove_prefix(negative ? 1 : 0);
        const std::size_t count = std::min(digits.find_first_not_of("0123456789"), digits.size());
        if (count == 0) {
            return false;
        }
        std::uint32_t value = 0;
        for (const char digit : digits.substr(0, count)) {
            value = value * 10 + static_cast<std::uint32_t>(digit - '0');
        }
        number = static_cast<std::int32_t>(negative ? 0 - value : value);
        rest_ = digits.substr(count);
        return true;
    }

private:
    std::string_view rest_;
};

// The number of conversions: each number stands behind the literal of its place.
template <std::size_t N>
int Scan(std::string_view line, const std::array<std::string_view, N>& literals,
         std::array<std::int32_t, N>& numbers) {
    CsvScanner scanner(line);
    int conversions = 0;
    for (std::size_t i = 0; i < N; ++i) {
        if (!scanner.Literal(literals[i]) || !scanner.Number(numbers[i])) {
            break;
        }
        ++conversions;
    }
    return conversions;
}

t_MBT MBTOf(std::int32_t measure, std::int32_t beat, std::int32_t tick) {
    return {static_cast<std::uint32_t>(measure), static_cast<std::uint32_t>(beat),
            static_cast<std::uint32_t>(tick)};
}

bool NoneBelow(const std::int32_t* numbers, std::size_t count, std::int32_t lowest) {
    return std::all_of(numbers, numbers + count,
                       [lowest](std::int32_t number) { return number >= lowest; });
}

int TakePosition(std::string_view line, const std::array<std::int32_t, 7>& numbers,
                 _tagEvent3D& event, t_MBT& mbt) {
    if (CheckCsvFields(line, kPositionFields) != 0 || line.find('_') != std::string_view::npos ||
        !NoneBelow(numbers.data(), 5, 0)) {
        return kErrorFormat;
    }
    event.type = kEventPosition;
    event.id = static_cast<std::uint8_t>(numbers[0]);
    mbt = MBTOf(numbers[1], numbers[2], numbers[3]);
    event.distance = static_cast<std::uint16_t>(numbers[4]);
    event.azimuth = static_cast<std::int16_t>(numbers[5]);
    event.elevation = static_cast<std::int16_t>(numbers[6]);
    return 0;
}

int TakeTimeSig(std::string_view line, const std::array<std::int32_t, 5>& numbers,
                _tagEvent3D& event, t_MBT& mbt) {
    if (CheckCsvFields(line, kTimeSigFields) != 0 ||
        std::count(line.begin(), line.end(), '_') != 1 || !NoneBelow(numbers.data(), 3, 0) ||
        !NoneBelow(numbers.data() + 3, 2, 1)) {
        return kErrorFormat;
    }
    event.type = kEventTimeSig;
    mbt = MBTOf(numbers[0], numbers[1], numbers[2]);
    event.numerator = static_cast<std::uint32_t>(numbers[3]);
    event.denominator = static_cast<std::uint32_t>(numbers[4]);
    return 0;
}

}  // namespace

bool CsvLines::Next(std::string_view& line) {
    line = text_.substr(position_, kLineBuffer);
    line = line.substr(0, std::min(line.find('\n'), line.size() - 1) + 1);
    position_ += line.size();
    return !line.empty();
}

bool IsBlankCsvLine(std::string_view line) {
    return line.starts_with('\r') || line.starts_with('\n');
}

bool IsCsvHeader(std::string_view line) {
    return line.starts_with("3D ID") || line.starts_with("ID");
}

bool IsCsvDivision(std::string_view line) {
    return line.starts_with(kDivisionPrefix);
}

int ParseCsvDivision(std::string_view line, std::uint32_t& division) {
    line = line.substr(0, line.find('\0'));
    if (CheckCsvFields(line, 2) != 0 ||
        !HoldsOnly(line.substr(kDivisionPrefix.size()), "0123456789,\r\n")) {
        return kErrorFormat;
    }
    std::array<std::int32_t, 1> number{};
    if (Scan(line, std::array{kDivisionPrefix}, number) != 1) {
        return kErrorDivision;
    }
    division = static_cast<std::uint32_t>(number[0]);
    return IsCsvDivisionNumber(division) ? 0 : kErrorDivision;
}

int CheckCsvFields(std::string_view line, int highest) {
    line = line.substr(0, line.find_first_of("\0\r\n"sv));
    int filled = 0;
    for (;;) {
        const std::size_t end = std::min(line.find_first_of(",_"), line.size());
        const std::string_view field = line.substr(0, end);
        filled += field.empty() ? 0 : 1;
        const std::size_t digits = std::min(field.find_first_not_of(kDigits), field.size());
        if (filled > highest || digits > kMaxDigits) {
            return kErrorFormat;
        }
        if (end == line.size()) {
            return 0;
        }
        line.remove_prefix(end + 1);
    }
}

int ParseCsvLine(std::string_view line, _tagEvent3D& event, t_MBT& mbt) {
    line = line.substr(0, line.find('\0'));
    if (!HoldsOnly(line, "0123456789,-_\r\n")) {
        return kErrorFormat;
    }
    std::array<std::int32_t, 7> position{};
    if (Scan(line, std::array{""sv, ","sv, ","sv, ","sv, ","sv, ","sv, ","sv}, position) == 7) {
        return TakePosition(line, position, event, mbt);
    }
    std::array<std::int32_t, 5> timeSig{};
    if (Scan(line, std::array{","sv, ","sv, ","sv, ",,,,"sv, "_"sv}, timeSig) == 5) {
        return TakeTimeSig(line, timeSig, event, mbt);
    }
    return kErrorFormat;
}
