#pragma once

#include <set>

#include "base/error.h"
#include "platform/decorators/forwarding_files.h"

namespace keyscout {

/// Files some of which cannot be read any more, as on a failing disk. The files themselves stay as
/// they are: nobody's catalog is harmed for a demonstration.
class DamagedFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;

  void damage(StringView path) { damaged_.insert(String{path}); }
  void repair() { damaged_.clear(); }

  std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) override {
    if (damaged_.contains(String{path})) throw platformFailure(PlatformError::fileAccess, u"Files");
    return files().openAtOffsets(path);
  }

 private:
  std::set<String> damaged_;
};

}  // namespace keyscout
