#pragma once

/// Exit codes of orbix-studio, the same meanings as the command line's.
namespace exit_code {

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;  ///< Could not open, write or show.
inline constexpr int kUsage = 2;
inline constexpr int kRefused = 3;        ///< The file is no pattern.
inline constexpr int kAlreadyOpen = 255;  ///< Another editor is open: the dialog's -1.

}  // namespace exit_code
