#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "lookup/admitted_brands.h"
#include "lookup/lookup_client.h"
#include "lookup/lookup_fields.h"
#include "platform/platform.h"
#include "shared/data_format/catalog_line.h"
#include "shared/keyscout_module.h"
#include "shared/tracer.h"

namespace keyscout {

/// Keeps a control's list in step with what is typed into its text box. Every failure of a lookup
/// ends here: lookups lock on the whole thread, the user is asked whether to update, and nothing
/// reaches the caller.
class LookupEngine {
 public:
  /// Both must outlive the engine.
  LookupEngine(Platform& platform, LookupClient& client);

  /// Makes the list show up to 9 admitted catalog numbers from the first one at or above `text` on,
  /// keeping those that still fit a text that has grown. An empty `brand` filters nothing. `text`
  /// is upper-cased in place when a table is searched for it.
  void keyInKeyscout(String& text, const String& brand);

  /// Appends the 9 admitted catalog numbers that follow `catalogNumber`, the list's last one.
  void scrollDownKeyscoutWithBrand(const String& catalogNumber, const String& brand);

  const LookupFields& fields() const { return fields_; }
  void clearEndOfCatalogReached() { fields_.endOfCatalogReached = False; }

 private:
  // match_text.cpp
  void matchText(String& text, const String& brand);
  void extendList(const String& catalogNumber, const String& brand);
  void dropEntriesBefore(const String& text);
  void emptyList();
  bool isUnknownBrand(const String& brand) const noexcept;
  void closeUnloadedList();
  void respondToFailure() noexcept;
  void askForUpdate();

  // find_table.cpp
  std::int16_t findTableNumber(String& key) noexcept;
  std::int16_t searchIndex(const String& key);

  // load_table.cpp
  void loadKeyscoutCombo(const String& key, std::int16_t maxCount, const String& brandFilter);
  bool fillList(const String& key, std::int16_t maxCount, const String& brandFilter);
  std::unique_ptr<RandomAccessFile> openNextTable(const String& path);
  void markEndOfCatalog();
  String tablePath(StringView designation) const;
  void offer(std::string_view line, AdmittedBrands& brands);

  Platform& platform_;
  LookupClient& client_;
  SharedState module_;
  Tracer tracer_;
  LookupFields fields_;
  // Kept between tables, so that reading one costs no memory of its own.
  SequentialFile::Buffer tableBuffer_;
  // Kept between lines so that a line that is offered costs no memory of its own.
  String offeredNumber_;
  String offeredBrand_;
};

}  // namespace keyscout
