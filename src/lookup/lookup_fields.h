#pragma once

#include <cstdint>

#include "base/boolean.h"
#include "base/keyed_collection.h"
#include "base/text.h"
#include "shared/catalog_data.h"
#include "shared/data_format/directory_files.h"

namespace keyscout {

/// The fields of a control that its lookups work on.
struct LookupFields {
  /// One record for each catalog number in the list, under that number.
  KeyedCollection<RWKeyscoutCatalogData> catalogEntries;
  /// Put behind a table number to name that table's file.
  String tableFileExtension{DirectoryFiles::tableExtension};

  /// Subscript of the table that the list is being filled from, -1 where no table covered the text.
  std::int16_t currentTableIndex = 0;
  /// Where the next search of the index starts: what the last successful one found.
  std::int16_t tableSearchStart = 0;
  /// The text of the last lookup that got past its early exits.
  String lastLookupText;

  /// A table has been loaded into the list.
  Boolean listLoaded;
  /// A load has begun and its file is not open yet; the list is not dropped down meanwhile.
  Boolean tableLoadPending;
  /// A load ran past the end of the last table.
  Boolean endOfCatalogReached;
};

}  // namespace keyscout
