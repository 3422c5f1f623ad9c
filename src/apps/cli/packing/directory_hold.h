#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "apps/cli/files/file_lock.h"

namespace keyscout {

/// A directory that belongs to one pack as long as the object lives. It is made where there is
/// none, and gone again where nothing was put into it.
class DirectoryHold {
 public:
  /// Fails with `PackError`, exit status `busy`, where another pack is at work there.
  explicit DirectoryHold(const std::filesystem::path& directory);
  ~DirectoryHold();
  DirectoryHold(const DirectoryHold&) = delete;
  DirectoryHold& operator=(const DirectoryHold&) = delete;

  /// True while a pack is at work in `directory`.
  static bool isHeld(const std::filesystem::path& directory);

 private:
  std::vector<std::filesystem::path> made_;  // the innermost first
  std::optional<FileLock> lock_;
};

}  // namespace keyscout
