#pragma once

#include "base/text.h"

namespace keyscout {

/// Throws what the system has just refused a window with: that memory is out (7) or, with the
/// system's number for that, that there is no screen to make windows on.
[[noreturn]] void refuseWindow(StringView source);

}  // namespace keyscout
