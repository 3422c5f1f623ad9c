#include "apps/cli/arguments/suggestion.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace keyscout {
namespace {

/// How many slips lead from one word to the other. Only the last three rows of the usual table of
/// distances between beginnings are kept.
std::size_t slips(const std::string& from, const std::string& to) {
  std::vector<std::size_t> beforeLast(to.size() + 1);
  std::vector<std::size_t> last(to.size() + 1);
  for (std::size_t i = 0; i <= to.size(); ++i) last[i] = i;
  for (std::size_t i = 1; i <= from.size(); ++i) {
    std::vector<std::size_t> row(to.size() + 1, i);
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t changed = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
      row[j] = std::min({changed, last[j] + 1, row[j - 1] + 1});
      const bool changedPlaces =
          i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
      if (changedPlaces) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
    beforeLast = std::exchange(last, std::move(row));
  }
  return last[to.size()];
}

}  // namespace

std::string likelyMeant(const std::string& typed, const std::vector<std::string>& words) {
  std::string meant;
  // A word of which hardly anything was typed right was not meant.
  std::size_t fewest = std::min<std::size_t>(3, (typed.size() + 1) / 2);
  for (const std::string& word : words) {
    const std::size_t count = slips(typed, word);
    if (count >= fewest) continue;
    fewest = count;
    meant = word;
  }
  return meant;
}

}  // namespace keyscout
