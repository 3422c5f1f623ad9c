#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "base/boolean.h"
#include "base/error.h"
#include "base/keyed_collection.h"
#include "platform/brand_list.h"
#include "platform/object_library.h"
#include "shared/data_format/catalog_table_entry.h"

namespace keyscout {

/// The state that the controller fills and every control reads: one for each thread that uses the
/// component, zeroed at its first use there, alive until the thread ends.
struct keyscoutModule {
  /// Subscripts of the catalog index run from 0 to 1000.
  static constexpr std::int16_t catalogTableCapacity = 1001;

  /// The calling thread's own state. Fails with object not set (91) once the thread has given it
  /// up, as the main thread has when destructors of static objects run.
  static keyscoutModule& ofThisThread();

  /// Brands that a control may be asked to look up; absent until the first load.
  std::optional<KeyedCollection<String>> brandLookup;
  /// Brands whose numbers may enter a list; shared with the host, absent until it sets them.
  std::shared_ptr<BrandCollection> authorizedBrands;

  String updateURL;
  String updateURLFile;
  String updaterExe;

  /// Room for all records from the first load on; those at and beyond the count are what an
  /// earlier load left there, or empty.
  std::vector<CatalogTableEntry> catalogTableIndex;
  std::int16_t catalogTableCount = 0;
  /// The `LineDigest` of the index file, absent unless all of it was loaded: all that is kept of
  /// what spares reading tables by brand.
  std::optional<std::uint64_t> catalogIndexDigest;
  /// All of the index file was loaded, and its ranges ascend as they should.
  bool isCatalogIndexInOrder = false;

  String KeyscoutDirectory;  // ends in a backslash
  String KeyscoutIndexFile;
  String CatalogNumbersDownloadFile;

  Boolean isInitialized;
  Boolean hasdataIntegrity;
  Boolean isKeyscoutAuthenticated;
  Boolean KeyscoutEnabled;
  Boolean KeyscoutLocked;

  /// -1 asks the next search of a control to start at the first table.
  std::int16_t lastTableNumber = 0;

  std::shared_ptr<TraceService> traceService;
  std::shared_ptr<MessageTitleSource> messageTitleSource;

  std::int16_t getTableCount() const { return catalogTableCount; }

  // The index's fields at subscript i, trimmed; an i outside 0 to 1000 fails with subscript out of
  // range (9). The views are valid until the next load.
  StringView getTableNumber(std::int16_t i) const {
    return field(i, &CatalogTableEntry::tableNumber);
  }
  StringView getFirstCatalog(std::int16_t i) const {
    return field(i, &CatalogTableEntry::firstCatalog);
  }
  StringView getLastCatalog(std::int16_t i) const {
    return field(i, &CatalogTableEntry::lastCatalog);
  }

 private:
  // In sight of the compiler, since a search asks for hundreds of them.
  StringView field(std::int16_t i, String CatalogTableEntry::*member) const {
    if (i < 0 || i >= catalogTableCapacity)
      throw platformFailure(PlatformError::subscriptOutOfRange, u"keyscoutModule");
    const auto subscript = static_cast<std::size_t>(i);
    if (subscript >= catalogTableIndex.size()) return {};
    return trimmed(catalogTableIndex[subscript].*member);
  }
};

/// The calling thread's state as a member of an object, which may outlive it: it is looked for at
/// each use, and one that is gone is an error instead of a reference to nothing.
class SharedState {
 public:
  keyscoutModule& operator*() const { return keyscoutModule::ofThisThread(); }
  keyscoutModule* operator->() const { return &keyscoutModule::ofThisThread(); }
};

}  // namespace keyscout
