#pragma once

#include <filesystem>

namespace keyscout::bench {

// Of a file, or of all files of a directory.

/// Waits until everything stands on the disk. What does not stays in memory whatever is asked.
void writeToDisk(const std::filesystem::path& path);

/// Asks the system to forget what it holds in memory, so that the next reading comes from the disk.
void dropFromMemory(const std::filesystem::path& path);

}  // namespace keyscout::bench
