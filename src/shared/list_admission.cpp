#include "shared/list_admission.h"

namespace keyscout {

bool isAuthorizedBrand(const keyscoutModule& module, StringView brand) noexcept {
  try {
    // A reference of its own: the host may set another list while this one asks it.
    const auto brands = module.authorizedBrands;
    return !brands || brands->count() == 0 || brands->item(brand) != nullptr;
  } catch (...) {
    return false;
  }
}

}  // namespace keyscout
