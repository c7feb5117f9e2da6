#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <stdexcept>

#include "event/csv_line.h"
#include "platform/files.h"
#include "platform/hooks.h"
#include "tests/event/event_builders.h"
#include "tests/support/data.h"
#include "tests/support/file_limit.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr const char* kHeader = "3D ID,Meas,Beat,Tick,Distance,Azimuth,Elevation,TimeSig.\r\n";

std::string Read(const fs::path& path) {
    return ReadWholeFile(path.string()).value_or("");
}

int asked = 0;

// The answer to the question for the division: yes or no; anything else: it must not be asked.
void Answer(const std::string& answer) {
    asked = 0;
    Hooks().messageBox = [answer](const CString& text, UINT style) {
        ++asked;
        EXPECT_EQ(style, 36U);
        EXPECT_THAT(text, testing::StartsWith("Is division of this CSV file 480?\n\nIf NO"));
        return answer == "yes\n"  ? IDYES
               : answer == "no\n" ? IDNO
                                  : throw std::runtime_error("asked");
    };
}

// A store that holds to a range under four time signatures.
C3DEventData RangeStore(std::uint32_t start, std::uint32_t end) {
    C3DEventData store(kRangeMode, start, end);
    AddAll(store, {TimeSig(0, 3, 4), TimeSig(1440, 4, 4), TimeSig(5280, 2, 4), TimeSig(12000, 6, 8),
                   Position(0, 2000)});
    return store;
}

}  // namespace

// In each folder in.csv is loaded into a store that holds something else, with `answer` for the
// question. Either `code` says how the file is refused, or out.csv is the table and report.txt the
// remarks, if any.
TEST(CsvLoad, GivesWhatTheFoldersSay) {
    for (const auto& entry : fs::directory_iterator(ORBIX_TEST_DATA "/csv")) {
        const fs::path& folder = entry.path();
        SCOPED_TRACE(folder);
        HooksScope scope;
        Answer(Read(folder / "answer"));
        C3DEventData store;
        AddAll(store, {TimeSig(0, 7, 8), Position(1, 77)});
        const auto before = StateOf(store);
        C3DReport report;
        const int code = store.LoadCsv((folder / "in.csv").string(), report);
        EXPECT_EQ(asked, fs::exists(folder / "answer") ? 1 : 0);
        if (fs::exists(folder / "code")) {
            EXPECT_EQ(std::to_string(code) + "\n", Read(folder / "code"));
            EXPECT_EQ(StateOf(store), before);
            continue;
        }
        EXPECT_EQ(code, 0);
        std::string lines;
        for (const CString& line : report.Lines()) {
            lines += line + "\n";
        }
        EXPECT_EQ(lines, Read(folder / "report.txt"));
        EXPECT_EQ(store.CsvText(), Read(folder / "out.csv"));
        EXPECT_FALSE(store.CanUndo() || store.CanRedo());
        _tagEvent3D next = Position(0, 0);
        const int count = store.CountEvents(-1);
        EXPECT_EQ(store.AddEvent(&next, 1), 0);
        EXPECT_EQ(next.uid, 2 + count) << "uids go on where they were";
    }
}

TEST(CsvLine, TakesAndRefuses) {
    for (const auto& row : TestTable("csv_lines.txt")) {
        for (const char* const end : {"", "\n", "\r\n"}) {
            _tagEvent3D event;
            t_MBT mbt;
            EXPECT_EQ(ParseCsvLine(row[0] + end, event, mbt), row[1] == "1" ? 0 : kErrorFormat)
                << row[0];
        }
    }
}

TEST(CsvLine, LongLinesArriveInPieces) {
    const std::string text = std::string(1023, ',') + "\n" + std::string(1022, 'x') + "\nlast";
    CsvLines lines(text);
    std::vector<std::size_t> lengths;
    for (std::string_view line; lines.Next(line);) {
        lengths.push_back(line.size());
    }
    EXPECT_THAT(lengths, ElementsAre(1023, 1, 1023, 4));
}

TEST(CsvLoad, DropsWhatIsOverTheLimitAndSaysSoOnce) {
    std::string text = "Division,480\r\n" + std::string(kHeader);
    for (int i = 0; i < 258; ++i) {
        text += "3,1,1," + std::to_string(i) + ",1000,0,0\n1,2,1,0,1000,0,0\n";
    }
    C3DEventData store;
    C3DReport report;
    EXPECT_EQ(store.LoadCsvText(text, report), 0);
    EXPECT_EQ(store.CountEvents(3), 256);
    EXPECT_THAT(report.Lines(), ElementsAre("Error: Over Event ID=(1) Count Limit",
                                            "Error: Over Event ID=(3) Count Limit"));
}

TEST(CsvLoad, RangeModeKeepsDivisionAndTimeSignatures) {
    C3DEventData store = RangeStore(1920, 9000);
    const std::vector<t_tSigMapRec> map = Map(store);
    C3DReport report;
    // By the file measure 2 is at tick 3840, which the store reads as another place.
    const std::string text = "Division,960\r\n" + std::string(kHeader) +
                             ",1,1,0,,,,4_4\r\n1,2,1,0,1000,0,0\r\n2,1,2,0,1000,0,0\r\n";
    EXPECT_EQ(store.LoadCsvText(text, report), 0);
    EXPECT_THAT(report.Lines(), ElementsAre("Index=2 Time out of range"));
    EXPECT_EQ(Map(store), map);
    EXPECT_EQ(store.CsvText(), "Division,480\r\n" + std::string(kHeader) +
                                   ",1,1,0,,,,3_4\r\n,2,1,0,,,,4_4\r\n1,3,2,0,1000,0,0\r\n"
                                   ",4,1,0,,,,2_4\r\n,11,1,0,,,,6_8\r\n");
}

TEST(CsvLoad, AQuestionThatThrowsLeavesTheStore) {
    HooksScope scope;
    Answer("");
    C3DEventData store;
    Add(store, Position(1, 77));
    const auto before = StateOf(store);
    C3DReport report;
    EXPECT_THROW(store.LoadCsvText(kHeader, report), std::runtime_error);
    EXPECT_EQ(StateOf(store), before);
}

TEST(CsvSave, ARecordOnTheEdgeOfTheRangeIsAnEventAndStandsOnce) {
    const C3DEventData store = RangeStore(1440, 5280);
    EXPECT_EQ(store.CsvText(), "Division,480\r\n" + std::string(kHeader) +
                                   ",1,1,0,,,,3_4\r\n,2,1,0,,,,4_4\r\n0,2,2,80,1000,0,0\r\n"
                                   ",4,1,0,,,,2_4\r\n,11,1,0,,,,6_8\r\n");
}

TEST(CsvSave, GivesTheCodes) {
    HooksScope scope;
    const TemporaryFolder folder;
    C3DEventData store;
    EXPECT_EQ(store.SaveCsv("table.txt"), kErrorExtension);
    EXPECT_EQ(store.SaveCsv(folder / "empty.csv"), 0);
    EXPECT_FALSE(fs::exists(folder / "empty.csv"));
    Add(store, Position(1, 2400));
    EXPECT_EQ(store.SaveCsv(folder / "Table.CSV"), 0);
    EXPECT_EQ(Read(folder / "Table.CSV"),
              "Division,480\r\n" + std::string(kHeader) + "1,2,2,0,1000,0,0\r\n");
    EXPECT_EQ(store.SaveCsv(folder / "none/table.csv"), kErrorOpen);
    double free = static_cast<double>(store.CsvText().size()) - 0.5;
    Hooks().diskFreeBytes = [&free](char letter) { return letter == 'q' ? free : -1.0; };
    EXPECT_EQ(store.SaveCsv("q:/no/such/folder.csv"), kErrorDiskSpace);
    free += 0.5;
    EXPECT_EQ(store.SaveCsv("q:/no/such/folder.csv"), kErrorOpen);
    EXPECT_EQ(store.SaveCsv("A:/no/such/folder.csv"), kErrorDiskSpace);
    fs::current_path(folder.Path());
    EXPECT_EQ(store.SaveCsv("q:cut.csv"), 0);
    {
        const FileLimit limit(40);
        EXPECT_EQ(store.SaveCsv("q:cut.csv"), kErrorAccess);
    }
    EXPECT_FALSE(fs::exists("q:cut.csv")) << "the half of a file is worse than none";
    C3DReport report;
    EXPECT_EQ(store.LoadCsv(folder / "none.csv", report), kErrorOpen);
    fs::create_directory(folder / "folder.csv");
    EXPECT_EQ(store.LoadCsv(folder / "folder.csv", report), kErrorOpen);
    ASSERT_EQ(mkfifo((folder / "pipe.csv").c_str(), 0600), 0);
    EXPECT_EQ(store.LoadCsv(folder / "pipe.csv", report), kErrorOpen);
    EXPECT_EQ(store.SaveCsv(folder / "pipe.csv"), kErrorOpen);
    EXPECT_EQ(store.LoadCsv(folder / "table.txt", report), kErrorExtension);
}
