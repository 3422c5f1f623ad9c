#include "server/com/type_library.h"

#include <oleauto.h>

#include "platform/win32/instance.h"
#include "server/com/failures.h"

namespace keyscout {

ComPtr<ITypeLib> loadTypeLibrary() {
  wchar_t path[MAX_PATH] = L"";
  if (GetModuleFileNameW(thisInstance(), path, MAX_PATH) == 0)
    throw ComFailure{TYPE_E_CANTLOADLIBRARY};
  ComPtr<ITypeLib> library;
  require(LoadTypeLibEx(path, REGKIND_NONE, library.put()));
  return library;
}

ComPtr<ITypeInfo> loadTypeInfo(REFGUID id) {
  ComPtr<ITypeInfo> info;
  require(loadTypeLibrary()->GetTypeInfoOfGuid(id, info.put()));
  return info;
}

}  // namespace keyscout
