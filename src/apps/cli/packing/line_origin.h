#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "apps/cli/packing/pack_error.h"

namespace keyscout {

/// Where the lines of a download come from: from the file that a person knows, which is the
/// download itself or the list that it was made of. Lines are counted from 1.
class LineOrigin {
 public:
  explicit LineOrigin(std::filesystem::path file) : file_(std::move(file)) {}

  /// To be called with ascending lines of the download where it was made of another list.
  void add(std::uint64_t line, std::uint64_t originalLine) {
    // Mostly one line is made of one, and only what differs from that is written down.
    const std::uint64_t offset = originalLine - line;
    if (offset != (steps_.empty() ? 0 : steps_.back().second)) steps_.emplace_back(line, offset);
  }

  std::uint64_t lineOf(std::uint64_t line) const {
    const auto behind = std::ranges::upper_bound(steps_, line, {}, &Step::first);
    return line + (behind == steps_.begin() ? 0 : std::prev(behind)->second);
  }

  /// A refusal for what stands on a line of the original.
  PackError refusal(std::uint64_t originalLine, const std::string& sentence) const {
    return {place(originalLine) + ": " + sentence, ExitStatus::negative};
  }
  std::string place(std::uint64_t originalLine) const {
    return pathText(file_) + ':' + std::to_string(originalLine);
  }

 private:
  using Step = std::pair<std::uint64_t, std::uint64_t>;  // from this line on so many more

  std::filesystem::path file_;
  std::vector<Step> steps_;
};

}  // namespace keyscout
