#pragma once

#include <chrono>
#include <memory>
#include <utility>

#include "platform/files.h"

namespace keyscout::bench {

/// Files every call of which takes its time, as those of a share do.
class SlowFiles final : public Files {
 public:
  static constexpr std::chrono::microseconds delay{500};

  explicit SlowFiles(Files& files) : files_(files) {}

  std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) override {
    wait();
    return std::make_unique<File>(files_.openAtOffsets(path));
  }
  bool exists(StringView path) override {
    wait();
    return files_.exists(path);
  }
  std::chrono::sys_seconds lastModified(StringView path) override {
    wait();
    return files_.lastModified(path);
  }
  FileStamp stamp(StringView path) override {
    wait();
    return files_.stamp(path);
  }

 private:
  class File final : public RandomAccessFile {
   public:
    explicit File(std::unique_ptr<RandomAccessFile> file) : file_(std::move(file)) {}
    std::optional<std::uint64_t> size() const override { return file_->size(); }
    std::size_t readAt(std::uint64_t offset, char* to, std::size_t room) override {
      wait();
      return file_->readAt(offset, to, room);
    }

   private:
    std::unique_ptr<RandomAccessFile> file_;
  };

  /// To the microsecond, which a sleep is not.
  static void wait() {
    const auto end = std::chrono::steady_clock::now() + delay;
    while (std::chrono::steady_clock::now() < end) {
    }
  }

  Files& files_;
};

}  // namespace keyscout::bench
