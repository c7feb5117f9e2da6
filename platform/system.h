#pragma once

#include "platform/types.h"

/// The seam to the operating system, in the platform's terms; defined in platform/posix. Any
/// thread.
namespace os {

/// Milliseconds of the monotonic clock, wrapping at 32 bits.
DWORD TickCount();

void SleepMilliseconds(DWORD milliseconds);

/// Free bytes for this user on the file system of the current folder, which is what a drive
/// letter can mean here; -1.0 on failure.
double DiskFreeBytes(char letter);

/// The English words for the error number of the last failed call.
CString LastErrorText();

}  // namespace os
