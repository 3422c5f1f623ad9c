#pragma once

#include <set>

#include "base/error.h"
#include "platform/files.h"

namespace keyscout {

/// Files some of which cannot be read any more, as on a failing disk. The files themselves stay as
/// they are: nobody's catalog is harmed for a demonstration.
class DamagedFiles final : public Files {
 public:
  explicit DamagedFiles(Files& files) : files_(files) {}

  void damage(StringView path) { damaged_.insert(String{path}); }
  void repair() { damaged_.clear(); }

  std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) override {
    if (damaged_.contains(String{path})) throw platformFailure(PlatformError::fileAccess, u"Files");
    return files_.openAtOffsets(path);
  }
  bool exists(StringView path) override { return files_.exists(path); }
  std::chrono::sys_seconds lastModified(StringView path) override {
    return files_.lastModified(path);
  }
  FileStamp stamp(StringView path) override { return files_.stamp(path); }

 private:
  Files& files_;
  std::set<String> damaged_;
};

}  // namespace keyscout
