#include "event/report.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/hooks.h"

namespace {

struct ReportMessage {
    int code;
    std::string_view text;
};

constexpr ReportMessage kReportMessages[] = {
    {kErrorMemory, "Error: Memory Allocation"},
    {kErrorExtension, "Error: File Extension Not Supported"},
    {kErrorMultiFile, "Error: Multi File Open Not Supported"},
    {kErrorDirectory, "Error: Directory Open Not Supported"},
    {kErrorPathTooLong, "Error: File path is too long"},
    {kErrorOpen, "Error: File open"},
    {kErrorAccess, "Error: File access"},
    {kErrorFormat, "Error: File format"},
    {kErrorDiskSpace, "Error: Disk Space not Enough"},
    {kErrorNoData, "Error: Valid data not Found"},
    {kErrorCountLimit, "Error: Over Event ID=(%d) Count Limit"},
    {kTimeIgnored, "Index=%d Time out of range"},
    {kErrorTimeRange, "Error: Time out of range"},
    {kErrorDivision, "Error: Division out of range"},
    {kErrorTimeSigExists, "Error: TimeSig. event is already existing"},
    {kErrorEventType, "Error: Event type is different"},
    {kErrorTimeSigLocked, "Error: Editing of TimeSig. event is prohibited here"},
    {kIdChanged, "Index=%d : ID Changed (%d)->(%d)"},
    {kAzimuthChanged, "Index=%d : Azimuth Changed (%d)->(%d)"},
    {kElevationChanged, "Index=%d : Elevation Changed (%d)->(%d)"},
    {kDistanceChanged, "Index=%d : Distance Changed (%d)->(%d)"},
    {kMeasureIgnored, "Index=%d : Meas/Beat out of range (Entry ignored)"},
    {kTickIgnored, "Index=%d : Tick out of range (Entry ignored)"},
    {kTimeSigIgnored, "Index=%d : TimeSig. %d/%d out of range (Entry ignored)"},
    {kTimeSigDoubled, "Index=%d : TimeSig. event is already existing (Entry ignored)"},
    {kTimeSigMoved, "Index=%d : TimeSig. MBT Changed (%d:%d:%d)->(%d:%d:%d)"},
    {kErrorAlreadyOpen, "Error: Orbix Already Opened"},
};

constexpr std::string_view kNumberPlace = "%d";
constexpr std::size_t kShownLines = 5;

}  // namespace

void C3DReport::Add(int code, std::initializer_list<std::int64_t> arguments) {
    AddLine(FormatReport(code, arguments));
}

void GetReportText(int code, CString& text) {
    text.clear();
    for (const ReportMessage& message : kReportMessages) {
        if (message.code == code) {
            text = message.text;
            return;
        }
    }
}

CString FormatReport(int code, std::initializer_list<std::int64_t> arguments) {
    CString text;
    GetReportText(code, text);
    std::size_t place = 0;
    for (const std::int64_t argument : arguments) {
        place = text.find(kNumberPlace, place);
        if (place == CString::npos) {
            break;
        }
        const std::string digits = std::to_string(argument);
        text.replace(place, kNumberPlace.size(), digits);
        place += digits.size();
    }
    return text;
}

void ShowError(int code) {
    CString text;
    GetReportText(code, text);
    ShowMessage(text);
}

void ShowMessage(const CString& text) {
    if (!text.empty()) {
        AfxMessageBox(text, MB_ICONERROR);
    }
}

void ShowReport(const C3DReport& report) {
    CString text;
    const std::vector<CString>& lines = report.Lines();
    for (std::size_t index = 0; index < lines.size(); ++index) {
        if (lines[index].empty()) {
            continue;
        }
        if (index >= kShownLines) {
            text += "and more...";
            break;
        }
        text += lines[index] + "\r\n";
    }
    if (!text.empty()) {
        AfxMessageBox(text, MB_ICONWARNING);
    }
}
