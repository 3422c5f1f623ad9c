#include "platform/local/native_code_page.h"

#ifdef _WIN32
#include "platform/win32/system_code_page.h"
#endif

namespace keyscout {

const CodePage& nativeCodePage() {
#ifdef _WIN32
  return systemCodePage();
#else
  return windows1252();
#endif
}

unsigned nativeCodePageNumber() {
#ifdef _WIN32
  return systemCodePageNumber();
#else
  return 1252;
#endif
}

}  // namespace keyscout
