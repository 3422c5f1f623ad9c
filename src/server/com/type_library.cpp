#include "server/com/type_library.h"

#include <oleauto.h>

#include "platform/win32/instance.h"
#include "server/com/failures.h"

namespace keyscout {

ComPtr<ITypeLib> loadTypeLibrary() {
  ComPtr<ITypeLib> library;
  require(LoadTypeLibEx(modulePath(thisInstance()).c_str(), REGKIND_NONE, library.put()));
  return library;
}

ComPtr<ITypeInfo> loadTypeInfo(REFGUID id) {
  ComPtr<ITypeInfo> info;
  require(loadTypeLibrary()->GetTypeInfoOfGuid(id, info.put()));
  return info;
}

}  // namespace keyscout
