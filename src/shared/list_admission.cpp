#include "shared/list_admission.h"

namespace keyscout {

bool isAuthorizedBrand(const keyscoutModule& module, StringView brand) noexcept {
  try {
    const auto& brands = module.authorizedBrands;
    return !brands || brands->count() == 0 || brands->item(brand) != nullptr;
  } catch (...) {
    return false;
  }
}

}  // namespace keyscout
