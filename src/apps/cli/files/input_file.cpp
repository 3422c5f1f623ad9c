#include "apps/cli/files/input_file.h"

#include <cerrno>
#include <stdexcept>
#include <system_error>

namespace keyscout {
namespace {

// The reader's buffer doubles while one line fills it, so its free room tells how long a line is.
constexpr std::size_t maxRoom = std::size_t{4} * 1024 * 1024;

[[noreturn]] void fail() {
  throw std::runtime_error(errno == EINTR ? "interrupted" : std::generic_category().message(errno));
}

std::FILE* open(const std::filesystem::path& path) {
#ifdef _WIN32
  return ::_wfopen(path.c_str(), L"rb");
#else
  return std::fopen(path.c_str(), "rb");
#endif
}

}  // namespace

void InputFile::Closer::operator()(std::FILE* file) const {
  if (file != stdin) std::fclose(file);
}

InputFile::InputFile(const std::filesystem::path& path) {
  if (isStandardInput(path)) {
    file_.reset(stdin);
    return;
  }
  std::error_code unknown;
  if (std::filesystem::is_directory(path, unknown)) throw std::runtime_error("it is a directory");
  file_.reset(open(path));
  if (!file_) fail();
  const auto size = std::filesystem::file_size(path, unknown);
  if (!unknown) size_ = size;
}

std::size_t InputFile::read(char* to, std::size_t room) {
  if (room > maxRoom) throw std::runtime_error("a line of it has no end");
  const std::size_t count = std::fread(to, 1, room, file_.get());
  if (count < room && std::ferror(file_.get()) != 0) fail();
  if (copy_ != nullptr) copy_->write({to, count});
  bytesRead_ += count;
  return count;
}

}  // namespace keyscout
