#pragma once

#include <cstdint>

#include "platform/decorators/forwarding_files.h"

namespace keyscout {

/// Files that count what is read through them.
class MeteredFiles final : public ForwardingFiles {
 public:
  struct Reading {
    std::uint64_t files = 0;  // that were opened
    std::uint64_t calls = 0;  // that read
    std::uint64_t bytes = 0;
    std::uint64_t stamps = 0;  // of files that were not opened for them
  };

  using ForwardingFiles::ForwardingFiles;

  std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) override;
  FileStamp stamp(StringView path) override;

  const Reading& reading() const { return reading_; }
  void reset() { reading_ = {}; }

 private:
  Reading reading_;
};

}  // namespace keyscout
