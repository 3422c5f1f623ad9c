#include <optional>

#include "base/numbers.h"
#include "lookup/admitted_brands.h"
#include "lookup/brand_tables.h"
#include "lookup/list_limits.h"
#include "lookup/lookup_engine.h"
#include "lookup/table_reader.h"
#include "shared/list_admission.h"

namespace keyscout {

/// Appends the admitted catalog numbers from the first one at or above `key` on, beginning in the
/// table at `currentTableIndex`, until the list has `maxCount` entries. On a failure the entries
/// appended so far stay.
void LookupEngine::loadKeyscoutCombo(const String& key, std::int16_t maxCount,
                                     const String& brandFilter) {
  static constexpr Procedure procedure = lookupProcedure(u"loadKeyscoutCombo");
  tracer_.reportingFailure(procedure, [&] {
    tracer_.enter(procedure);
    const bool filled = fillList(key, maxCount, brandFilter);
    if (filled) tracer_.exit(procedure);
  });
}

/// False when the catalog ended before the list had `maxCount` entries.
bool LookupEngine::fillList(const String& key, std::int16_t maxCount, const String& brandFilter) {
  String path = tablePath(module_->getTableNumber(fields_.currentTableIndex));
  fields_.listLoaded = True;
  std::optional<TableReader> table;
  table.emplace(platform_.files.openAtOffsets(path), platform_.codePage, tableBuffer_);
  fields_.tableLoadPending = False;

  DropDownList& list = client_.list();
  const auto isFull = [&] {
    const std::int16_t count = list.entryCount();
    return count >= maxCount || count >= ListLimits::maxEntries;
  };

  AdmittedBrands brands{*module_, brandFilter};
  BrandTables brandTables{platform_, *module_, brands};
  if (isFull()) return true;
  const TableReader::Range range{module_->getFirstCatalog(fields_.currentTableIndex),
                                 module_->getLastCatalog(fields_.currentTableIndex)};
  if (const auto line = table->readFirstFor(key, range)) offer(*line, brands);

  while (!isFull()) {
    if (!table->atEnd()) {
      offer(table->readLine(), brands);
      fields_.tableLoadPending = False;
      continue;
    }
    table.reset();
    do {
      ++fields_.currentTableIndex;
      if (fields_.currentTableIndex >= module_->getTableCount()) {
        markEndOfCatalog();
        return false;
      }
      // All tables but the first are named by their positions.
      path = tablePath(decimal(fields_.currentTableIndex));
    } while (brandTables.admitNothingOf(fields_.currentTableIndex, path));
    table.emplace(openNextTable(path), platform_.codePage, tableBuffer_);
  }
  return true;
}

std::unique_ptr<RandomAccessFile> LookupEngine::openNextTable(const String& path) {
  if (!platform_.files.exists(path)) {
    tracer_.log(lookupProcedure(u"keyInKeyscout"), u"Missing catalog table: " + path);
    for (int i = 0; i < ListLimits::fillers; ++i) client_.list().append(u"");
    throw platformFailure(PlatformError::fileAccess, controlClass);
  }
  return platform_.files.openAtOffsets(path);
}

/// Fills a short list up with empty entries, so that its drop-down keeps its height.
void LookupEngine::markEndOfCatalog() {
  DropDownList& list = client_.list();
  while (list.entryCount() < ListLimits::fillers) list.append(u"");
  fields_.endOfCatalogReached = True;
}

String LookupEngine::tablePath(StringView designation) const {
  return module_->KeyscoutDirectory + String{designation} + fields_.tableFileExtension;
}

/// Adds the line's catalog number to the list when its brand is admitted and the list does not hold
/// it yet.
void LookupEngine::offer(std::string_view bytes, AdmittedBrands& brands) {
  const CatalogLine line{bytes};
  platform_.codePage.decode(line.brand(), offeredBrand_);
  if (!brands.include(offeredBrand_)) return;
  platform_.codePage.decode(line.catalogNumber(), offeredNumber_);
  if (collectionHasKey(fields_.catalogEntries, offeredNumber_)) return;

  client_.list().append(offeredNumber_);
  fields_.catalogEntries.add(
      RWKeyscoutCatalogData{offeredNumber_, offeredBrand_,
                            parseInt32(platform_.codePage.decode(line.index()))},
      offeredNumber_);
}

}  // namespace keyscout
