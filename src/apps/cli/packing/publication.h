#pragma once

#include <filesystem>
#include <vector>

#include "apps/cli/packing/staging_folder.h"

namespace keyscout {

/// Puts the staged catalog into `directory` and takes the files `leftOver` of the former one away.
///
/// Until everything is on the disk the directory is as it was. From then on, while old files give
/// way to new ones, the control file says that the catalog is in process, and in the end that it
/// is ready; it is always there and always whole. Where the process dies or the system fails on the
/// way, the catalog stays in process and `finishPublication` has what it takes to go on.
///
/// Fails with `std::runtime_error`.
void publish(StagingFolder& staging, const std::filesystem::path& directory,
             const std::vector<std::filesystem::path>& leftOver);

/// Ends what a pack in `directory` that was killed between in process and ready has begun. Does
/// nothing where there is nothing of that kind.
void finishPublication(const std::filesystem::path& directory);

/// True where a pack has left its catalog in process, and still is at it or was killed; false where
/// nobody may look.
bool isHalfPublished(const std::filesystem::path& directory);

}  // namespace keyscout
