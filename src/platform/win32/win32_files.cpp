#include "platform/win32/win32_files.h"

#include <algorithm>

#include "base/error.h"
#include "platform/win32/wide.h"

namespace keyscout {
namespace {

std::wstring nativePath(StringView path) {
  if (!Files::isName(path)) throw platformFailure(PlatformError::fileAccess, u"Files");
  return toWide(path);
}

bool isDirectory(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool isInDirectory(const std::wstring& path) {
  const auto separator = path.find_last_of(L"\\/");
  return separator == path.npos || isDirectory(path.substr(0, separator + 1));
}

Error fileFailure(DWORD code, const std::wstring& path) {
  const auto number = [&] {
    switch (code) {
      // The system has several reasons for a name that leads nowhere, and draws its own line
      // between file and path.
      case ERROR_FILE_NOT_FOUND:
      case ERROR_PATH_NOT_FOUND:
      case ERROR_INVALID_NAME:
      case ERROR_INVALID_DRIVE:
      case ERROR_BAD_NETPATH:
      case ERROR_BAD_NET_NAME:
        return isInDirectory(path) ? PlatformError::fileNotFound : PlatformError::pathNotFound;
      case ERROR_ACCESS_DENIED:
      case ERROR_SHARING_VIOLATION:
        // It says so of a directory too, which nobody could be allowed to read as a file.
        return isDirectory(path) ? PlatformError::fileAccess : PlatformError::permissionDenied;
      case ERROR_NOT_ENOUGH_MEMORY:
      case ERROR_OUTOFMEMORY: return PlatformError::outOfMemory;
      default: return PlatformError::fileAccess;
    }
  };
  return platformFailure(number(), u"Files");
}

struct HandleCloser {
  void operator()(HANDLE handle) const {
    if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
  }
};
using FileHandle = std::unique_ptr<void, HandleCloser>;

// The download process may write or replace the file meanwhile; nothing here must stop it.
FileHandle openRegularFile(const std::wstring& path, DWORD access) {
  FileHandle file{CreateFileW(path.c_str(), access,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)};
  if (file.get() == INVALID_HANDLE_VALUE) throw fileFailure(GetLastError(), path);
  if (GetFileType(file.get()) != FILE_TYPE_DISK)
    throw platformFailure(PlatformError::fileAccess, u"Files");
  return file;
}

class Win32File final : public RandomAccessFile {
 public:
  explicit Win32File(const std::wstring& path) : handle_(openRegularFile(path, GENERIC_READ)) {
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(handle_.get(), &size))
      throw platformFailure(PlatformError::fileAccess, u"Files");
    size_ = static_cast<std::uint64_t>(size.QuadPart);
  }

  std::optional<std::uint64_t> size() const override { return size_; }

  std::size_t readAt(std::uint64_t offset, char* to, std::size_t room) override {
    constexpr std::size_t maxBlock = 1u << 30;
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    DWORD count = 0;
    if (!ReadFile(handle_.get(), to, static_cast<DWORD>(std::min(room, maxBlock)), &count,
                  &place) &&
        GetLastError() != ERROR_HANDLE_EOF)
      throw platformFailure(PlatformError::fileAccess, u"Files");
    return count;
  }

 private:
  FileHandle handle_;
  std::uint64_t size_ = 0;
};

}  // namespace

std::unique_ptr<RandomAccessFile> Win32Files::openAtOffsets(StringView path) {
  return std::make_unique<Win32File>(nativePath(path));
}

bool Win32Files::exists(StringView path) {
  if (!isName(path)) return false;
  const DWORD attributes = GetFileAttributesW(toWide(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::chrono::sys_seconds Win32Files::lastModified(StringView path) {
  return std::chrono::floor<std::chrono::seconds>(stamp(path).lastModified);
}

FileStamp Win32Files::stamp(StringView path) {
  const FileHandle file = openRegularFile(nativePath(path), FILE_READ_ATTRIBUTES);
  BY_HANDLE_FILE_INFORMATION data{};
  if (!GetFileInformationByHandle(file.get(), &data))
    throw platformFailure(PlatformError::fileAccess, u"Files");
  const auto joined = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
  // Windows counts units of 100 ns from the year 1601.
  using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
  constexpr std::chrono::seconds from1601To1970{11'644'473'600};
  const Ticks since1601{static_cast<std::int64_t>(
      joined(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime))};
  return {joined(data.nFileSizeHigh, data.nFileSizeLow),
          FileStamp::Time{since1601 - from1601To1970}};
}

}  // namespace keyscout
