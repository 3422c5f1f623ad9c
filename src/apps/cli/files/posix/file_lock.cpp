#include "apps/cli/files/file_lock.h"

#include <sys/stat.h>

#include "apps/cli/files/posix/descriptor.h"

namespace keyscout {
namespace {

struct flock wholeFile(short type) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  return lock;
}

/// Whoever held the lock before has removed the file, so that what was opened may be gone.
bool isStillThere(const Descriptor& opened, const std::filesystem::path& file) {
  struct stat ours {};
  struct stat there {};
  return ::fstat(opened.number(), &ours) == 0 && ::stat(file.c_str(), &there) == 0 &&
         ours.st_dev == there.st_dev && ours.st_ino == there.st_ino;
}

}  // namespace

std::optional<FileLock> FileLock::take(const std::filesystem::path& file) {
  for (;;) {
    Descriptor opened{file, O_RDWR | O_CREAT | O_NOFOLLOW};
    if (!opened.isOpen()) throw systemFailure(file);
    // A lock of the open file, not of the process, which would lose it with the first close.
    struct flock lock = wholeFile(F_WRLCK);
    if (::fcntl(opened.number(), F_OFD_SETLK, &lock) != 0) {
      if (errno == EAGAIN || errno == EACCES) return std::nullopt;
      throw systemFailure(file);
    }
    if (isStillThere(opened, file)) return FileLock{file, opened.release()};
  }
}

bool FileLock::isTaken(const std::filesystem::path& file) {
  const Descriptor opened{file, O_RDONLY | O_NOFOLLOW};
  if (!opened.isOpen()) return false;
  struct flock lock = wholeFile(F_RDLCK);
  return ::fcntl(opened.number(), F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

FileLock::~FileLock() {
  if (handle_ == none) return;
  ::unlink(file_.c_str());
  ::close(static_cast<int>(handle_));
}

}  // namespace keyscout
