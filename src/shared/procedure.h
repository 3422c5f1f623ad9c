#pragma once

#include <cstdint>

#include "base/text.h"

namespace keyscout {

// What the public classes are called in traces and as the source of errors.
inline constexpr StringView controlClass = u"keyscoutControl";
inline constexpr StringView controllerClass = u"RWKeyscoutController";

/// How one operation is named in the trace.
struct Procedure {
  StringView className;
  StringView name;         // in the reports of entry and exit
  StringView failureName;  // in the report of a failure
  std::int32_t traceLevel = 0;
};

/// An operation of the control. Some are entered and left under a name with brackets behind it, and
/// fail under one without.
constexpr Procedure controlProcedure(StringView name, StringView failureName) {
  return {controlClass, name, failureName};
}

/// An operation of the control's lookups.
constexpr Procedure lookupProcedure(StringView name, std::int32_t traceLevel = 0) {
  return {controlClass, name, name, traceLevel};
}

/// An operation of the controller.
constexpr Procedure controllerProcedure(StringView name) {
  return {controllerClass, name, name, 1};
}

}  // namespace keyscout
