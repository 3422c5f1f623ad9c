#pragma once

#include <windows.h>

#include <oaidl.h>

#include "server/com/com_ptr.h"

namespace keyscout {

/// The library's own type library. Fails with the system's result.
ComPtr<ITypeLib> loadTypeLibrary();

/// What it says of an interface or a class.
ComPtr<ITypeInfo> loadTypeInfo(REFGUID id);

}  // namespace keyscout
