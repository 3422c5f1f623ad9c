#include "file_cache.h"

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>

namespace keyscout::bench {
namespace {

template <class Action>
void forEachFile(const std::filesystem::path& path, Action&& action) {
  if (std::filesystem::is_directory(path)) {
    for (const auto& entry : std::filesystem::directory_iterator(path))
      forEachFile(entry.path(), action);
    return;
  }
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool isDone = file >= 0 && action(file) == 0;
  if (file >= 0) ::close(file);
  if (!isDone) throw std::runtime_error{"cannot prepare " + path.string()};
}

}  // namespace

void writeToDisk(const std::filesystem::path& path) { forEachFile(path, ::fdatasync); }

void dropFromMemory(const std::filesystem::path& path) {
  forEachFile(path, [](int file) { return ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED); });
}

}  // namespace keyscout::bench
