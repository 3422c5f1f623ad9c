#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "apps/cli/check/checked_directory.h"
#include "apps/cli/files/temporary_folder.h"
#include "apps/cli/sorting/external_sorter.h"
#include "apps/cli/sorting/number_order.h"

namespace keyscout {

/// Finds numbers that differ in letter case alone. They may stand in different tables, far apart,
/// and there may be more of them than fit into memory.
///
/// Of two such numbers one has small letters. So the first reading of the tables only notes those
/// that have, each as one bit of a fixed set; a catalog in capitals is done then. A second reading
/// collects what falls on a noted bit, which is little more than the numbers wanted, and sorts it
/// on the disk by the form in which letter case makes no difference.
class CaseCheck {
 public:
  CaseCheck(const CheckedDirectory& directory, const NumberOrder& order);

  bool hasLowerCase(std::string_view number) const {
    for (const char byte : number)
      if (isLowerCase_[static_cast<unsigned char>(byte)]) return true;
    return false;
  }
  /// Notes a number with small letters.
  void note(std::string_view number);
  /// True when a second reading is called for.
  bool hasNotes() const { return !bits_.empty(); }

  /// Takes a number in the second reading.
  void collect(std::string_view number, std::uint32_t table, std::uint64_t line);
  /// Reports what was collected; `fileNames` are those of the tables by their number.
  void report(const std::vector<std::string>& fileNames);

 private:
  std::size_t bitOf(std::string_view number);

  const CheckedDirectory& directory_;
  const NumberOrder& order_;
  std::array<bool, 256> isLowerCase_{};
  std::vector<bool> bits_;
  std::unique_ptr<TemporaryFolder> folder_;
  std::unique_ptr<ExternalSorter> sorter_;
  std::string folded_;
  std::string payload_;
};

}  // namespace keyscout
