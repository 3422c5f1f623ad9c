#pragma once

#include "shared/tracer.h"

namespace keyscout {

/// An operation of the control as the trace names it.
constexpr Procedure controlProcedure(StringView name, StringView failureName) {
  return {u"keyscoutControl", name, failureName};
}

}  // namespace keyscout
