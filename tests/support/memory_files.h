#pragma once

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <string>

#include "base/error.h"
#include "platform/files.h"

namespace keyscout::test {

/// Files in memory, under whatever folder. They come in pieces of any size, and a read may be told
/// to fail.
class MemoryFiles final : public Files {
 public:
  void put(StringView name, std::string_view bytes) { contents_[String{name}] = bytes; }

  /// The most that one read brings.
  std::size_t piece = 4096;
  /// How many reads succeed before one fails; below 0 none does.
  int readsBeforeFailure = -1;

  std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) override {
    const std::string* const bytes = find(path);
    if (!bytes) throw platformFailure(PlatformError::fileNotFound, u"Files");
    return std::make_unique<File>(*this, *bytes);
  }
  bool exists(StringView path) override { return find(path) != nullptr; }
  std::chrono::sys_seconds lastModified(StringView) override { return {}; }
  FileStamp stamp(StringView path) override {
    const std::string* const bytes = find(path);
    if (!bytes) throw platformFailure(PlatformError::fileNotFound, u"Files");
    return {bytes->size(), {}};
  }

 private:
  class File final : public RandomAccessFile {
   public:
    File(MemoryFiles& files, std::string_view bytes) : files_(files), bytes_(bytes) {}

    std::optional<std::uint64_t> size() const override { return bytes_.size(); }

    std::size_t readAt(std::uint64_t offset, char* to, std::size_t room) override {
      if (files_.readsBeforeFailure >= 0 && files_.readsBeforeFailure-- == 0)
        throw platformFailure(PlatformError::fileAccess, u"Files");
      if (offset >= bytes_.size()) return 0;
      return bytes_.copy(to, std::min(room, files_.piece), static_cast<std::size_t>(offset));
    }

   private:
    MemoryFiles& files_;
    std::string_view bytes_;
  };

  const std::string* find(StringView path) const {
    const auto found = contents_.find(String{path.substr(path.rfind(u'\\') + 1)});
    return found == contents_.end() ? nullptr : &found->second;
  }

  std::map<String, std::string> contents_;
};

}  // namespace keyscout::test
