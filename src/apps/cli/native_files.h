#pragma once

#include "platform/posix/posix_files.h"

namespace keyscout {

/// The file system of the machine that the program was built for.
using NativeFiles = PosixFiles;

}  // namespace keyscout
