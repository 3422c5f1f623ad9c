#pragma once

#include "platform/files.h"

namespace keyscout {

/// The file system of a POSIX machine. Backslashes in a path become slashes on the way in.
class PosixFiles final : public Files {
 public:
  std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) override;
  bool exists(StringView path) override;
  std::chrono::sys_seconds lastModified(StringView path) override;
  FileStamp stamp(StringView path) override;
};

}  // namespace keyscout
