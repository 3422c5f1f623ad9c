#pragma once

#include "base/text.h"

namespace keyscout {

/// One line of the catalog index: which catalog table file holds which range of catalog numbers.
struct CatalogTableEntry {
  String tableNumber;
  String firstIndex;
  String firstBrand;
  String firstCatalog;
  String lastIndex;
  String lastBrand;
  String lastCatalog;
};

}  // namespace keyscout
