#include "apps/cli/directory/data_directory.h"

#include <string>

#include "apps/cli/directory/downloads.h"
#include "apps/cli/files/path_text.h"

namespace keyscout {
namespace {

/// True where the name tells that the file is something else.
bool isAnotherFile(const std::string& name, const DataDirectory& directory) {
  const std::string extension = toUtf8(DirectoryFiles::tableExtension);
  const std::string stem =
      name.ends_with(extension) ? name.substr(0, name.size() - extension.size()) : name;
  return name == directory.indexFile || name == toUtf8(DirectoryFiles::control) ||
         name == toUtf8(DirectoryFiles::brands) ||
         stem.find_first_not_of("0123456789") == stem.npos;
}

}  // namespace

DataDirectory withDownloadFound(DataDirectory directory) {
  if (!directory.downloadFile.empty() || !std::filesystem::is_directory(directory.path))
    return directory;
  const Downloads downloads = downloadsIn(directory.path);
  if (!downloads.found.empty()) {
    directory.downloadFile = pathText(downloads.found.front());
    return directory;
  }
  for (const auto& file : downloads.unreadable)
    if (std::string name = pathText(file); !isAnotherFile(name, directory)) {
      directory.downloadFile = std::move(name);
      break;
    }
  return directory;
}

}  // namespace keyscout
