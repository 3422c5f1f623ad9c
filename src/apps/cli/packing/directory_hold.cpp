#include "apps/cli/packing/directory_hold.h"

#include <system_error>

#include "apps/cli/packing/directory_files.h"
#include "apps/cli/packing/pack_error.h"

namespace keyscout {
namespace {

std::vector<std::filesystem::path> missingFoldersOf(const std::filesystem::path& directory) {
  std::vector<std::filesystem::path> missing;
  auto folder = std::filesystem::absolute(directory).lexically_normal();
  if (!folder.has_filename()) folder = folder.parent_path();
  std::error_code unknown;
  for (; folder.has_relative_path() && !std::filesystem::exists(folder, unknown);
       folder = folder.parent_path())
    missing.push_back(folder);
  return missing;
}

}  // namespace

DirectoryHold::DirectoryHold(const std::filesystem::path& directory)
    : made_(missingFoldersOf(directory)) {
  std::error_code unknown;
  if (std::filesystem::exists(directory, unknown) &&
      !std::filesystem::is_directory(directory, unknown))
    throw PackError(pathText(directory) + " is not a directory.", ExitStatus::unusable);
  std::filesystem::create_directories(directory);
  lock_ = FileLock::take(directory / packLock);
  if (!lock_)
    throw PackError("Another pack is at work in " + pathText(directory) +
                        "; nothing was done. Pack again when it has ended.",
                    ExitStatus::busy);
}

DirectoryHold::~DirectoryHold() {
  lock_.reset();
  std::error_code notEmpty;
  for (const auto& folder : made_)
    if (!std::filesystem::remove(folder, notEmpty)) break;
}

bool DirectoryHold::isHeld(const std::filesystem::path& directory) {
  return FileLock::isTaken(directory / packLock);
}

}  // namespace keyscout
