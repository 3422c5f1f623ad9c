#include "shared/list_admission.h"

namespace keyscout {

bool authorizeAll(const std::shared_ptr<BrandCollection>& brands) {
  return !brands || brands->count() == 0;
}

bool isAuthorizedBrand(const keyscoutModule& module, StringView brand) noexcept {
  try {
    // A reference of its own, by which the list stays.
    const auto brands = module.authorizedBrands;
    return authorizeAll(brands) || brands->item(brand) != nullptr;
  } catch (...) {
    return false;
  }
}

}  // namespace keyscout
