#include "platform/local/local_brand_list.h"

namespace keyscout {

void LocalBrandList::add(StringView brand) { items_.add(std::make_shared<BrandItem>(), brand); }

void LocalBrandList::addPlain(StringView brand) { items_.add(nullptr, brand); }

std::shared_ptr<const BrandItem> LocalBrandList::item(StringView brand) const {
  auto item = items_.item(brand);
  if (!item) throw platformFailure(PlatformError::typeMismatch, u"BrandList");
  return item;
}

std::vector<String> LocalBrandList::keys() const {
  std::vector<String> keys;
  for (const auto& entry : items_) keys.push_back(*entry.key);
  return keys;
}

}  // namespace keyscout
