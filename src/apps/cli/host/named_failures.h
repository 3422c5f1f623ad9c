#pragma once

#include "base/error.h"
#include "platform/files.h"

namespace keyscout {

/// Files whose failures to open begin with the file's name, for a person who is told of nothing
/// but the failure.
class NamedFailures final : public Files {
 public:
  /// `files` must outlive this.
  explicit NamedFailures(Files& files) : files_(files) {}

  std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) override try {
    return files_.openAtOffsets(path);
  } catch (const Error& failure) {
    const StringView name = path.substr(path.find_last_of(u'\\') + 1);
    throw Error{failure.number(), failure.source(), String{name} + u": " + failure.description()};
  }
  bool exists(StringView path) override { return files_.exists(path); }
  std::chrono::sys_seconds lastModified(StringView path) override {
    return files_.lastModified(path);
  }
  FileStamp stamp(StringView path) override { return files_.stamp(path); }

 private:
  Files& files_;
};

}  // namespace keyscout
