#pragma once

#include "platform/decorators/forwarding_files.h"

namespace keyscout {

/// Files whose lines have a bound: reading on in a line of more than a few megabytes fails with
/// path or file access error (75). Whoever reads all of a directory that may be damaged in any way
/// keeps its memory small by that.
class BoundedFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;

  std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) override;
};

}  // namespace keyscout
