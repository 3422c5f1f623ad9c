#include "apps/cli/files/file_lock.h"

#include <windows.h>

#include <system_error>

namespace keyscout {
namespace {

bool isInvalid(HANDLE handle) { return handle == INVALID_HANDLE_VALUE; }

}  // namespace

std::optional<FileLock> FileLock::take(const std::filesystem::path& file) {
  // Nobody else may open the file, and it is gone when its holder is.
  const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ | DELETE, 0, nullptr, OPEN_ALWAYS,
                                    FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (!isInvalid(handle)) return FileLock{file, reinterpret_cast<std::intptr_t>(handle)};
  const DWORD reason = GetLastError();
  if (reason == ERROR_SHARING_VIOLATION) return std::nullopt;
  throw std::filesystem::filesystem_error{
      "", file, std::error_code{static_cast<int>(reason), std::system_category()}};
}

bool FileLock::isTaken(const std::filesystem::path& file) {
  const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
  if (isInvalid(handle)) return GetLastError() == ERROR_SHARING_VIOLATION;
  CloseHandle(handle);
  return false;
}

FileLock::~FileLock() {
  if (handle_ != none) CloseHandle(reinterpret_cast<HANDLE>(handle_));
}

}  // namespace keyscout
