#include "platform/win32/win32_files.h"

#include <algorithm>

#include "platform/error.h"
#include "platform/win32/wide.h"

namespace keyscout {
namespace {

Error fileFailure(DWORD code) {
  const auto number = [&] {
    switch (code) {
      case ERROR_FILE_NOT_FOUND: return PlatformError::fileNotFound;
      case ERROR_PATH_NOT_FOUND:
      case ERROR_BAD_NETPATH:
      case ERROR_INVALID_DRIVE: return PlatformError::pathNotFound;
      case ERROR_ACCESS_DENIED:
      case ERROR_SHARING_VIOLATION: return PlatformError::permissionDenied;
      case ERROR_NOT_ENOUGH_MEMORY:
      case ERROR_OUTOFMEMORY: return PlatformError::outOfMemory;
      default: return PlatformError::fileAccess;
    }
  };
  return platformFailure(number(), u"Files");
}

class Win32File final : public SequentialFile {
 public:
  // The download process may write or replace the file meanwhile; reading must not stop it.
  explicit Win32File(const std::wstring& path)
      : handle_(CreateFileW(path.c_str(), GENERIC_READ,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                            OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr)) {
    if (handle_ == INVALID_HANDLE_VALUE) throw fileFailure(GetLastError());
    if (GetFileType(handle_) == FILE_TYPE_DISK) return;
    CloseHandle(handle_);
    throw platformFailure(PlatformError::fileAccess, u"Files");
  }
  ~Win32File() override { CloseHandle(handle_); }

 private:
  std::size_t read(char* to, std::size_t room) override {
    constexpr std::size_t most = 1u << 30;
    DWORD count = 0;
    if (!ReadFile(handle_, to, static_cast<DWORD>(std::min(room, most)), &count, nullptr))
      throw platformFailure(PlatformError::fileAccess, u"Files");
    return count;
  }

  HANDLE handle_;
};

}  // namespace

std::unique_ptr<SequentialFile> Win32Files::open(StringView path) {
  return std::make_unique<Win32File>(toWide(path));
}

bool Win32Files::exists(StringView path) {
  const DWORD attributes = GetFileAttributesW(toWide(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::chrono::sys_seconds Win32Files::lastModified(StringView path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (!GetFileAttributesExW(toWide(path).c_str(), GetFileExInfoStandard, &data))
    throw fileFailure(GetLastError());
  ULARGE_INTEGER ticks{};
  ticks.LowPart = data.ftLastWriteTime.dwLowDateTime;
  ticks.HighPart = data.ftLastWriteTime.dwHighDateTime;
  // Windows counts units of 100 ns from the year 1601.
  constexpr std::int64_t ticksPerSecond = 10'000'000;
  constexpr std::chrono::seconds from1601To1970{11'644'473'600};
  const std::chrono::seconds since1601{static_cast<std::int64_t>(ticks.QuadPart) / ticksPerSecond};
  return std::chrono::sys_seconds{since1601 - from1601To1970};
}

}  // namespace keyscout
