#include "apps/cli/packing/staging_folder.h"

#include <system_error>
#include <vector>

#include "apps/cli/packing/directory_files.h"

namespace keyscout {

StagingFolder::StagingFolder(const std::filesystem::path& directory)
    : directory_(directory), root_(directory / stagingFolder) {
  std::filesystem::remove_all(root_);
  std::filesystem::create_directories(catalog());
  std::filesystem::create_directories(scratch());
}

StagingFolder::~StagingFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(root_, ignored);
}

void StagingFolder::install() const {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(catalog()))
    files.push_back(entry.path());
  for (const auto& file : files) std::filesystem::rename(file, directory_ / file.filename());
}

}  // namespace keyscout
