#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "apps/cli/sorting/external_sorter.h"
#include "apps/cli/sorting/number_order.h"

namespace keyscout {

/// Finds which of many numbers have stood before, if only in other letters: a list shows one of
/// them. They are sorted on the disk; memory holds a bit for each.
class FirstNumbers {
 public:
  /// Sorts in `folder`.
  explicit FirstNumbers(const std::filesystem::path& folder);

  /// Takes the next number, in the bytes of the catalog's code page.
  void add(std::string_view number);
  /// For each number added, in that order, whether it stood before. Ends the adding.
  std::vector<bool> repeated();

 private:
  const NumberOrder order_;
  ExternalSorter byFoldedForm_;
  std::uint64_t count_ = 0;
  std::string key_;
  std::string payload_;
};

}  // namespace keyscout
