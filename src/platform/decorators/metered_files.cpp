#include "platform/decorators/metered_files.h"

#include <utility>

namespace keyscout {
namespace {

class MeteredFile final : public RandomAccessFile {
 public:
  MeteredFile(std::unique_ptr<RandomAccessFile> file, MeteredFiles::Reading& reading)
      : file_(std::move(file)), reading_(reading) {}

  std::optional<std::uint64_t> size() const override { return file_->size(); }

  std::size_t readAt(std::uint64_t offset, char* to, std::size_t room) override {
    const std::size_t count = file_->readAt(offset, to, room);
    ++reading_.calls;
    reading_.bytes += count;
    return count;
  }

 private:
  std::unique_ptr<RandomAccessFile> file_;
  MeteredFiles::Reading& reading_;
};

}  // namespace

std::unique_ptr<RandomAccessFile> MeteredFiles::openAtOffsets(StringView path) {
  auto file = files().openAtOffsets(path);
  ++reading_.files;
  return std::make_unique<MeteredFile>(std::move(file), reading_);
}

FileStamp MeteredFiles::stamp(StringView path) {
  ++reading_.stamps;
  return ForwardingFiles::stamp(path);
}

}  // namespace keyscout
