#include "apps/cli/packing/staging_folder.h"

#include <system_error>
#include <utility>

namespace keyscout {

StagingFolder::StagingFolder(std::filesystem::path root) : root_(std::move(root)) {
  std::filesystem::remove_all(root_);
  std::filesystem::create_directories(catalog());
  std::filesystem::create_directories(scratch());
}

StagingFolder::~StagingFolder() {
  std::error_code ignored;
  if (!isKept_) std::filesystem::remove_all(root_, ignored);
}

}  // namespace keyscout
