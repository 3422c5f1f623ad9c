#pragma once

#include <cstdint>

#include "platform/files.h"

namespace keyscout {

/// Files that count what is read through them.
class MeteredFiles final : public Files {
 public:
  struct Reading {
    std::uint64_t files = 0;  // that were opened
    std::uint64_t calls = 0;  // that read
    std::uint64_t bytes = 0;
    std::uint64_t stamps = 0;  // of files that were not opened for them
  };

  /// `files` must outlive this and every file opened here.
  explicit MeteredFiles(Files& files) : files_(files) {}

  std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) override;
  bool exists(StringView path) override { return files_.exists(path); }
  std::chrono::sys_seconds lastModified(StringView path) override {
    return files_.lastModified(path);
  }
  FileStamp stamp(StringView path) override;

  const Reading& reading() const { return reading_; }
  void reset() { reading_ = {}; }

 private:
  Files& files_;
  Reading reading_;
};

}  // namespace keyscout
