#include "platform/posix/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>

#include "base/error.h"
#include "base/utf8.h"

namespace keyscout {
namespace {

std::string nativePath(StringView path) {
  if (!Files::isName(path)) throw platformFailure(PlatformError::fileAccess, u"Files");
  std::string native = toUtf8(path);
  std::ranges::replace(native, '\\', '/');
  return native;
}

bool isInDirectory(const std::string& path) {
  const auto slash = path.find_last_of('/');
  if (slash == path.npos) return true;
  struct stat status {};
  return ::stat(path.substr(0, slash + 1).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

Error fileFailure(int code, const std::string& path) {
  const auto number = [&] {
    switch (code) {
      case ENOENT:
      case ENOTDIR:
        return isInDirectory(path) ? PlatformError::fileNotFound : PlatformError::pathNotFound;
      case EACCES:
      case EPERM: return PlatformError::permissionDenied;
      case ENOMEM: return PlatformError::outOfMemory;
      default: return PlatformError::fileAccess;
    }
  };
  return platformFailure(number(), u"Files");
}

class PosixFile final : public RandomAccessFile {
 public:
  explicit PosixFile(const std::string& path)
      // Opening anything but a regular file must not wait for somebody to write to it.
      : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (descriptor_ < 0) throw fileFailure(errno, path);
    struct stat status {};
    const bool isFile = ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
    size_ = static_cast<std::uint64_t>(status.st_size);
    if (isFile) return;
    ::close(descriptor_);
    throw platformFailure(PlatformError::fileAccess, u"Files");
  }
  ~PosixFile() override { ::close(descriptor_); }

  std::optional<std::uint64_t> size() const override { return size_; }

  std::size_t readAt(std::uint64_t offset, char* to, std::size_t room) override {
    for (;;) {
      const ssize_t count = ::pread(descriptor_, to, room, static_cast<off_t>(offset));
      if (count >= 0) return static_cast<std::size_t>(count);
      if (errno != EINTR) throw platformFailure(PlatformError::fileAccess, u"Files");
    }
  }

 private:
  int descriptor_;
  std::uint64_t size_ = 0;
};

}  // namespace

std::unique_ptr<RandomAccessFile> PosixFiles::openAtOffsets(StringView path) {
  return std::make_unique<PosixFile>(nativePath(path));
}

bool PosixFiles::exists(StringView path) {
  struct stat status {};
  return isName(path) && ::stat(nativePath(path).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

std::chrono::sys_seconds PosixFiles::lastModified(StringView path) {
  return std::chrono::floor<std::chrono::seconds>(stamp(path).lastModified);
}

FileStamp PosixFiles::stamp(StringView path) {
  const std::string native = nativePath(path);
  struct stat status {};
  if (::stat(native.c_str(), &status) != 0) throw fileFailure(errno, native);
  if (!S_ISREG(status.st_mode)) throw platformFailure(PlatformError::fileAccess, u"Files");
  return {static_cast<std::uint64_t>(status.st_size),
          FileStamp::Time{std::chrono::seconds{status.st_mtim.tv_sec} +
                          std::chrono::nanoseconds{status.st_mtim.tv_nsec}}};
}

}  // namespace keyscout
