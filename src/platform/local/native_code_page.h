#pragma once

#ifdef _WIN32
#include "platform/win32/system_code_page.h"
#else
#include "base/code_page.h"
#endif

namespace keyscout {

/// What the bytes of data files stand for: on Windows what they stand for in the control, too.
inline const CodePage& nativeCodePage() {
#ifdef _WIN32
  return systemCodePage();
#else
  return windows1252();
#endif
}

}  // namespace keyscout
