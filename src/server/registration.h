#pragma once

#include <windows.h>

namespace keyscout {

// What makes hosts find the classes of this library. All of it is written for the whole machine, or
// for the user alone where the caller may not write the machine's part of the registry.

/// Fails with the registry's error and then leaves nothing behind.
HRESULT registerServer() noexcept;

/// Removes all that `registerServer` writes, from both places. Succeeds where there is nothing.
HRESULT unregisterServer() noexcept;

}  // namespace keyscout
