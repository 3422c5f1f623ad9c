#pragma once

#include "base/error.h"
#include "shared/error_codes.h"
#include "shared/procedure.h"

namespace keyscout {

/// One of the controller's own numbers with a sentence for the user.
inline Error refusal(KeyscoutErrorCodes code, StringView description) {
  return Error{static_cast<std::int32_t>(code), controllerClass, description};
}

}  // namespace keyscout
