#include "event/csv_reader.h"

#include <algorithm>
#include <functional>

#include "event/csv_line.h"
#include "event/event_check.h"
#include "event/time_sig_list.h"
#include "platform/hooks.h"
#include "sequence/musical_time.h"

namespace {

constexpr std::uint32_t kOtherDivision = 960;

// One load in the order of its stages. Positions can only be reckoned when the last time
// signature is known, so the lines are walked for the grammar first, then all time signatures are
// taken, then all positions.
class CsvReader {
public:
    CsvReader(std::string_view text, const EventRange& range, CsvContent& content,
              C3DReport& report)
        : lines_(text), range_(range), content_(content), report_(report) {}

    int Read() {
        if (const int code = ReadDivision(); code != 0) {
            return code;
        }
        if (const int code = ReadHeader(); code != 0) {
            return code;
        }
        if (const int code = ReadLines(); code != 0) {
            return code;
        }
        content_.events = CheckTimeSigs(std::move(timeSigs_), range_, content_.map, report_);
        const bool hasTimeSigs = !content_.map.Records().empty();
        AddTimeSigAtStart();
        return TakePositions() || hasTimeSigs ? 0 : kErrorNoData;
    }

private:
    struct PositionLine {
        int index;
        _tagEvent3D event;
        t_MBT mbt;
    };

    int ReadDivision() {
        std::string_view line;
        bool found = false;
        while (!found && lines_.Next(line)) {
            found = !IsBlankCsvLine(line);
        }
        std::uint32_t division = kDefaultDivision;
        if (found && IsCsvDivision(line)) {
            if (const int code = ParseCsvDivision(line, division); code != 0) {
                return code;
            }
        } else if (found && !IsCsvHeader(line)) {
            return kErrorFormat;
        } else {
            lines_.Seek(0);
            division = AskDivision();
        }
        content_.map = C3DTimeSigMap(division);
        return 0;
    }

    static std::uint32_t AskDivision() {
        const int answer = AfxMessageBox(
            "Is division of this CSV file 480?\n\nIf NO, the file will be read on 960 division",
            MB_YESNO | MB_ICONQUESTION);
        return answer == IDYES ? kDefaultDivision : kOtherDivision;
    }

    int ReadHeader() {
        std::string_view line;
        while (lines_.Next(line)) {
            ++timeSigIndex_;
            if (!IsBlankCsvLine(line)) {
                return IsCsvHeader(line) ? 0 : kErrorFormat;
            }
        }
        return kErrorFormat;
    }

    // Remarks on time signatures count blank lines before the header too, those on positions
    // begin behind it. One event serves all lines; a time signature's position means nothing.
    int ReadLines() {
        std::string_view line;
        _tagEvent3D event;
        for (int positionIndex = 0; lines_.Next(line); ++positionIndex, ++timeSigIndex_) {
            if (IsBlankCsvLine(line)) {
                continue;
            }
            t_MBT mbt;
            if (const int code = ParseCsvLine(line, event, mbt); code != 0) {
                return code;
            }
            if (event.type == kEventPosition) {
                positions_.push_back({positionIndex, event, mbt});
            } else {
                timeSigs_.push_back({timeSigIndex_, event, mbt});
            }
        }
        return 0;
    }

    // The default that holds before the first record, made a record of its own.
    void AddTimeSigAtStart() {
        const std::vector<t_tSigMapRec>& records = content_.map.Records();
        if (records.empty() || records.front().totalTick != 0) {
            const _tagEvent3D event = TimeSigEventOf(t_tSigMapRec());
            content_.map.AddTimeSig(event);
            content_.events.push_back(event);
        }
    }

    // The records are searched from the last one back; once those behind a line's measure are gone,
    // none has to be passed over, however many there are.
    void ReckonTicks() {
        std::vector<PositionLine*> latestFirst;
        for (PositionLine& line : positions_) {
            latestFirst.push_back(&line);
        }
        std::ranges::sort(latestFirst, std::ranges::greater(),
                          [](const PositionLine* line) { return line->mbt.measure; });
        std::vector<t_tSigMapRec> records = content_.map.Records();
        for (PositionLine* line : latestFirst) {
            while (!records.empty() && records.back().measure > line->mbt.measure) {
                records.pop_back();
            }
            line->event.tick = MeasureToTick(line->mbt, content_.map.Division(), records);
        }
    }

    bool TakePositions() {
        ReckonTicks();
        bool taken = false;
        for (PositionLine& line : positions_) {
            line.event.numerator = 0;
            line.event.denominator = 0;
            if (CheckEvent(line.index, range_, content_.map, line.event, line.mbt, report_) == 0) {
                content_.events.push_back(line.event);
                taken = true;
            }
        }
        return taken;
    }

    CsvLines lines_;
    const EventRange& range_;
    CsvContent& content_;
    C3DReport& report_;
    int timeSigIndex_ = -1;  // of the line that comes next
    std::vector<TimeSigEntry> timeSigs_;
    std::vector<PositionLine> positions_;
};

}  // namespace

int ReadCsv(std::string_view text, const EventRange& range, CsvContent& content,
            C3DReport& report) {
    return CsvReader(text, range, content, report).Read();
}
