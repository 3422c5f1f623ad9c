#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "apps/cli/check/checked_directory.h"
#include "shared/data_format/catalog_table_entry.h"

namespace keyscout {

/// A line of the index and where it stands.
struct IndexedTable {
  CatalogTableEntry entry;
  std::uint64_t line = 0;
  /// The file that a lookup opens for it.
  std::string fileName;
};

/// Reads and checks the index by itself; the tables that it names, in its order.
std::vector<IndexedTable> checkIndex(const CheckedDirectory& directory);

}  // namespace keyscout
