#pragma once

#include <filesystem>

namespace keyscout {

// What outlasts a loss of power, and in which order. All fail with
// `std::filesystem::filesystem_error`.

/// Returns when the bytes of `file` are on the disk.
void syncFile(const std::filesystem::path& file);

/// Returns when it is on the disk which files `directory` holds.
void syncDirectory(const std::filesystem::path& directory);

/// Gives `file` the name `place` in the same file system and takes away what stood there, in one
/// step: a reader finds the old file or the new one, whole. Of a link it takes away the link.
void replaceFile(const std::filesystem::path& file, const std::filesystem::path& place);

}  // namespace keyscout
