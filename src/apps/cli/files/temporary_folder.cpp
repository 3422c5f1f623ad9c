#include "apps/cli/files/temporary_folder.h"

#include <random>
#include <system_error>

namespace keyscout {

TemporaryFolder::TemporaryFolder(const std::string& name) {
  const auto parent = std::filesystem::temp_directory_path();
  std::random_device random;
  // Where the name is taken there is somebody else's folder, which must not be used.
  do path_ = parent / (name + '.' + std::to_string(random()));
  while (!std::filesystem::create_directory(path_));
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace keyscout
