#pragma once

#include <filesystem>
#include <vector>

namespace keyscout {

/// The files of a directory that may be its download, by name.
struct Downloads {
  /// Those that begin as the downloads of all formats do, the newest first, which is the one that
  /// counts. One of another format is among them, so that it is refused for that and not for being
  /// missing.
  std::vector<std::filesystem::path> found;
  /// Those that may not be read.
  std::vector<std::filesystem::path> unreadable;
};

/// Fails with `std::filesystem::filesystem_error` where `directory` cannot be read.
Downloads downloadsIn(const std::filesystem::path& directory);

}  // namespace keyscout
