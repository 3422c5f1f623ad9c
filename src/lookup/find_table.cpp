#include <algorithm>
#include <span>

#include "lookup/lookup_engine.h"

namespace keyscout {

std::int16_t LookupEngine::findTableNumber(String& key) noexcept {
  static constexpr Procedure procedure = lookupProcedure(u"findTableNumber", 1);
  return tracer_.traced(
      procedure,
      [&] {
        key = platform_.textRules.upperCase(key);
        return searchIndex(key);
      },
      [&](const Error& error) -> std::int16_t {
        tracer_.report(procedure, error);
        return -1;
      });
}

/// The subscript of the table that covers `key`, -1 where none does. People type on near to where
/// they were, so the search starts where this control's last one ended.
std::int16_t LookupEngine::searchIndex(const String& key) {
  keyscoutModule& module = *module_;
  if (module.lastTableNumber == -1) {
    fields_.tableSearchStart = 0;
    module.lastTableNumber = 0;
  }

  // In an index in order the walk below ends at the first table that ends at or above the key,
  // wherever it starts.
  if (module.isCatalogIndexInOrder && fields_.tableSearchStart < module.getTableCount()) {
    const auto tables =
        std::span{module.catalogTableIndex}.first(static_cast<std::size_t>(module.getTableCount()));
    const auto found = std::ranges::lower_bound(tables, key, {}, &CatalogTableEntry::lastCatalog);
    if (found == tables.end()) return -1;
    fields_.tableSearchStart = static_cast<std::int16_t>(found - tables.begin());
    return fields_.tableSearchStart;
  }

  std::int16_t i = fields_.tableSearchStart;
  const auto isBehindTable = [&] { return key > module.getLastCatalog(i); };
  const auto isBehindWholeTable = [&] {
    return isBehindTable() && key > module.getFirstCatalog(i);
  };

  while (!isBehindWholeTable() && i > 0) --i;
  while (isBehindTable()) {
    ++i;
    if (i == module.getTableCount()) return -1;
  }
  fields_.tableSearchStart = i;
  return i;
}

}  // namespace keyscout
