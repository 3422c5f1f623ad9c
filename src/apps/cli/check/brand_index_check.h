#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "apps/cli/check/checked_directory.h"
#include "apps/cli/check/index_check.h"
#include "shared/data_format/brand_index.h"

namespace keyscout {

/// The brand index, held against the index and the tables. A directory need not have one.
class BrandIndexCheck {
 public:
  explicit BrandIndexCheck(const CheckedDirectory& directory) : directory_(directory) {}

  /// Notes a brand of the table at `position`.
  void note(std::string_view brand, std::size_t position);

  /// Reads the brand index and reports what is wrong with it, when all tables have been noted.
  void check(const std::vector<IndexedTable>& tables) const;

 private:
  using Brands = std::map<std::string, TableSet, std::less<>>;

  void compare(BrandIndexReader& reader, const std::vector<IndexedTable>& tables) const;
  TableSet changedTables(const BrandIndexReader& reader,
                         const std::vector<IndexedTable>& tables) const;
  void warn(std::uint64_t line, const std::string& sentence) const;

  const CheckedDirectory& directory_;
  Brands held_;
  // Most lines have the brand of the line before them.
  std::string latest_;
  TableSet* latestTables_ = nullptr;
};

}  // namespace keyscout
