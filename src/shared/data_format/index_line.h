#pragma once

#include "shared/data_format/catalog_table_entry.h"

namespace keyscout {

/// The fields of one line of the index file, each trimmed. Columns that a short line lacks are
/// empty, except that the last brand is whatever the line's last 50 characters hold.
CatalogTableEntry parseIndexLine(StringView line);

}  // namespace keyscout
