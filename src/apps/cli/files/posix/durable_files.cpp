#include "apps/cli/files/durable_files.h"

#include "apps/cli/files/posix/descriptor.h"

namespace keyscout {
namespace {

void sync(const std::filesystem::path& path, int flags) {
  const Descriptor opened{path, O_RDONLY | flags};
  if (!opened.isOpen()) throw systemFailure(path);
  while (::fsync(opened.number()) != 0)
    if (errno != EINTR) throw systemFailure(path);
}

}  // namespace

void syncFile(const std::filesystem::path& file) { sync(file, 0); }
void syncDirectory(const std::filesystem::path& directory) { sync(directory, O_DIRECTORY); }

void replaceFile(const std::filesystem::path& file, const std::filesystem::path& place) {
  std::filesystem::rename(file, place);
}

}  // namespace keyscout
