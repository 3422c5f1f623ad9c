#include "apps/cli/files/durable_files.h"

#include <windows.h>

#include <memory>
#include <system_error>

namespace keyscout {
namespace {

// A table is open for as long as a lookup reads it, which is no time at all.
constexpr int attempts = 100;
constexpr DWORD pause = 20;  // milliseconds

std::filesystem::filesystem_error systemFailure(const std::filesystem::path& file) {
  const auto reason = static_cast<int>(GetLastError());
  return {"", file, std::error_code{reason, std::system_category()}};
}

bool isInUse(DWORD reason) {
  return reason == ERROR_ACCESS_DENIED || reason == ERROR_SHARING_VIOLATION;
}

}  // namespace

void syncFile(const std::filesystem::path& file) {
  struct Closer {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
  };
  const HANDLE opened =
      CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (opened == INVALID_HANDLE_VALUE) throw systemFailure(file);
  const std::unique_ptr<void, Closer> closed{opened};
  if (!FlushFileBuffers(opened)) throw systemFailure(file);
}

// The system keeps its directories by a journal, in the order of the changes.
void syncDirectory(const std::filesystem::path&) {}

void replaceFile(const std::filesystem::path& file, const std::filesystem::path& place) {
  for (int attempt = 1; !MoveFileExW(file.c_str(), place.c_str(),
                                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
       ++attempt) {
    if (attempt == attempts || !isInUse(GetLastError())) throw systemFailure(place);
    Sleep(pause);
  }
}

}  // namespace keyscout
