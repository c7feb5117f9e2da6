#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/types.h"
#include "sequence/api.h"

/// Whole files in and out. Paths are UTF-8. Any thread.

/// Bytes of the longest file that is read: far above any pattern or song, and low enough that a
/// device without an end does not take the machine's memory.
inline constexpr std::size_t kLongestFile = std::size_t{256} << 20;

/// The bytes of a file, or nothing when it can't be opened or read (a folder counts so) or is
/// longer than `kLongestFile`. `reason` takes the system's words for the failure.
ORBIX_API std::optional<std::string> ReadWholeFile(const CString& path, CString* reason = nullptr);

/// Writes `bytes` to a new file beside `path`, brings it to the disk and renames it over `path`,
/// so that the file is there whole or stays as it was. A symbolic link is written through, also to
/// a file that is not there yet; the old file's mode is kept, a new file's held to the user's mask;
/// a pipe or a device is refused. False on failure, with the words for it in `reason`; nothing of
/// the attempt is left behind.
ORBIX_API bool WriteFileCommitted(const CString& path, std::string_view bytes,
                                  CString* reason = nullptr);

/// How an attempt to write a file in place ended.
enum class WriteOutcome { written, notOpened, cutShort };

/// Opens `path` for writing, truncating it, and writes `bytes`. `written` takes the number of
/// bytes that went out. Nothing written at all counts as notOpened, and so does a pipe or a device:
/// opening it may wait for ever.
WriteOutcome WriteFileInPlace(const CString& path, std::string_view bytes, std::size_t& written);

/// False when it is known that a file of so many bytes can't be written at `path`: its file system
/// has less space for this user, or the process is held to smaller files. What a file that stands
/// there would free is not counted. True when the system can't be asked.
bool HasRoomForFile(const CString& path, std::size_t bytes);

/// Removes a file; false when it could not be.
bool DeleteFile(const CString& path);

/// What stands at a path, links followed. What can't be looked at counts as nothing; `other` is a
/// pipe or a device, whose reader may wait for ever.
enum class PathKind { none, file, folder, other };
ORBIX_API PathKind KindOfPath(const CString& path);

/// The most bytes of a path that the editor's file commands take.
inline constexpr std::size_t kMaxPath = 260;

/// The process's current folder; nothing when it is gone, or too long for a buffer of kMaxPath.
std::optional<CString> CurrentFolder();
/// Moves the process there; false, and nothing moved, when it can't.
bool SetCurrentFolder(const CString& path);

/// The extension of the last path component with its dot ("" when there is none), lower case.
ORBIX_API CString LowerExtension(const CString& path);
