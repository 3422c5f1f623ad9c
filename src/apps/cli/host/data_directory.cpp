#include "apps/cli/host/data_directory.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <vector>

#include "apps/cli/files/path_text.h"
#include "shared/data_format/record_columns.h"

namespace keyscout {
namespace {

// A download of another format is found as well, so that it is refused for that and not for being
// missing.
bool beginsWithHeader(const std::filesystem::path& path) {
  std::ifstream file{path, std::ios::binary};
  std::array<char, downloadHeaderStart.size()> start{};
  return file.read(start.data(), start.size()) && std::ranges::equal(start, downloadHeaderStart);
}

}  // namespace

DataDirectory withDownloadFound(DataDirectory directory) {
  if (!directory.downloadFile.empty() || !std::filesystem::is_directory(directory.path))
    return directory;
  std::vector<std::string> found;
  for (const auto& entry : std::filesystem::directory_iterator{directory.path})
    if (entry.is_regular_file() && beginsWithHeader(entry.path()))
      found.push_back(pathText(entry.path().filename()));
  // The order in which a directory is listed is nobody's choice.
  if (!found.empty()) directory.downloadFile = *std::ranges::min_element(found);
  return directory;
}

}  // namespace keyscout
