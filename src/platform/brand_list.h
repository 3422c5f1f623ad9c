#pragma once

#include <cstddef>
#include <memory>

#include "base/text.h"

namespace keyscout {

/// What a brand list holds for a brand. Nothing is ever asked of it: being there authorizes.
class BrandItem {
 public:
  virtual ~BrandItem() = default;
};

/// The keyed-collection view of the authorized brands. The host owns the contents and may change
/// them at any time.
class BrandCollection {
 public:
  virtual ~BrandCollection() = default;

  virtual std::size_t count() const = 0;

  /// The item under `brand`, in any letter case. Fails with invalid argument (5) where there is
  /// none, with type mismatch (13) where it is not a brand item.
  virtual std::shared_ptr<const BrandItem> item(StringView brand) const = 0;
};

/// The list of authorized brands as a host hands it over.
class BrandList {
 public:
  virtual ~BrandList() = default;

  /// Fails with type mismatch (13) where the object offers no such view.
  virtual std::shared_ptr<BrandCollection> keyedCollection() = 0;
};

}  // namespace keyscout
