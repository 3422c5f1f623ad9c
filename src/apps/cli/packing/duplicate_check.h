#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "apps/cli/packing/duplicate_list.h"
#include "apps/cli/sorting/external_sorter.h"
#include "apps/cli/sorting/number_order.h"

namespace keyscout {

/// Finds the numbers that a download holds twice, those that differ in letter case alone included:
/// a list shows only one of them.
///
/// Numbers are first collected in the order of the download, then checked in their own order. There
/// equal ones are neighbours, but "abc" and "ABC" may be far apart; so the numbers with a letter
/// that folds to another are sorted once more by their folded form, and that order is followed
/// alongside. A catalog in capitals has none of them, and the second sort costs nothing.
class DuplicateCheck {
 public:
  /// Sorts in `folder` with `memory` bytes. `order` must outlive this.
  DuplicateCheck(const NumberOrder& order, const std::filesystem::path& folder, std::size_t memory);

  void collect(const NumberOnLine& number);

  /// To be called for all numbers in ascending order; what stands twice goes to `found`.
  void check(const NumberOnLine& number, DuplicateList& found);

 private:
  void advanceFolded(DuplicateList& found);

  const NumberOrder& order_;
  ExternalSorter byFoldedForm_;
  const SortRecord* folded_ = nullptr;  // the one to be met next
  bool isFollowing_ = false;
  std::string previousFolded_;
  std::string previousFoldedPayload_;
  std::string previousKey_;
  std::uint64_t previousLine_ = 0;
  std::string foldedKey_;
  std::string payload_;
};

}  // namespace keyscout
