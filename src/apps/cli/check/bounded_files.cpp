#include "apps/cli/check/bounded_files.h"

#include <utility>

#include "base/error.h"

namespace keyscout {
namespace {

// A reader's buffer doubles while one line fills it, so its free room tells how long a line is.
constexpr std::size_t maxRoom = std::size_t{4} * 1024 * 1024;

class BoundedFile final : public RandomAccessFile {
 public:
  explicit BoundedFile(std::unique_ptr<RandomAccessFile> file) : file_(std::move(file)) {}

  std::optional<std::uint64_t> size() const override { return file_->size(); }

  std::size_t readAt(std::uint64_t offset, char* to, std::size_t room) override {
    if (room > maxRoom)
      throw Error{static_cast<std::int32_t>(PlatformError::fileAccess), u"BoundedFiles",
                  u"a line of it is longer than any text has them"};
    return file_->readAt(offset, to, room);
  }

 private:
  std::unique_ptr<RandomAccessFile> file_;
};

}  // namespace

std::unique_ptr<RandomAccessFile> BoundedFiles::openAtOffsets(StringView path) {
  return std::make_unique<BoundedFile>(files().openAtOffsets(path));
}

}  // namespace keyscout
