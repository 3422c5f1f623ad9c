#pragma once

#include "shared/error_codes.h"
#include "shared/tracer.h"

namespace keyscout {

inline constexpr StringView controllerClass = u"RWKeyscoutController";

/// An operation of the controller as the trace names it.
constexpr Procedure controllerProcedure(StringView name) {
  return {controllerClass, name, name, 1};
}

/// A refusal: one of the controller's own numbers with a sentence for the user.
inline Error refusal(KeyscoutErrorCodes code, StringView description) {
  return Error{static_cast<std::int32_t>(code), controllerClass, description};
}

}  // namespace keyscout
