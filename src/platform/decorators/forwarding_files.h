#pragma once

#include "platform/files.h"

namespace keyscout {

/// Hands every question about a file on to other files; how one is opened is for its heirs to say.
class ForwardingFiles : public Files {
 public:
  /// `files` must outlive this and every file opened here.
  explicit ForwardingFiles(Files& files) : files_(files) {}

  bool exists(StringView path) override { return files_.exists(path); }
  std::chrono::sys_seconds lastModified(StringView path) override {
    return files_.lastModified(path);
  }
  FileStamp stamp(StringView path) override { return files_.stamp(path); }

 protected:
  Files& files() const { return files_; }

 private:
  Files& files_;
};

}  // namespace keyscout
