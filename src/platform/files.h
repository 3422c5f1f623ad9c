#pragma once

#include <chrono>
#include <cstdint>
#include <memory>

#include "base/text.h"
#include "platform/random_access_file.h"
#include "platform/sequential_file.h"

namespace keyscout {

/// By what a file is known to be what it was.
struct FileStamp {
  using Time = std::chrono::sys_time<std::chrono::nanoseconds>;

  std::uint64_t size = 0;  // in bytes
  Time lastModified{};     // as fine as the system has it
};

/// The files of the data directory, read only. Paths are as the host gives them, with backslashes.
class Files {
 public:
  virtual ~Files() = default;

  /// False for a name with a NUL in it, which the system would take to end there.
  static bool isName(StringView path) { return path.find(u'\0') == path.npos; }

  /// Opens a text file at its first line. Fails as `openAtOffsets` does.
  std::unique_ptr<SequentialFile> open(StringView path);

  /// Opens a file to be read at offsets. Fails with file not found (53), path not found (76: a
  /// directory on the way is missing), permission denied (70), or path or file access error (75:
  /// anything but a regular file, a name with a NUL in it).
  virtual std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) = 0;

  /// True when a file of that name exists, hidden and read-only files included; a directory is
  /// not a file.
  virtual bool exists(StringView path) = 0;

  /// When the file was last written, to the second. Fails as `open` does.
  virtual std::chrono::sys_seconds lastModified(StringView path) = 0;

  /// What the file is known by, without a look at its contents. Fails as `open` does.
  virtual FileStamp stamp(StringView path) = 0;
};

}  // namespace keyscout
