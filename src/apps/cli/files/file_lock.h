#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <utility>

namespace keyscout {

/// Something that one process at a time may hold, by the name of a file that is there meanwhile.
/// The system gives it back where the process dies, however it does.
class FileLock {
 public:
  /// Takes it without waiting; nothing where another holds it. Fails with
  /// `std::filesystem::filesystem_error` where the file cannot be made.
  static std::optional<FileLock> take(const std::filesystem::path& file);
  /// True while somebody holds it; it is not taken for the question.
  static bool isTaken(const std::filesystem::path& file);

  FileLock(FileLock&& other) noexcept
      : file_(std::move(other.file_)), handle_(std::exchange(other.handle_, none)) {}
  FileLock& operator=(FileLock&& other) noexcept {
    std::swap(file_, other.file_);
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~FileLock();

 private:
  static constexpr std::intptr_t none = -1;

  FileLock(std::filesystem::path file, std::intptr_t handle)
      : file_(std::move(file)), handle_(handle) {}

  std::filesystem::path file_;
  std::intptr_t handle_;  // the system's
};

}  // namespace keyscout
