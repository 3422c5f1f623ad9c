#pragma once

#include "shared/data_format/catalog_table_entry.h"
#include "shared/data_format/record_columns.h"

namespace keyscout {

/// A line of the index file: the table's number, then its first and its last entry as records.
namespace IndexColumns {
inline constexpr Columns tableNumber{1, 10};
inline constexpr Columns firstEntry{tableNumber.end(), RecordColumns::brand.end() - 1};
inline constexpr Columns lastEntry{firstEntry.end(), firstEntry.width};
/// How long a complete line is.
inline constexpr std::size_t lineLength = lastEntry.end() - 1;
}  // namespace IndexColumns

/// The fields of one line of the index file, each trimmed. Columns that a short line lacks are
/// empty, except that the last brand is whatever the end of the line holds, in as many characters
/// as a brand has.
CatalogTableEntry parseIndexLine(StringView line);

}  // namespace keyscout
