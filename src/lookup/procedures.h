#pragma once

#include "shared/tracer.h"

namespace keyscout {

/// An operation of the lookup engine as the trace names it: under the control that it belongs to.
constexpr Procedure lookupProcedure(StringView name, std::int32_t traceLevel = 0) {
  return {u"keyscoutControl", name, name, traceLevel};
}

}  // namespace keyscout
