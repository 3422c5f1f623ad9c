#include "shared/data_format/index_line.h"

namespace keyscout {

CatalogTableEntry parseIndexLine(StringView line) {
  const auto field = [&](std::size_t first, std::size_t width) {
    return String{trimmed(columns(line, first, width))};
  };
  CatalogTableEntry entry;
  entry.tableNumber = field(1, 10);
  entry.firstIndex = field(11, 10);
  entry.firstCatalog = field(21, 60);
  entry.firstBrand = field(81, 50);
  entry.lastIndex = field(131, 10);
  entry.lastCatalog = field(141, 60);
  entry.lastBrand = trimmed(lastColumns(line, 50));
  return entry;
}

}  // namespace keyscout
