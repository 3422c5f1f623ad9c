#pragma once

#include "platform/decorators/call_hook.h"
#include "platform/files.h"

namespace keyscout {

/// Files whose calls go by a hook, as "openFile", "readLine", "fileExists" and "lastModified". A
/// hook that minds "readLine" when a file is opened is told of every line of it, and the file is
/// read from its top; else it is read as without a hook. Counts the files that are open.
class HookedFiles final : public Files {
 public:
  HookedFiles(Files& files, CallHook& hook) : files_(files), hook_(hook) {}

  std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) override;
  bool exists(StringView path) override;
  std::chrono::sys_seconds lastModified(StringView path) override;
  /// Fails with path or file access error (75) while the hook minds calls that a stamp spares:
  /// opening a file and reading its lines.
  FileStamp stamp(StringView path) override;

  int openCount() const { return openCount_; }

 private:
  Files& files_;
  CallHook& hook_;
  int openCount_ = 0;
};

}  // namespace keyscout
