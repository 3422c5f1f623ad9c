#include "shared/data_format/index_line.h"

namespace keyscout {

CatalogTableEntry parseIndexLine(StringView line) {
  const StringView first = columns(line, IndexColumns::firstEntry);
  const StringView last = columns(line, IndexColumns::lastEntry);
  CatalogTableEntry entry;
  entry.tableNumber = trimmed(columns(line, IndexColumns::tableNumber));
  entry.firstIndex = trimmed(columns(first, RecordColumns::index));
  entry.firstCatalog = trimmed(columns(first, RecordColumns::number));
  entry.firstBrand = trimmed(columns(first, RecordColumns::brand));
  entry.lastIndex = trimmed(columns(last, RecordColumns::index));
  entry.lastCatalog = trimmed(columns(last, RecordColumns::number));
  entry.lastBrand = trimmed(lastColumns(line, RecordColumns::brand.width));
  return entry;
}

}  // namespace keyscout
