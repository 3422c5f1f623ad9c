#include "file_cache.h"

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>

namespace keyscout::bench {

void dropFromMemory(const std::filesystem::path& path) {
  if (std::filesystem::is_directory(path)) {
    for (const auto& entry : std::filesystem::directory_iterator(path))
      dropFromMemory(entry.path());
    return;
  }
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) throw std::runtime_error{"cannot open " + path.string()};
  // What has not been written yet stays in memory.
  const bool dropped =
      ::fdatasync(file) == 0 && ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED) == 0;
  ::close(file);
  if (!dropped) throw std::runtime_error{"cannot drop " + path.string() + " from memory"};
}

}  // namespace keyscout::bench
