#pragma once

#include <cstdint>
#include <utility>

#include "base/text.h"

namespace keyscout {

/// One catalog entry of the drop-down list.
class RWKeyscoutCatalogData {
 public:
  RWKeyscoutCatalogData() = default;
  RWKeyscoutCatalogData(String catalogNumber, String catalogBrand, std::int32_t catalogIndex)
      : catalogNumber_(std::move(catalogNumber)),
        catalogBrand_(std::move(catalogBrand)),
        catalogIndex_(catalogIndex) {}

  const String& CatalogNumber() const { return catalogNumber_; }
  void setCatalogNumber(StringView strCatalogNumber) { catalogNumber_ = strCatalogNumber; }
  const String& CatalogBrand() const { return catalogBrand_; }
  void setCatalogBrand(StringView strCatalogBrand) { catalogBrand_ = strCatalogBrand; }
  std::int32_t CatalogIndex() const { return catalogIndex_; }
  void setCatalogIndex(std::int32_t lngCatalogIndex) { catalogIndex_ = lngCatalogIndex; }

 private:
  String catalogNumber_;
  String catalogBrand_;
  std::int32_t catalogIndex_ = 0;
};

}  // namespace keyscout
