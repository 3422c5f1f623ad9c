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
  bool tellOfTextBehind(const String& code);

  /// A brand as it stands in the brand file.
  struct Known {
    String spelling;
    std::uint64_t line;
    bool isToldOf = false;
  };

  const CheckedDirectory& directory_;
  std::unordered_map<String, Known> known_;  // by upper-case form
  // Brands that may be a code with a name behind it, by the upper-case form of that code. Whether
  // they are shows when a table has the code for a brand.
  std::unordered_map<String, Known> withTextBehind_;
  bool isComplete_ = false;
  // Most lines name a brand that was looked at already.
  std::unordered_set<std::string, Hash, std::equal_to<>> settled_;
  std::string latest_;
};

}  // namespace keyscout
