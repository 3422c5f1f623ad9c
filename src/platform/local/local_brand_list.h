#pragma once

#include <memory>
#include <vector>

#include "base/keyed_collection.h"
#include "platform/brand_list.h"

namespace keyscout {

/// A list of authorized brands for hosts without the sibling object library; it is its own
/// keyed-collection view.
class LocalBrandList final : public BrandCollection,
                             public BrandList,
                             public std::enable_shared_from_this<LocalBrandList> {
 public:
  /// Both fail with key already present (457) where the list holds `brand`, in any letter case.
  void add(StringView brand);
  /// Puts something that is no brand item under `brand`: the brand counts, but is not authorized.
  void addPlain(StringView brand);

  std::size_t count() const override { return items_.count(); }
  std::shared_ptr<const BrandItem> item(StringView brand) const override;
  std::shared_ptr<BrandCollection> keyedCollection() override { return shared_from_this(); }

  /// The brands in the order in which they were added.
  std::vector<String> keys() const;

 private:
  KeyedCollection<std::shared_ptr<const BrandItem>> items_;
};

}  // namespace keyscout
