#include "platform/decorators/hooked_files.h"

#include <string>
#include <utility>

#include "base/error.h"

namespace keyscout {
namespace {

/// Hands another file on.
class HookedFile : public RandomAccessFile {
 public:
  HookedFile(std::unique_ptr<RandomAccessFile> file, int& openCount)
      : file_(std::move(file)), openCount_(openCount) {
    ++openCount_;
  }
  ~HookedFile() override { --openCount_; }

  std::optional<std::uint64_t> size() const override { return file_->size(); }
  std::size_t readAt(std::uint64_t offset, char* to, std::size_t room) override {
    return file_->readAt(offset, to, room);
  }

 private:
  std::unique_ptr<RandomAccessFile> file_;
  int& openCount_;
};

/// Hands the lines of a text file on one by one, so that each is a call of its own.
class HookedLines final : public RandomAccessFile {
 public:
  HookedLines(std::unique_ptr<SequentialFile> file, CallHook& hook, int& openCount)
      : file_(std::move(file)), hook_(hook), openCount_(openCount) {
    ++openCount_;
  }
  ~HookedLines() override { --openCount_; }

  std::optional<std::uint64_t> size() const override { return std::nullopt; }

  std::size_t readAt(std::uint64_t, char* to, std::size_t room) override {
    if (handedOn_ == line_.size()) {
      if (file_->atEnd()) return 0;
      hook_.onCall("readLine");
      line_ = std::string{file_->readLine()} + "\r\n";
      handedOn_ = 0;
    }
    const std::size_t count = line_.copy(to, room, handedOn_);
    handedOn_ += count;
    return count;
  }

 private:
  std::unique_ptr<SequentialFile> file_;
  CallHook& hook_;
  int& openCount_;
  std::string line_;
  std::size_t handedOn_ = 0;
};

}  // namespace

std::unique_ptr<RandomAccessFile> HookedFiles::openAtOffsets(StringView path) {
  hook_.onCall("openFile");
  if (hook_.minds("readLine"))
    return std::make_unique<HookedLines>(files_.open(path), hook_, openCount_);
  return std::make_unique<HookedFile>(files_.openAtOffsets(path), openCount_);
}

bool HookedFiles::exists(StringView path) {
  hook_.onCall("fileExists");
  return files_.exists(path);
}

std::chrono::sys_seconds HookedFiles::lastModified(StringView path) {
  hook_.onCall("lastModified");
  return files_.lastModified(path);
}

FileStamp HookedFiles::stamp(StringView path) {
  if (hook_.minds("openFile") || hook_.minds("readLine"))
    throw platformFailure(PlatformError::fileAccess, u"Files");
  return files_.stamp(path);
}

}  // namespace keyscout
