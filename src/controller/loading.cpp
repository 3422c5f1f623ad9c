#include <algorithm>
#include <span>

#include "controller/keyscout_controller.h"
#include "shared/data_format/brand_line.h"
#include "shared/data_format/directory_files.h"
#include "shared/data_format/index_line.h"
#include "shared/data_format/line_digest.h"

namespace keyscout {
namespace {

// A brand file that cannot be read on fails the same way at every try; the load then goes on
// without the rest of it.
constexpr int maxFailuresInARow = 100;

/// True when every table begins no higher than it ends and ends no lower than the one before it.
bool isInOrder(std::span<const CatalogTableEntry> tables) {
  const auto isRange = [](const CatalogTableEntry& table) {
    return table.firstCatalog <= table.lastCatalog;
  };
  return std::ranges::all_of(tables, isRange) &&
         std::ranges::is_sorted(tables, {}, &CatalogTableEntry::lastCatalog);
}

}  // namespace

void RWKeyscoutController::initialize() {
  static constexpr Procedure procedure = controllerProcedure(u"initialize");
  handlingFailure(
      [&] {
        tracer_.enter(procedure);
        module_->brandLookup.emplace();
        loadIndex();
        loadBrands();
        setIsInitialized(True);
        if (module_->brandLookup->count() == 0) {
          tracer_.exit(procedure);
        } else {
          ignoringFailure([&] { tracer_.exit(procedure); });
        }
      },
      [&](const Error& error) { tracer_.report(procedure, error); });
}

void RWKeyscoutController::loadIndex() {
  module_->catalogTableCount = 0;
  module_->catalogIndexDigest.reset();
  module_->isCatalogIndexInOrder = false;
  const auto file = platform_.files.open(pathInDirectory(KeyscoutIndexFile()));
  module_->catalogTableIndex.resize(keyscoutModule::catalogTableCapacity);
  LineDigest digest;
  String line;
  while (!file->atEnd()) {
    const std::string_view bytes = file->readLine();
    digest.add(bytes);
    platform_.codePage.decode(bytes, line);
    if (trimmed(line).empty()) continue;
    if (module_->catalogTableCount >= keyscoutModule::catalogTableCapacity)
      throw platformFailure(PlatformError::subscriptOutOfRange, controllerClass);
    module_->catalogTableIndex[static_cast<std::size_t>(module_->catalogTableCount)] =
        parseIndexLine(line);
    ++module_->catalogTableCount;
  }
  module_->catalogIndexDigest = digest.value();
  module_->isCatalogIndexInOrder = isInOrder(std::span{module_->catalogTableIndex}.first(
      static_cast<std::size_t>(module_->catalogTableCount)));
}

void RWKeyscoutController::loadBrands() {
  const auto file = platform_.files.open(pathInDirectory(DirectoryFiles::brands));
  // From the first brand on nothing stops the load any more: a line that cannot be read or whose
  // key is taken adds nothing.
  bool brandSeen = false;
  int failuresInARow = 0;
  String line;
  while (!file->atEnd() && failuresInARow < maxFailuresInARow) {
    try {
      platform_.codePage.decode(file->readLine(), line);
    } catch (...) {
      if (!brandSeen) throw;
      ++failuresInARow;
      continue;
    }
    failuresInARow = 0;
    if (trimmed(line).empty()) continue;
    brandSeen = true;
    ignoringFailure([&] {
      const BrandLine<char16_t> brand{line};
      module_->brandLookup->add(String{brand.text()}, brand.code());
    });
  }
}

}  // namespace keyscout
