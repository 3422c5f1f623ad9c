#include "lookup/admitted_brands.h"

#include "shared/list_admission.h"

namespace keyscout {

bool AdmittedBrands::areAll() const {
  const auto authorized = module_.authorizedBrands;
  return filter_.empty() && authorizeAll(authorized);
}

bool AdmittedBrands::include(const String& brand) {
  if (!filter_.empty() && brand != filter_) return false;
  const auto known = answers_.find(brand);
  if (known != answers_.end()) return known->second;
  return answers_.emplace(brand, isAuthorizedBrand(module_, brand)).first->second;
}

}  // namespace keyscout
