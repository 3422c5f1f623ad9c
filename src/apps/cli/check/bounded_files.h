#pragma once

#include "platform/files.h"

namespace keyscout {

/// Files whose lines have a bound: reading on in a line of more than a few megabytes fails with
/// path or file access error (75). Whoever reads all of a directory that may be damaged in any way
/// keeps its memory small by that.
class BoundedFiles final : public Files {
 public:
  /// `files` must outlive this and every file opened here.
  explicit BoundedFiles(Files& files) : files_(files) {}

  std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) override;
  bool exists(StringView path) override { return files_.exists(path); }
  std::chrono::sys_seconds lastModified(StringView path) override {
    return files_.lastModified(path);
  }
  FileStamp stamp(StringView path) override { return files_.stamp(path); }

 private:
  Files& files_;
};

}  // namespace keyscout
