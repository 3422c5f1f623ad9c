#include "platform/files.h"

#include <utility>

namespace keyscout {
namespace {

/// Reads a file from its first byte to its last.
class WholeFile final : public SequentialFile {
 public:
  explicit WholeFile(std::unique_ptr<RandomAccessFile> file) : file_(std::move(file)) {}

 private:
  std::size_t read(char* to, std::size_t room) override {
    const std::size_t count = file_->readAt(offset_, to, room);
    offset_ += count;
    return count;
  }

  std::unique_ptr<RandomAccessFile> file_;
  std::uint64_t offset_ = 0;
};

}  // namespace

std::unique_ptr<SequentialFile> Files::open(StringView path) {
  return std::make_unique<WholeFile>(openAtOffsets(path));
}

}  // namespace keyscout
