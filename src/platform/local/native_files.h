#pragma once

#ifdef _WIN32
#include "platform/win32/win32_files.h"
#else
#include "platform/posix/posix_files.h"
#endif

namespace keyscout {

/// The file system of the machine that the program was built for.
#ifdef _WIN32
using NativeFiles = Win32Files;
#else
using NativeFiles = PosixFiles;
#endif

}  // namespace keyscout
