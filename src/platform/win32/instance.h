#pragma once

#include <windows.h>

#include <string>

namespace keyscout {

/// The program or library that this code is part of.
HINSTANCE thisInstance();

/// The file that `module` was loaded from, however long its path; null for the program.
std::wstring modulePath(HINSTANCE module);

}  // namespace keyscout
