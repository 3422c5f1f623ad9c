#include "apps/cli/host/data_directory.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>
#include <vector>

#include "apps/cli/path_text.h"

namespace keyscout {
namespace {

// The beginning that the headers of all formats have in common: a download of another format is
// found as well, so that it is refused for that and not for being missing.
constexpr std::string_view headerStart = "FORMAT=[";

bool beginsWithHeader(const std::filesystem::path& path) {
  std::ifstream file{path, std::ios::binary};
  std::array<char, headerStart.size()> start{};
  return file.read(start.data(), start.size()) &&
         std::string_view{start.data(), start.size()} == headerStart;
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
