#pragma once

#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

#include "platform/types.h"
#include "sequence/api.h"

/// Codes of the editor. Negative ones are errors that stop an operation, but for kTimeIgnored,
/// which like the positive bits is a remark on one entry of a load.
inline constexpr int kErrorMemory = -10000;
inline constexpr int kErrorExtension = -9999;
inline constexpr int kErrorMultiFile = -9998;
inline constexpr int kErrorDirectory = -9997;
inline constexpr int kErrorPathTooLong = -9996;
inline constexpr int kErrorOpen = -9995;
inline constexpr int kErrorAccess = -9994;
inline constexpr int kErrorFormat = -9993;
inline constexpr int kErrorDiskSpace = -9992;
inline constexpr int kErrorNoData = -9991;
inline constexpr int kErrorCountLimit = -9990;
inline constexpr int kTimeIgnored = -9989;
inline constexpr int kErrorTimeRange = -9988;
inline constexpr int kErrorDivision = -9987;
inline constexpr int kErrorTimeSigExists = -9986;
inline constexpr int kErrorEventType = -9985;
inline constexpr int kErrorTimeSigLocked = -9984;
inline constexpr int kErrorAlreadyOpen = -9983;
inline constexpr int kIdChanged = 1;
inline constexpr int kAzimuthChanged = 2;
inline constexpr int kElevationChanged = 4;
inline constexpr int kDistanceChanged = 8;
inline constexpr int kMeasureIgnored = 16;
inline constexpr int kTickIgnored = 32;
inline constexpr int kTimeSigIgnored = 64;
inline constexpr int kTimeSigDoubled = 128;
inline constexpr int kTimeSigMoved = 256;

/// The remarks of one load, a line each. Owned by whoever starts the load and emptied by it.
class ORBIX_API C3DReport {
public:
    /// Adds the text of `code` with its "%d" places filled in order from `arguments`.
    void Add(int code, std::initializer_list<std::int64_t> arguments);
    void AddLine(CString line) { lines_.push_back(std::move(line)); }
    void Clear() { lines_.clear(); }
    bool IsEmpty() const { return lines_.empty(); }
    const std::vector<CString>& Lines() const { return lines_; }

private:
    std::vector<CString> lines_;
};

/// The text of a code as the message table has it; empty for an unknown code.
ORBIX_API void GetReportText(int code, CString& text);

/// The text of `code` with its "%d" places filled in order from `arguments`; a place without an
/// argument stays as it is.
ORBIX_API CString FormatReport(int code, std::initializer_list<std::int64_t> arguments);

/// Shows the text of `code` in a message box with the error icon; nothing for an unknown code.
ORBIX_API void ShowError(int code);

/// Shows a text that is ready, likewise; nothing when it is empty.
ORBIX_API void ShowMessage(const CString& text);

/// Shows at most five lines of the report in a message box with the warning icon; further ones
/// turn into "and more...". Nothing when there is nothing to show.
ORBIX_API void ShowReport(const C3DReport& report);
