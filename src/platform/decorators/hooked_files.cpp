#include "platform/decorators/hooked_files.h"

#include <algorithm>
#include <string>

namespace keyscout {
namespace {

/// Hands the lines of another file on one by one, so that each is a call of its own.
class HookedFile final : public SequentialFile {
 public:
  HookedFile(std::unique_ptr<SequentialFile> file, CallHook& hook, int& openCount)
      : file_(std::move(file)), hook_(hook), openCount_(openCount) {
    ++openCount_;
  }
  ~HookedFile() override { --openCount_; }

 private:
  std::size_t read(char* to, std::size_t room) override {
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

  std::unique_ptr<SequentialFile> file_;
  CallHook& hook_;
  int& openCount_;
  std::string line_;
  std::size_t handedOn_ = 0;
};

}  // namespace

std::unique_ptr<SequentialFile> HookedFiles::open(StringView path) {
  hook_.onCall("openFile");
  return std::make_unique<HookedFile>(files_.open(path), hook_, openCount_);
}

bool HookedFiles::exists(StringView path) {
  hook_.onCall("fileExists");
  return files_.exists(path);
}

std::chrono::sys_seconds HookedFiles::lastModified(StringView path) {
  hook_.onCall("lastModified");
  return files_.lastModified(path);
}

}  // namespace keyscout
