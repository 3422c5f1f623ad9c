#include "platform/win32/instance.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier): the linker's name

namespace keyscout {

HINSTANCE thisInstance() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

}  // namespace keyscout
