#include "apps/cli/files/input_file.h"

#include <cerrno>
#include <stdexcept>
#include <system_error>

namespace keyscout {
namespace {

// The reader's buffer doubles while one line fills it, so its free room tells how long a line is.
constexpr std::size_t maxRoom = std::size_t{4} * 1024 * 1024;

}  // namespace

InputFile::InputFile(const std::filesystem::path& path) {
  if (std::filesystem::is_directory(path)) throw std::runtime_error("it is a directory");
  if (!file_.open(path, std::ios::in | std::ios::binary))
    throw std::runtime_error(std::generic_category().message(errno));
}

std::size_t InputFile::read(char* to, std::size_t room) {
  if (room > maxRoom) throw std::runtime_error("a line of it has no end");
  const auto count = file_.sgetn(to, static_cast<std::streamsize>(room));
  return static_cast<std::size_t>(count);
}

}  // namespace keyscout
