#pragma once

#include <chrono>
#include <cstdint>
#include <vector>

#include "base/text.h"
#include "lookup/admitted_brands.h"
#include "platform/platform.h"
#include "shared/data_format/brand_index.h"
#include "shared/keyscout_module.h"

namespace keyscout {

/// Tells a load which of the tables that it goes on to hold no brand that it admits, by the brand
/// index of the data directory. That is trusted only where it was made for the very index that is
/// loaded, is whole, and is younger than the table, which has the size that it had then. Where
/// anything else holds, or anything fails, no table is passed over: that costs time alone.
///
/// Lives as long as the load. The brand index is read when it is first asked for.
class BrandTables {
 public:
  /// All must outlive the object.
  BrandTables(const Platform& platform, const keyscoutModule& module, AdmittedBrands& brands)
      : platform_(platform), module_(module), brands_(brands) {}

  /// True when the table at `position` of the index, in the file `path`, is there and holds no
  /// catalog number of an admitted brand.
  [[nodiscard]] bool admitNothingOf(std::int16_t position, StringView path) noexcept;

 private:
  void readBrandIndex();

  const Platform& platform_;
  const keyscoutModule& module_;
  AdmittedBrands& brands_;
  bool isRead_ = false;
  bool isTrusted_ = false;
  TableSet admitted_;
  std::vector<std::uint64_t> sizes_;
  FileStamp::Time written_{};
};

}  // namespace keyscout
