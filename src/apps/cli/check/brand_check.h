#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "apps/cli/check/checked_directory.h"

namespace keyscout {

/// The brand file, and the brands of the tables held against it.
class BrandCheck {
 public:
  explicit BrandCheck(const CheckedDirectory& directory) : directory_(directory) {}

  /// Reads and checks the brand file.
  void readFile();

  /// Checks a brand that stands on a line of a table; a brand is reported once for each table.
  void check(std::string_view brand, const std::string& file, std::uint64_t line);
  void beginTable();

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>{}(text);
    }
  };

  void checkLine(std::string_view bytes, std::uint64_t line);
  void compare(std::string_view brand, const std::string& file, std::uint64_t line);

  const CheckedDirectory& directory_;
  struct Known {
    String spelling;
    std::uint64_t line;
  };
  std::unordered_map<String, Known> known_;  // by upper-case form
  bool isComplete_ = false;
  // Most lines name a brand that was looked at already.
  std::unordered_set<std::string, Hash, std::equal_to<>> settled_;
  std::string latest_;
};

}  // namespace keyscout
