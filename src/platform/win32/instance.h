#pragma once

#include <windows.h>

namespace keyscout {

/// The program or library that this code is part of.
HINSTANCE thisInstance();

}  // namespace keyscout
