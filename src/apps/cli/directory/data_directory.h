#pragma once

#include <filesystem>
#include <string>

#include "base/utf8.h"
#include "shared/data_format/directory_files.h"

namespace keyscout {

/// Where a catalog lies and under which names a host looks for the two files that it may name as
/// it likes.
struct DataDirectory {
  std::filesystem::path path;
  std::string indexFile = toUtf8(DirectoryFiles::usualIndex);
  /// Empty where it has yet to be found.
  std::string downloadFile = {};
};

/// `directory` with its download named: the newest file in it that begins with a download's header.
/// Where there is none it is one that may not be read, so that it is refused for that; where there
/// is no such file either its name stays empty. Fails with `std::filesystem::filesystem_error`
/// where the directory cannot be read.
DataDirectory withDownloadFound(DataDirectory directory);

}  // namespace keyscout
