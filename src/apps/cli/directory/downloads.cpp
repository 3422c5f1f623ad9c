#include "apps/cli/directory/downloads.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>
#include <utility>

#include "shared/data_format/record_columns.h"

namespace keyscout {
namespace {

/// What downloads of all formats begin with, also behind a mark that other programs put there.
bool beginsWithHeader(std::ifstream& file) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  std::array<char, mark.size() + downloadHeaderStart.size()> bytes{};
  file.read(bytes.data(), bytes.size());
  std::string_view start{bytes.data(), static_cast<std::size_t>(file.gcount())};
  if (start.starts_with(mark)) start.remove_prefix(mark.size());
  return std::ranges::equal(start.substr(0, downloadHeaderStart.size()), downloadHeaderStart);
}

}  // namespace

Downloads downloadsIn(const std::filesystem::path& directory) {
  using Dated = std::pair<std::filesystem::file_time_type, std::filesystem::path>;
  std::vector<Dated> dated;
  Downloads downloads;
  for (const auto& entry : std::filesystem::directory_iterator{directory}) {
    // A pack in the directory takes files of its own away at any time.
    std::error_code gone;
    if (!entry.is_regular_file(gone)) continue;
    const auto name = entry.path().filename();
    std::ifstream file{entry.path(), std::ios::binary};
    if (!file) {
      if (entry.exists(gone)) downloads.unreadable.push_back(name);
    } else if (beginsWithHeader(file)) {
      dated.emplace_back(std::filesystem::last_write_time(entry.path(), gone), name);
    }
  }
  // The order in which a directory is listed is nobody's choice.
  std::ranges::sort(downloads.unreadable);
  std::ranges::sort(dated, [](const Dated& a, const Dated& b) {
    return a.first != b.first ? a.first > b.first : a.second < b.second;
  });
  for (Dated& download : dated) downloads.found.push_back(std::move(download.second));
  return downloads;
}

}  // namespace keyscout
