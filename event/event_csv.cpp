#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include "event/csv_reader.h"
#include "event/csv_writer.h"
#include "event/event_store.h"
#include "platform/files.h"
#include "platform/hooks.h"

namespace {

bool IsCsvPath(const CString& path) {
    return LowerExtension(path) == ".csv";
}

bool HasDriveLetter(const CString& path) {
    const char letter = path.empty() ? '\0' : static_cast<char>(path[0] | 0x20);
    return letter >= 'a' && letter <= 'z' && path.size() > 1 && path[1] == ':';
}

// The file is written in place, so that a disk that is full has to be noticed before it is opened.
// Here a drive seldom has a letter; else it is the file system that the path lies on.
bool HasRoomFor(const CString& path, std::size_t bytes) {
    return HasDriveLetter(path)
               ? std::trunc(Hooks().diskFreeBytes(path[0])) >= static_cast<double>(bytes)
               : HasRoomForFile(path, bytes);
}

}  // namespace

CString C3DEventData::CsvText() const {
    return WriteCsv(events_, map_, range_);
}

int C3DEventData::SaveCsv(const CString& path) const {
    if (!IsCsvPath(path)) {
        return kErrorExtension;
    }
    if (events_.empty()) {
        return 0;
    }
    const CString text = CsvText();
    if (!HasRoomFor(path, text.size())) {
        return kErrorDiskSpace;
    }
    std::size_t written = 0;
    switch (WriteFileInPlace(path, text, written)) {
        case WriteOutcome::notOpened:
            return kErrorOpen;
        case WriteOutcome::cutShort:
            DeleteFile(path);
            return kErrorAccess;
        case WriteOutcome::written:
            break;
    }
    return 0;
}

int C3DEventData::LoadCsv(const CString& path, C3DReport& report) {
    if (!IsCsvPath(path)) {
        return kErrorExtension;
    }
    // A pipe without a writer would hold its reader for ever.
    if (KindOfPath(path) == PathKind::other) {
        return kErrorOpen;
    }
    const auto text = ReadWholeFile(path);
    return text ? LoadCsvText(*text, report) : kErrorOpen;
}

int C3DEventData::LoadCsvText(std::string_view text, C3DReport& report) {
    CsvContent content;
    if (const int code = ReadCsv(text, range_, content, report); code != 0) {
        return code;
    }
    C3DEventData loaded = Emptied();
    if (range_.IsBound()) {
        for (const t_tSigMapRec& record : map_.Records()) {
            _tagEvent3D event = TimeSigEventOf(record);
            loaded.TakeEvent(event, Recording::off);
        }
    } else {
        loaded.map_.SetDivision(content.map.Division());
    }
    loaded.TakeEvents(content.events, report);
    *this = std::move(loaded);
    return 0;
}

void C3DEventData::TakeEvents(std::vector<_tagEvent3D>& events, C3DReport& report) {
    std::array<bool, 256> overLimit{};
    for (_tagEvent3D& event : events) {
        if (range_.IsBound() && event.type != kEventPosition) {
            continue;
        }
        if (TakeEvent(event, Recording::off) == kErrorCountLimit) {
            overLimit[event.id] = true;
        }
    }
    SortEvents();
    for (int id = 0; id < kSourceCount; ++id) {
        if (overLimit[static_cast<std::size_t>(id)]) {
            report.Add(kErrorCountLimit, {id});
        }
    }
}
