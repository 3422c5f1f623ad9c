#include "platform/decorators/metered_files.h"

#include <utility>

namespace keyscout {
namespace {

class MeteredFile final : public SequentialFile {
 public:
  MeteredFile(std::unique_ptr<SequentialFile> file, MeteredFiles::Reading& reading)
      : file_(std::move(file)), reading_(reading) {}

 private:
  std::size_t read(char* to, std::size_t room) override {
    const std::size_t count = readFrom(*file_, to, room);
    reading_.bytes += count;
    return count;
  }

  std::unique_ptr<SequentialFile> file_;
  MeteredFiles::Reading& reading_;
};

}  // namespace

std::unique_ptr<SequentialFile> MeteredFiles::open(StringView path) {
  auto file = files_.open(path);
  ++reading_.files;
  return std::make_unique<MeteredFile>(std::move(file), reading_);
}

}  // namespace keyscout
