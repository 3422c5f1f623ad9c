#include "platform/win32/window_failure.h"

#include <windows.h>

#include "base/error.h"

namespace keyscout {

void refuseWindow(StringView source) {
  switch (GetLastError()) {
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_NO_MORE_USER_HANDLES: throw platformFailure(PlatformError::outOfMemory, source);
    default: break;
  }
  constexpr DWORD noScreen = 1459;  // "requires an interactive window station"
  throw Error{HRESULT_FROM_WIN32(noScreen), source, u"There is no screen to make windows on"};
}

}  // namespace keyscout
