#pragma once

#include "platform/platform.h"

namespace keyscout {

/// Windows as the objects of this library use it.
Platform& windowsPlatform();

}  // namespace keyscout
