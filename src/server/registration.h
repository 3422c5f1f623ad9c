#pragma once

#include <windows.h>

namespace keyscout {

// What makes hosts find the classes of this library. All of it is written for the whole machine, or
// for the user alone where the caller may not write the machine's part of the registry.

/// Fails with the registry's error and then leaves nothing behind, neither of an older
/// registration. A registration for the machine replaces one for the user.
HRESULT registerServer() noexcept;

/// Removes all that `registerServer` writes, from both places, and succeeds where there is nothing.
/// What is registered for the machine stays where the caller may not write there: that fails with
/// E_ACCESSDENIED unless one for the user was removed. What the library of the other width needs
/// stays, too.
HRESULT unregisterServer() noexcept;

}  // namespace keyscout
