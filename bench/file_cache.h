#pragma once

#include <filesystem>

namespace keyscout::bench {

/// Asks the system to forget what it holds of a file, or of all files of a directory, in memory, so
/// that the next reading comes from the disk.
void dropFromMemory(const std::filesystem::path& path);

}  // namespace keyscout::bench
